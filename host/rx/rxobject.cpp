// Runtime classes and the system registry of the host.
#include "platform/rxobject.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "host/app/dynamic_linker.h"
#include "host/rx/rxdictionary.h"

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc() {
    static AcRxClass* cls = acrxRegisterClass("AcRxObject", nullptr);
    return cls;
}

AcRxClass* AcRxObject::isA() const { return AcRxObject::desc(); }

bool AcRxObject::isKindOf(const AcRxClass* other) const {
    const AcRxClass* mine = isA();
    return mine && mine->isDerivedFrom(other);
}

AcRxClass::AcRxClass(const char* name, AcRxClass* parent) : m_name(name), m_parent(parent) {}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* c = this; c; c = c->m_parent)
        if (c == other) return true;
    return false;
}

// AcRxClass's own record has AcRxObject as parent; built by hand because the
// macro would recurse through acrxRegisterClass.
AcRxClass* AcRxClass::desc() {
    static AcRxClass* cls = acrxRegisterClass("AcRxClass", AcRxObject::desc());
    return cls;
}
AcRxClass* AcRxClass::cast(const AcRxObject* p) {
    return p && p->isKindOf(AcRxClass::desc()) ? static_cast<AcRxClass*>(const_cast<AcRxObject*>(p))
                                               : nullptr;
}
AcRxClass* AcRxClass::isA() const { return AcRxClass::desc(); }

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)
ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace lumo::host {

AcRxObject* RxDictionary::at(const char* key) const {
    auto it = m_items.find(key ? key : "");
    return it == m_items.end() ? nullptr : it->second;
}

AcRxObject* RxDictionary::atPut(const char* key, AcRxObject* value) {
    AcRxObject*& slot = m_items[key ? key : ""];
    AcRxObject* old = slot;
    slot = value;
    return old;
}

AcRxObject* RxDictionary::remove(const char* key) {
    auto it = m_items.find(key ? key : "");
    if (it == m_items.end()) return nullptr;
    AcRxObject* old = it->second;
    m_items.erase(it);
    return old;
}

namespace {
// Class records live for the whole process, as the host's do.
RxDictionary& ClassDictionary() {
    static RxDictionary* dict = new RxDictionary;
    return *dict;
}
}  // namespace

}  // namespace lumo::host

AcRxDictionary* acrxSysRegistry() {
    static lumo::host::RxDictionary* registry = [] {
        auto* r = new lumo::host::RxDictionary;
        r->atPut(ACRX_CLASS_DICTIONARY, &lumo::host::ClassDictionary());
        r->atPut(ACRX_DYNAMIC_LINKER_OBJ, &lumo::host::DynamicLinker());
        return r;
    }();
    return registry;
}

AcRxClass* acrxRegisterClass(const char* name, AcRxClass* parent) {
    auto& dict = lumo::host::ClassDictionary();
    if (AcRxObject* known = dict.at(name)) return static_cast<AcRxClass*>(known);
    auto* cls = new AcRxClass(name, parent);
    dict.atPut(name, cls);
    return cls;
}

void acrx_abort(const char* format, ...) {
    va_list ap;
    va_start(ap, format);
    std::fputs("\nINTERNAL ERROR: ", stderr);
    std::vfprintf(stderr, format, ap);
    std::fputc('\n', stderr);
    va_end(ap);
    std::abort();
}
