// Runtime classes, the system registry and the application entry protocol.
#pragma once
#include <cstdint>

class AcRxClass;

namespace AcRx {
enum AppMsgCode {
    kNullMsg = 0, kInitAppMsg = 1, kUnloadAppMsg = 2, kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4, kInvkSubrMsg = 5, kCfgMsg = 6, kEndMsg = 7, kQuitMsg = 8,
    kSaveMsg = 9, kDependencyMsg = 10, kNoDependencyMsg = 11, kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13, kInitDialogMsg = 14, kEndDialogMsg = 15,
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}

typedef AcRx::AppRetCode (*AcRxEntryPointFn)(AcRx::AppMsgCode message, void* packet);

// Declares the runtime-class members of a class: desc() its class record,
// isA() the record of the dynamic type, cast() a checked down-cast.
#define ACRX_DECLARE_MEMBERS(CLASS)                       \
    static AcRxClass* desc();                              \
    static CLASS* cast(const AcRxObject* p);               \
    AcRxClass* isA() const override

class AcRxObject {
public:
    virtual ~AcRxObject();
    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* p) { return const_cast<AcRxObject*>(p); }
    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* other) const;
};

class AcRxClass : public AcRxObject {
public:
    AcRxClass(const char* name, AcRxClass* parent);
    ACRX_DECLARE_MEMBERS(AcRxClass);
    const char* name() const { return m_name; }
    AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const;
private:
    const char* m_name;
    AcRxClass* m_parent;
};

// Defines the members declared by ACRX_DECLARE_MEMBERS; the class record is
// registered in the class dictionary on first use.
#define ACRX_DEFINE_MEMBERS(CLASS, PARENT)                                     \
    AcRxClass* CLASS::desc() {                                                 \
        static AcRxClass* cls = acrxRegisterClass(#CLASS, PARENT::desc());     \
        return cls;                                                            \
    }                                                                          \
    CLASS* CLASS::cast(const AcRxObject* p) {                                  \
        return p && p->isKindOf(CLASS::desc())                                 \
                   ? static_cast<CLASS*>(const_cast<AcRxObject*>(p)) : nullptr; \
    }                                                                          \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }

class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);
    virtual AcRxObject* at(const char* key) const = 0;
    virtual AcRxObject* atPut(const char* key, AcRxObject* value) = 0;
    virtual AcRxObject* remove(const char* key) = 0;
};

class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);
    virtual bool loadModule(const char* fileName, bool printErrors, bool asCmd = false) = 0;
    virtual bool unloadModule(const char* fileName, bool asCmd = false) = 0;
    virtual bool registerAppMDIAware(void* appId) = 0;
    virtual bool isApplicationLoaded(const char* fileName) const = 0;
};

AcRxDictionary* acrxSysRegistry();
AcRxClass* acrxRegisterClass(const char* name, AcRxClass* parent);
bool acrxUnlockApplication(void* appId);
bool acrxLockApplication(void* appId);
void acrx_abort(const char* format, ...);

#define ACRX_DYNAMIC_LINKER_OBJ "DynamicLinker"
#define ACRX_CLASS_DICTIONARY "ClassDictionary"
#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER_OBJ))
#define acrxClassDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY))
