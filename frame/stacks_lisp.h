// The LISP functions on the value stacks: objects, containers and saved
// system variables.
#pragma once

int lumo_objectstack_push();
int lumo_objectstack_pop();
int lumo_objectstack_top();
int lumo_objectstack_depth();
int lumo_objectstack_popall();
int lumo_container_push();
int lumo_container_pop();
int lumo_container_iter();
int lumo_container_Depth();
int lumo_container_PopAll();
int lumo_object_iscontainer();
int lumo_sysvar_push();
int lumo_sysvar_pop();
