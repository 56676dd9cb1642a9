// Groups: named, ordered sets of entities kept in ACAD_GROUP.
#include <algorithm>

#include "host/db/database_impl.h"
#include "host/db/record.h"
#include "platform/crt.h"
#include "platform/dbdict.h"

ACRX_DEFINE_MEMBERS(AcDbGroup, AcDbObject)

using namespace lumo::db;

namespace {
using Group = AcDbGroup::Data;

bool ReadMember(AcDbObject& obj, int, TagCursor& in, ReadContext&) {
    const Tag& t = in.Next();
    if (t.kind != ValueKind::Name) return false;
    if (t.ref) static_cast<AcDbGroup&>(obj).data().ids.push_back(t.ref);
    return true;
}

void WriteMembers(const AcDbObject& obj, int, int, TagSink& out) {
    bool file = IsDxf(out.flavor());
    for (AcDbStub* s : const_cast<AcDbGroup&>(static_cast<const AcDbGroup&>(obj)).data().ids) {
        if (file && (!s->object || s->object->isErased())) continue;
        out.Ref(340, s);
    }
}

void ClearMembers(AcDbObject& obj, int) { static_cast<AcDbGroup&>(obj).data().ids.clear(); }

constexpr CustomIO kGroupIO{ReadMember, WriteMembers, ClearMembers};
constexpr Field kGroupFields[] = {
    FText(300, offsetof(Group, description), "", kAlways),
    FInt16(70, offsetof(Group, unnamed), 0, kAlways),
    FInt16(71, offsetof(Group, selectable), 1, kAlways),
    FCustom(340, 0),
};
constexpr Section kGroupSections[] = {MakeSection("AcDbGroup", kGroupFields)};
constexpr Record kGroupRecord = MakeRecord("GROUP", nullptr, kGroupSections, &kGroupIO);

bool Live(AcDbStub* s) { return s && s->object && !s->object->isErased(); }
}  // namespace

AcDbGroup::AcDbGroup() = default;
AcDbGroup::AcDbGroup(const char* description, bool selectable) {
    m_d.description = description ? description : "";
    m_d.selectable = selectable ? 1 : 0;
}
const Record& AcDbGroup::dxfRecord() const { return kGroupRecord; }
void* AcDbGroup::dxfData(int level) { return level == 1 ? &m_d : nullptr; }

Acad::ErrorStatus AcDbGroup::setDescription(const char* text) {
    m_d.description = text ? text : "";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::getName(char*& name) const {
    name = nullptr;
    AcDbStub* owner = ownerId();
    auto* dict = owner && owner->object ? AcDbDictionary::cast(owner->object) : nullptr;
    return dict ? dict->nameAt(objectId(), name) : Acad::eKeyNotFound;
}

namespace {
// Members learn of their group through a persistent reactor, as the host does.
void Link(AcDbGroup& g, AcDbObjectId id, bool on) {
    AcDbStub* s = id;
    if (!s || !s->object) return;
    if (on) s->object->addPersistentReactor(g.objectId());
    else s->object->removePersistentReactor(g.objectId());
}
}  // namespace

Acad::ErrorStatus AcDbGroup::insertAt(uint32_t index, AcDbObjectId id) {
    if (!id.isValid() || !AcDbEntity::cast(static_cast<AcDbStub*>(id)->object)) return Acad::eNotAnEntity;
    if (std::find(m_d.ids.begin(), m_d.ids.end(), static_cast<AcDbStub*>(id)) != m_d.ids.end()) return Acad::eDuplicateKey;
    if (index > m_d.ids.size()) return Acad::eInvalidIndex;
    m_d.ids.insert(m_d.ids.begin() + index, id);
    Link(*this, id, true);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id) { return insertAt(static_cast<uint32_t>(m_d.ids.size()), id); }
Acad::ErrorStatus AcDbGroup::prepend(AcDbObjectId id) { return insertAt(0, id); }

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id) {
    auto it = std::find(m_d.ids.begin(), m_d.ids.end(), static_cast<AcDbStub*>(id));
    if (it == m_d.ids.end()) return Acad::eKeyNotFound;
    m_d.ids.erase(it);
    Link(*this, id, false);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::removeAt(uint32_t index) {
    if (index >= m_d.ids.size()) return Acad::eInvalidIndex;
    return remove(m_d.ids[index]);
}

Acad::ErrorStatus AcDbGroup::clear() {
    while (!m_d.ids.empty()) remove(m_d.ids.back());
    return Acad::eOk;
}

bool AcDbGroup::has(const AcDbEntity* entity) const {
    return entity && std::find(m_d.ids.begin(), m_d.ids.end(), entity->stub()) != m_d.ids.end();
}

uint32_t AcDbGroup::allEntityIds(AcArray<AcDbObjectId>& ids) const {
    ids.setLogicalLength(0);
    for (AcDbStub* s : m_d.ids)
        if (Live(s)) ids.append(AcDbObjectId(s));
    return static_cast<uint32_t>(ids.length());
}

AcDbGroupIterator* AcDbGroup::newIterator() {
    std::vector<AcDbStub*> live;
    for (AcDbStub* s : m_d.ids)
        if (Live(s)) live.push_back(s);
    return new AcDbGroupIterator(std::move(live));
}

AcDbObjectId AcDbGroupIterator::objectId() const { return done() ? AcDbObjectId() : AcDbObjectId(m_ids[m_pos]); }

Acad::ErrorStatus AcDbGroupIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) {
    object = nullptr;
    return done() ? Acad::eInvalidIndex : acdbOpenObject(object, m_ids[m_pos], mode);
}
