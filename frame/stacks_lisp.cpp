// The LISP functions on the value stacks: objects, containers and saved
// system variables.
#include "frame/stacks_lisp.h"

#include "frame/object_stacks.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

namespace {

bool IsName(const resbuf* arg) { return arg && arg->restype == RTENAME; }

}  // namespace

int lumo_objectstack_push() {
    resbuf* args = acedGetArgs();
    if (!IsName(args) || !IsDatabaseObject(args->resval.rlname)) return RTNORM;
    gValueStacks.objects.Append(new ADSName(args->resval.rlname));
    acedRetT();
    return RTNORM;
}

int lumo_objectstack_pop() {
    DList<ADSName>& objects = gValueStacks.objects;
    if (!objects.IsEmpty()) objects.RemoveNode(objects.TailNode());
    return RTNORM;
}

int lumo_objectstack_top() {
    ads_name top;
    if (acedGetArgs() || !ObjectStackTop(top)) return RTNORM;
    acedRetName(top, RTENAME);
    return RTNORM;
}

int lumo_objectstack_depth() {
    acedRetInt(gValueStacks.objects.Count());
    return RTNORM;
}

int lumo_objectstack_popall() {
    gValueStacks.objects.RemoveAll();
    return RTNORM;
}

int lumo_container_push() {
    resbuf* args = acedGetArgs();
    if (!IsName(args) || args->rbnext || !IsContainer(args->resval.rlname)) return RTNORM;
    gValueStacks.containers.Append(new ContainerEntry{{args->resval.rlname[0], args->resval.rlname[1]}, 0});
    acedRetT();
    return RTNORM;
}

int lumo_container_pop() {
    DList<ContainerEntry>& containers = gValueStacks.containers;
    if (!containers.IsEmpty()) containers.RemoveNode(containers.TailNode());
    return RTNORM;
}

// Hands out the next item of the top container; at the end of the walk, or
// for a container without a walk, the container leaves the stack.
int lumo_container_iter() {
    DList<ContainerEntry>& containers = gValueStacks.containers;
    ContainerEntry* top = containers.Last();
    if (!top || !IsContainer(top->name)) return RTNORM;
    resbuf* item = ContainerItem(*top);
    if (!item) {
        containers.RemoveNode(containers.TailNode());
        return RTNORM;
    }
    ++top->next;
    acedRetList(item);
    acutRelRb(item);
    return RTNORM;
}

int lumo_container_Depth() {
    acedRetInt(gValueStacks.containers.Count());
    return RTNORM;
}

int lumo_container_PopAll() {
    gValueStacks.containers.RemoveAll();
    return RTNORM;
}

int lumo_object_iscontainer() {
    resbuf* args = acedGetArgs();
    ads_name name;
    if (!args) {
        if (!ObjectStackTop(name)) return RTNORM;
    } else {
        if (args->rbnext || !IsName(args)) return RTNORM;
        name[0] = args->resval.rlname[0];
        name[1] = args->resval.rlname[1];
    }
    if (IsContainer(name)) acedRetT();
    return RTNORM;
}

int lumo_sysvar_push() {
    resbuf* args = acedGetArgs();
    if (!args || args->restype != RTSTR || !args->resval.rstring) return RTNORM;
    const resbuf* value = args->rbnext;
    if (value) {
        switch (value->restype) {
        case RTSTR:
        case RTSHORT:
        case RTREAL:
        case RT3DPOINT:
        case RTPOINT:
            break;
        default:  // a value the variables can't take: nothing is pushed
            return RTNORM;
        }
    }
    auto* state = new SysVarState(args->resval.rstring);
    gValueStacks.SysVars().Push(state);
    if (value) {
        resbuf single = *value;   // one node: the host reads no further
        single.rbnext = nullptr;
        state->Set(&single);
    }
    return RTNORM;
}

int lumo_sysvar_pop() {
    resbuf* args = acedGetArgs();
    if (!args) {
        gValueStacks.PopAllSysVars();
        return RTNORM;
    }
    if (args->restype == RTSTR && gValueStacks.sysVars) gValueStacks.sysVars->Pop(args->resval.rstring);
    return RTNORM;
}
