// Extended records: any groups under a dictionary key.
#include <deque>

#include "host/db/database_impl.h"
#include "host/db/record.h"
#include "host/db/resbuf_sink.h"
#include "platform/dbdict.h"

ACRX_DEFINE_MEMBERS(AcDbXrecord, AcDbObject)

using namespace lumo::db;

namespace {
// The record's first 280 is its cloning flag; everything after it, a 280
// included, is data. Bit 31 of the touched slots remembers the flag.
constexpr uint32_t kFlagSeen = 1u << 31;

bool ReadData(AcDbObject& obj, int, TagCursor& in, ReadContext& ctx) {
    auto& x = static_cast<AcDbXrecord&>(obj);
    if (in.Peek().code == 280 && !(ctx.touched & kFlagSeen) && x.items().empty()) {
        ctx.touched |= kFlagSeen;
        x.setMergeStyle(static_cast<AcDb::DuplicateRecordCloning>(in.Next().i));
        return true;
    }
    ctx.touched |= kFlagSeen;
    while (!in.Done() && in.Peek().code != 1001 && in.Peek().code != -3) x.items().emplace_back(in.Next());
    return true;
}

void WriteData(const AcDbObject& obj, int, int code, TagSink& out) {
    const auto& x = static_cast<const AcDbXrecord&>(obj);
    if (code == 280) {
        out.Int(280, x.mergeStyle());
        return;
    }
    for (const OwnedTag& t : x.items()) out.Put(t.view());
}

void ClearData(AcDbObject& obj, int) { static_cast<AcDbXrecord&>(obj).items().clear(); }

constexpr CustomIO kXrecordIO{ReadData, WriteData, ClearData};
constexpr Field kXrecordFields[] = {FCustom(280, 0, kNot12), FCustom(kAnyCode, 0)};
constexpr Section kXrecordSections[] = {MakeSection("AcDbXrecord", kXrecordFields)};
constexpr Record kXrecordRecord = MakeRecord("XRECORD", nullptr, kXrecordSections, &kXrecordIO);
}  // namespace

AcDbXrecord::AcDbXrecord() = default;
AcDbXrecord::~AcDbXrecord() = default;
const Record& AcDbXrecord::dxfRecord() const { return kXrecordRecord; }
void* AcDbXrecord::dxfData(int level) { return level == 1 ? &m_d : nullptr; }

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const {
    if (!chain) return Acad::eNullObjectPointer;
    ResbufSink sink;
    for (const OwnedTag& t : m_items) sink.Put(t.view());
    *chain = sink.Take();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf* chain, AcDbDatabase*) {
    std::vector<Tag> tags;
    std::deque<std::string> scratch;
    if (!TagsFromChain(chain, tags, scratch)) return Acad::eInvalidResBuf;
    m_items.clear();
    for (const Tag& t : tags) {
        if (t.code == -3 || t.code == 5 || t.code == 105 || t.code >= 1000) return Acad::eInvalidResBuf;
        m_items.emplace_back(t);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* db) { return setFromRbChain(&chain, db); }
