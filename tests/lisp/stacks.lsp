;;; The value stacks: objects, containers walked from a loop, saved system
;;; variables.
(load "check.lsp")

;;; objects
(check 'objectstack-empty-top (lumo_objectstack_top) nil)
(check 'objectstack-empty-pop (progn (lumo_objectstack_pop) (lumo_objectstack_depth)) 0)
(entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 1.0 0.0)))
(setq line (entlast))
(check 'objectstack-push (lumo_objectstack_push line) T)
(check 'objectstack-push-dict (lumo_objectstack_push (namedobjdict)) T)
(check 'objectstack-push-text (lumo_objectstack_push "x") nil)
(check 'objectstack-depth (lumo_objectstack_depth) 2)
(check 'objectstack-top (lumo_objectstack_top) (namedobjdict))
(check 'objectstack-top-args (lumo_objectstack_top 1) nil)
(check 'iscontainer-top (lumo_object_iscontainer) T)
(lumo_objectstack_pop)
(check 'objectstack-after-pop (lumo_objectstack_top) line)
(check 'iscontainer-line (lumo_object_iscontainer) nil)
(lumo_objectstack_popall)
(check 'objectstack-popall (lumo_objectstack_depth) 0)
(check 'iscontainer-empty (lumo_object_iscontainer) nil)

;;; containers
(setq layers (cdr (assoc 330 (entget (tblobjname "LAYER" "0")))))
(check 'container-push-record (lumo_container_push (tblobjname "LAYER" "0")) nil)
(check 'container-push-two (lumo_container_push layers layers) nil)
(check 'container-push (lumo_container_push layers) T)
(check 'container-depth (lumo_container_Depth) 1)
(check 'layer-walk-first (lumo_container_iter) (list "0" (tblobjname "LAYER" "0")))
(check 'layer-walk-end (lumo_container_iter) nil)
(check 'layer-walk-popped (lumo_container_Depth) 0)

;;; a loop over the drawing's model space
(entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 1.0)))
(lumo_container_push (cdr (assoc 330 (entget line))))
(setq kinds nil)
(while (setq item (lumo_container_iter)) (setq kinds (cons (car item) kinds)))
(check 'model-space-walk (reverse kinds) '("AcDbLine" "AcDbCircle"))
(check 'model-space-popped (lumo_container_Depth) 0)

;;; the named object dictionary, by key
(lumo_container_push (namedobjdict))
(check 'dictionary-first (car (lumo_container_iter)) "ACAD_GROUP")
(lumo_container_PopAll)
(check 'container-popall (lumo_container_Depth) 0)

;;; system variables
(setvar "OSMODE" 0)
(lumo_sysvar_push "OSMODE" 5)
(check 'sysvar-set (getvar "OSMODE") 5)
(lumo_sysvar_push "OSMODE" 7)
(lumo_sysvar_pop "osmode")
(check 'sysvar-pop-case-counts (getvar "OSMODE") 7)
(lumo_sysvar_pop "OSMODE")
(check 'sysvar-pop-newest (getvar "OSMODE") 5)
(lumo_sysvar_pop)
(check 'sysvar-pop-all (getvar "OSMODE") 0)
(lumo_sysvar_push "OSMODE" 3)
(lumo_sysvar_push "OSMODE" '(1 2))
(lumo_sysvar_pop "OSMODE")
(check 'sysvar-bad-value-pushes-nothing (getvar "OSMODE") 0)
(lumo_sysvar_pop)
(check 'sysvar-pop-nothing (getvar "OSMODE") 0)
(lumo_sysvar_push "TEXTSIZE" 4.0)
(setvar "TEXTSIZE" 9.0)
(lumo_sysvar_pop)
(check 'sysvar-real (getvar "TEXTSIZE") 2.5)

;; Esc ends the drawing session, and with it whatever the stacks held.
(lumo_objectstack_push (namedobjdict))
(lumo_container_push (namedobjdict))
(lumo-host:message 256 27)
(check 'esc-empties-objects (lumo_objectstack_depth) 0)
(check 'esc-empties-containers (lumo_container_depth) 0)

(check-done)
