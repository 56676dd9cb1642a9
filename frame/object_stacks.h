// The process-wide value stacks: object names that handlers take as their
// implied argument, containers walked one item per call, and saved system
// variables.
//
// Names in the stacks go stale when their drawing closes; every use opens
// the object again, and a stale name simply fails there.
#pragma once
#include <cstdint>

#include "frame/ADSName.h"
#include "frame/DList.h"
#include "frame/sysvar_stack.h"
#include "platform/adsdef.h"

struct ContainerEntry {
    ads_name name;
    int32_t next;   // the index of the next item to hand out
};

class ValueStacks {
public:
    ValueStacks() = default;
    ValueStacks(const ValueStacks&) = delete;
    ValueStacks& operator=(const ValueStacks&) = delete;
    // Releases what the stacks hold. Saved variables are not set back: at
    // the end of the process the host may be gone already.
    ~ValueStacks();

    DList<ADSName> objects;                // the last item is the top
    DList<ContainerEntry> containers;      // the last item is the top
    SysVarStack* sysVars = nullptr;        // made when first needed

    SysVarStack& SysVars();
    // Destroys the saved variables, newest first, setting each back.
    void PopAllSysVars();
    // Empties all three stacks (the end of a drawing session).
    void Clear();
};

extern ValueStacks gValueStacks;

// The top of the object stack; false when the stack is empty.
bool ObjectStackTop(ads_name out);
// Empties the object, container and system-variable stacks.
void EmptyValueStacks();

// The name leads to an object of the drawing that opens for read.
bool IsDatabaseObject(const ads_name name);
// The name leads to a symbol table, a dictionary, an extended record or a
// block definition.
bool IsContainer(const ads_name name);
// The item number `entry.next` of the container, as a list of its text and
// its name (the caller releases it); null when the walk is over or the
// container has no walk.
resbuf* ContainerItem(const ContainerEntry& entry);
