// Entity: the module's handle on one drawing entity. A name, the entity's
// DXF list loaded lazily beside it, and typed access to the module's
// records in the entity's extended data (see database/xdata_layout.h).
//
// Changes to the list stay in memory until Modify() hands it to the host,
// so a failed sequence of changes leaves the drawing as it was. Changing
// the name always drops the loaded list.
#pragma once
#include <cstdarg>
#include <cstdint>

#include "frame/Groups.h"
#include "frame/RBList.h"
#include "platform/adsdef.h"

class PickSet;
class XPoint;

class Entity {
public:
    // The registered application under which the records live; by default
    // the module's own text ("_PWH"), which InitKmv may replace.
    static const char* appName;

    Entity() = default;
    explicit Entity(const int32_t* entity);
    explicit Entity(const char* handle);        // by acdbHandEnt
    // Copies take the name only; the list is loaded again when needed.
    Entity(const Entity& other);
    Entity& operator=(const int32_t* entity);
    Entity& operator=(const Entity& other);
    ~Entity() = default;

    bool operator!() const { return name[0] == 0 && name[1] == 0; }
    operator const int32_t*() const { return name; }
    const int32_t* Name() const { return name; }
    void FreeGroups();
    RBList& List() { return groups; }
    Groups* ExGroups() const { return exGroups; }

    // Each sets a new name and returns the host's status.
    int UserSelect(const char* prompt, double* pickPoint);
    int UserSelect(const char* prompt);
    int Handent(const char* handle);
    int CreateByHandle(const char* handle) { return Handent(handle); }
    int GetLast();
    int GetNext();                              // the entity after this one (the first for a null one)
    int GetNext(const Entity& after);

    // The DXF list. RTNORM, or RTERROR when nothing could be read.
    int _GetGroups();
    int GetGroups(int withApp);                 // with the records of appName if non-zero
    int GetGroups(const char* app);             // with another application's records
    int entgetx() { return GetGroups(1); }
    int entgetx(const char* app) { return GetGroups(app); }
    int GetData(int code, void* out);
    // The value as RBList::SetData takes it; the change stays in memory.
    int SetData(int code, ...);
    int Modify();
    int Make();
    // Makes a new entity from pairs of code and value ended by 0, and
    // takes its name.
    int Make(int code, ...);
    int MakeEx(int code, ...);
    bool Is(const char* type);
    int Delete();
    int Update();
    int Redraw(int mode);
    int Erase();
    bool In(const PickSet& set) const;
    // The first group of the code matches: a text by wild card, other
    // values by Groups equality.
    bool MatchBase(const Groups& pattern);
    bool MatchBase(const RBList& patterns);     // all of them; an empty list matches

    // The box of the entity, through the matrix when one is given: RTNORM,
    // RTERROR when the box is only approximate, RTNONE when it has none.
    int GetExtend(double* min, double* max, double m[4][4] = nullptr);
    // The box's centre and edge lengths; any pointer may be null.
    int GetExtend(double* center, double* width, double* height, double* depth);
    // Moves the entity's points through the matrix in its list.
    int XTransform(double m[4][4]);
    int Move(const XPoint& base, XPoint& to);
    int Rotate(const XPoint& base, double* angle);
    int Scale(const XPoint& base, double* factor);

    // Records in extended data.
    static int AssignAppName(const char* app);
    int _MakeExGroups();
    Groups* SearchByTagCode(int tag) const;     // any 1070 of that value
    Groups* SearchDataByTag(int tag) const;
    int CreateTag(const void* value, int tag, int type);
    int DeleteTag(int tag);
    // The value's type follows from the tag (TypeOfCode): a text for 1..9,
    // a real for 20..59, an integer for 60..79 ...
    int SetExData(int tag, ...);
    int GetExData(int tag, void* out);
    int GetInt(int tag, int& out);
    int GetReal(int tag, double& out);
    int GetRString(int tag, char*& out);        // the list's own text
    int GetString(int tag, char* out);          // a copy; the caller sizes `out`
    int GetPoint(int tag, XPoint& out);
    int GetRBinary(int tag, short& length, const char*& bytes);
    int SetInt(int tag, int value);
    int SetReal(int tag, double value);
    int SetString(int tag, const char* text, int asHandle = 0);
    int SetPoint(int tag, const XPoint& point);
    int SetBinary(int tag, short length, const char* bytes);
    int SetStruct(const void* data, int size, int tag);
    int GetStruct(void* out, int size, int tag);
    int RemoveXData();
    bool MatchEx(int tag, const Groups* value);
    bool MatchEx(int tag, int value);
    bool MatchEx(int tag, const char* value);
    bool MatchEx(int tag, double value);
    bool MatchEx(const Groups* tagNode, const Groups* valueNode);
    // Pairs of tag node and value node, all of which must match.
    bool Match(const RBList& pairs);

private:
    void NewName(const int32_t* entity);
    // Makes an entity from the pairs and takes its name.
    int MakeFromPairs(int code, va_list ap);
    bool EnsureExGroups();
    // The value node behind the tag, loading the records if needed.
    resbuf* TagValue(int tag);
    int SetTagValue(int tag, resbuf* node);

    int32_t name[2] = {0, 0};
    RBList groups;
    Groups* exGroups = nullptr;
};

// Makes an entity from pairs of code and value ended by 0.
int MakeEntity(int code, ...);
