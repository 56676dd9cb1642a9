// Entity: the module's records in the entity's extended data.
//
// Two searches stand side by side on purpose. SearchByTagCode takes any
// 1070 node of the tag's value, so an integer value can shadow a later
// tag; the typed Get and Set calls go through FindTag, which knows tags
// from values and steps over brackets.
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include "database/Entity.h"
#include "database/xdata_layout.h"
#include "frame/ApplicationError.h"
#include "frame/TypeOfCode.h"
#include "kernel/XPoint.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acutads.h"
#include "platform/crt.h"

namespace {

// Struct sizes travel in a 16-bit node.
constexpr int kMaxStructSize = 32767;

resbuf* NewNode(int code) { return acutNewRb(code); }

}  // namespace

int Entity::AssignAppName(const char* app) {
    if (!app || !*app) {
        ApplicationError("Bad Application Name\n");
        return RTERROR;
    }
    appName = app;
    resbuf* found = acdbTblSearch("APPID", app, 0);
    if (!found) return acdbRegApp(app);
    acutRelRb(found);
    return RTNORM;
}

int Entity::_MakeExGroups() {
    exGroups = nullptr;
    Groups* sentinel = groups.Head();
    while (sentinel && sentinel->restype != -3) sentinel = sentinel->Next();
    // A -3 with nothing behind it takes only the 1001: a second -3 would
    // open the extended data twice.
    if (!sentinel || !sentinel->rbnext) {
        resbuf* added = sentinel ? acutBuildList(1001, appName ? appName : "", 0)
                                 : acutBuildList(-3, 1001, appName ? appName : "", 0);
        if (!added) {
            ApplicationError("Error in Ex::GetGroups\n");
            return RTERROR;
        }
        groups.Append(added);
        if (!sentinel) sentinel = static_cast<Groups*>(added);
    }
    exGroups = sentinel->Next();
    return RTNORM;
}

bool Entity::EnsureExGroups() {
    if (!groups || !exGroups) GetGroups(1);
    return exGroups != nullptr;
}

Groups* Entity::SearchByTagCode(int tag) const {
    for (Groups* node = exGroups; node; node = node->Next())
        if (node->restype == kXdInteger && node->resval.rint == tag) return node;
    return nullptr;
}

Groups* Entity::SearchDataByTag(int tag) const {
    Groups* node = SearchByTagCode(tag);
    return node ? node->Next() : nullptr;
}

int Entity::CreateTag(const void* value, int tag, int type) {
    resbuf* tagNode = exGroups && value ? NewNode(kXdInteger) : nullptr;
    int code = type == RTSTR ? kXdString : type == RTREAL ? kXdReal : kXdInteger;
    resbuf* valueNode = tagNode ? NewNode(code) : nullptr;
    if (!valueNode) {
        acutRelRb(tagNode);
        ApplicationError("Error in ::CreateTag");
        return RTERROR;
    }
    tagNode->resval.rint = static_cast<short>(tag);
    if (code == kXdString) valueNode->resval.rstring = _strdup(static_cast<const char*>(value));
    else if (code == kXdReal) valueNode->resval.rreal = *static_cast<const double*>(value);
    else valueNode->resval.rint = static_cast<short>(*static_cast<const int*>(value));
    tagNode->rbnext = valueNode;
    groups.Append(tagNode);
    return RTNORM;
}

int Entity::DeleteTag(int tag) {
    if (!exGroups) EnsureExGroups();
    resbuf* before = nullptr;
    resbuf* tagNode = nullptr;
    for (resbuf* node = exGroups; node; before = node, node = node->rbnext) {
        if (node->restype == kXdInteger && node->resval.rint == tag) {
            tagNode = node;
            break;
        }
    }
    if (!tagNode || !before || !tagNode->rbnext) return RTERROR;
    resbuf* last = tagNode->rbnext;
    if (IsOpeningBrace(last)) {   // to the first closing brace, nesting not counted
        while (last && !IsClosingBrace(last)) last = last->rbnext;
        if (!last) return RTERROR;
    }
    before->rbnext = last->rbnext;
    last->rbnext = nullptr;
    acutRelRb(tagNode);
    return RTNORM;
}

namespace {

// The tag's value type for SetExData and GetExData: RTNONE when the tag
// can't hold a value there.
int ExDataType(int tag) {
    int type = TypeOfCode(tag);
    return type == RTSTR || type == RTREAL || type == RTSHORT ? type : RTNONE;
}

}  // namespace

int Entity::SetExData(int tag, ...) {
    if (!groups || !exGroups) GetGroups(1);
    int type = ExDataType(tag);
    if (type == RTNONE) {
        ApplicationError("This tag code %d is not support by the::SetExdata.\n", tag);
        return RTERROR;
    }
    va_list ap;
    va_start(ap, tag);
    const char* text = nullptr;
    double real = 0;
    int integer = 0;
    if (type == RTSTR) text = va_arg(ap, const char*);
    else if (type == RTREAL) real = va_arg(ap, double);
    else integer = va_arg(ap, int);
    va_end(ap);
    Groups* tagNode = SearchByTagCode(tag);
    if (!tagNode) {
        const void* value = type == RTSTR ? static_cast<const void*>(text ? text : "")
                            : type == RTREAL ? static_cast<const void*>(&real) : &integer;
        return CreateTag(value, tag, type);
    }
    resbuf* value = tagNode->rbnext;
    if (!value || TypeOfCode(value->restype) != type) {
        ApplicationError("Tag Code type does not match the group code type.::SetExData\n");
        return RTERROR;
    }
    if (type == RTSTR) {
        std::free(value->resval.rstring);
        value->resval.rstring = _strdup(text ? text : "");
    } else if (type == RTREAL) {
        value->resval.rreal = real;
    } else {
        value->resval.rint = static_cast<short>(integer);
    }
    return RTNORM;
}

int Entity::GetExData(int tag, void* out) {
    if (!groups || !exGroups) GetGroups(1);
    int type = ExDataType(tag);
    if (type == RTNONE) {
        ApplicationError("This tag code %d is not support by the::GetExdata.\n", tag);
        return RTERROR;
    }
    Groups* tagNode = SearchByTagCode(tag);
    if (!tagNode) return RTERROR;
    resbuf* value = tagNode->rbnext;
    if (!value || TypeOfCode(value->restype) != type) {
        ApplicationError("Tag Code type does not match the group code type.::SetExData\n");
        return RTERROR;
    }
    if (type == RTSTR) std::strcpy(static_cast<char*>(out), value->resval.rstring ? value->resval.rstring : "");
    else if (type == RTREAL) std::memcpy(out, &value->resval.rreal, sizeof(double));
    else std::memcpy(out, &value->resval.rint, sizeof(short));
    return RTNORM;
}

resbuf* Entity::TagValue(int tag) {
    if (!EnsureExGroups()) return nullptr;
    resbuf* tagNode = FindTag(exGroups, tag);
    return tagNode ? tagNode->rbnext : nullptr;
}

int Entity::GetInt(int tag, int& out) {
    resbuf* value = TagValue(tag);
    if (!value) return RTERROR;
    out = value->resval.rint;
    return RTNORM;
}

int Entity::GetReal(int tag, double& out) {
    resbuf* value = TagValue(tag);
    if (!value) return RTERROR;
    out = value->resval.rreal;
    return RTNORM;
}

// The texts and bytes are read only from nodes that hold them: a pointer
// read from a number would lead anywhere.
int Entity::GetRString(int tag, char*& out) {
    resbuf* value = TagValue(tag);
    if (!value || TypeOfCode(value->restype) != RTSTR || value->restype == kXdBinary) return RTERROR;
    out = value->resval.rstring;
    return RTNORM;
}

int Entity::GetString(int tag, char* out) {
    char* text = nullptr;
    if (GetRString(tag, text) != RTNORM) return RTERROR;
    std::strcpy(out, text ? text : "");
    return RTNORM;
}

int Entity::GetPoint(int tag, XPoint& out) {
    resbuf* value = TagValue(tag);
    if (!value) return RTERROR;
    out = value->resval.rpoint;
    return RTNORM;
}

int Entity::GetRBinary(int tag, short& length, const char*& bytes) {
    resbuf* value = TagValue(tag);
    if (!value || value->restype != kXdBinary) return RTERROR;
    length = value->resval.rbinary.clen;
    bytes = value->resval.rbinary.buf;
    return RTNORM;
}

int Entity::SetTagValue(int tag, resbuf* node) {
    EnsureExGroups();
    resbuf* chain = exGroups;
    int status = ::SetTagValue(chain, tag, node, appName);
    if (!exGroups && chain) {   // a list of its own, started by SetTagValue
        groups.Append(chain);
        _MakeExGroups();
    }
    return status;
}

int Entity::SetInt(int tag, int value) {
    resbuf* node = NewNode(kXdInteger);
    if (!node) return RTERROR;
    node->resval.rint = static_cast<short>(value);
    SetTagValue(tag, node);
    return RTNORM;
}

int Entity::SetReal(int tag, double value) {
    resbuf* node = NewNode(kXdReal);
    if (!node) return RTERROR;
    node->resval.rreal = value;
    SetTagValue(tag, node);
    return RTNORM;
}

int Entity::SetString(int tag, const char* text, int asHandle) {
    resbuf* node = NewNode(asHandle ? kXdHandle : kXdString);
    if (!node) return RTERROR;
    node->resval.rstring = _strdup(text ? text : "");
    SetTagValue(tag, node);
    return RTNORM;
}

int Entity::SetPoint(int tag, const XPoint& point) {
    resbuf* node = NewNode(kXdPoint);
    if (!node) return RTERROR;
    const double* p = point;
    std::memcpy(node->resval.rpoint, p, sizeof node->resval.rpoint);
    SetTagValue(tag, node);
    return RTNORM;
}

int Entity::SetBinary(int tag, short length, const char* bytes) {
    resbuf* node = NewNode(kXdBinary);
    if (!node) return RTERROR;
    int n = length > 0 && bytes ? length : 0;
    node->resval.rbinary.clen = static_cast<short>(n);
    node->resval.rbinary.buf = n ? static_cast<char*>(std::malloc(n)) : nullptr;
    if (n) std::memcpy(node->resval.rbinary.buf, bytes, n);
    SetTagValue(tag, node);
    return RTNORM;
}

int Entity::SetStruct(const void* data, int size, int tag) {
    if (!groups || !exGroups) GetGroups(1);
    if (size < 1 || size > kMaxStructSize || !data || !exGroups) return RTERROR;
    DeleteTag(tag);
    resbuf* record = BuildStructRecord(tag, data, size);
    if (!record) {
        ApplicationError("Error in ::SetStruct.\n");
        return RTERROR;
    }
    groups.Append(record);
    return RTNORM;
}

int Entity::GetStruct(void* out, int size, int tag) {
    if (!groups || !exGroups) GetGroups(1);
    Groups* tagNode = SearchByTagCode(tag);
    if (!tagNode) return RTERROR;
    resbuf* brace = tagNode->rbnext;
    resbuf* sizeNode = brace ? brace->rbnext : nullptr;
    if (!IsOpeningBrace(brace) || !sizeNode || sizeNode->restype != kXdInteger) {
        ApplicationError("Error in ::GetStruct\n");
        return RTERROR;
    }
    int n = size < sizeNode->resval.rint ? size : sizeNode->resval.rint;
    auto* bytes = static_cast<unsigned char*>(out);
    for (resbuf* word = sizeNode->rbnext; n > 0; word = word->rbnext) {
        if (!word) {
            ApplicationError("Error in ::GetStruct\n");
            return RTERROR;
        }
        if (word->restype != kXdLong) break;
        int take = n < 4 ? n : 4;
        std::memcpy(bytes, &word->resval.rlong, take);
        bytes += take;
        n -= take;
    }
    return RTNORM;
}

int Entity::RemoveXData() {
    if (GetGroups(0) != RTNORM || _MakeExGroups() != RTNORM) return RTERROR;
    return acdbEntMod(groups.Head());
}

bool Entity::MatchEx(int tag, const Groups* value) {
    if (!EnsureExGroups() || !value) return false;
    Groups* found = SearchDataByTag(tag);
    return found && *found == *value;
}

bool Entity::MatchEx(int tag, int value) {
    if (!EnsureExGroups()) return false;
    Groups* found = SearchDataByTag(tag);
    return found && found->restype == kXdInteger && found->resval.rint == value;
}

bool Entity::MatchEx(int tag, const char* value) {
    if (!EnsureExGroups()) return false;
    Groups* found = SearchDataByTag(tag);
    return found && found->restype == kXdString && value && found->resval.rstring &&
           std::strcmp(found->resval.rstring, value) == 0;
}

bool Entity::MatchEx(int tag, double value) {
    if (!EnsureExGroups()) return false;
    Groups* found = SearchDataByTag(tag);
    return found && found->restype == kXdReal && found->resval.rreal == value;
}

bool Entity::MatchEx(const Groups* tagNode, const Groups* valueNode) {
    if (!tagNode || tagNode->restype != kXdInteger) return false;
    return MatchEx(tagNode->resval.rint, valueNode);
}

bool Entity::Match(const RBList& pairs) {
    bool first = true;
    for (Groups* node = pairs.Head(); node; node = node->Next()->Next()) {
        if (!node->Next()) {
            acdbFail("\nBad Extend data list!");
            return false;
        }
        if (!first && acedUsrBrk()) return false;
        first = false;
        if (!MatchEx(node, node->Next())) return false;
    }
    return true;
}
