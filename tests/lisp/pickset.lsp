;;; Selection-set algebra, the slots' sets, the history of saved sets and
;;; the mark, on a drawing built here.
(load "check.lsp")

;;; the mark in an empty drawing is cleared, so getss takes everything
(check 'getss-empty-drawing (lumo_getss) nil)
(check 'setmark-empty (lumo_setmark) T)

(defun line (layer x)
  (entmake (list '(0 . "LINE") (cons 8 layer) (list 10 x 0.0 0.0) (list 11 x 10.0 0.0)))
  (entlast))
(setq a (line "A" 0.0) b (line "A" 1.0) c (line "B" 2.0) d (line "B" 3.0))
(check 'getss-all (sslength (lumo_getss)) 4)

;;; algebra
(setq onA (ssget "X" '((8 . "A"))) onB (ssget "X" '((8 . "B"))) all (ssget "X"))
(check 'union-self (sslength (lumo_PickSet_Union onA onA)) 2)
(check 'union (sslength (lumo_PickSet_Union onA onB)) 4)
(setq none (lumo_PickSet_Subtract all all))
(check 'subtract-self-is-a-set (list (type none) (sslength none)) '(PICKSET 0))
(setq left (lumo_PickSet_Subtract all onA))
(check 'subtract (list (ssmemb c left) (ssmemb a left)) (list c nil))
(check 'intersect (ssname (lumo_PickSet_Intersect onB (ssadd d)) 0) d)
(check 'union-order (ssname (lumo_PickSet_Union onB onA) 0) c)
(check 'algebra-needs-sets (lumo_PickSet_Union onA "x") nil)
(check 'algebra-needs-two (lumo_PickSet_Intersect onA) nil)

;;; the mark: what came after it
(lumo_setmark)
(check 'getss-after-mark-nothing-new (lumo_getss) nil)
(setq e (line "C" 5.0) f (line "C" 6.0))
(setq new (lumo_getss))
(check 'getss-after-mark (list (sslength new) (ssname new 0) (ssname new 1)) (list 2 e f))
(check 'getss-slot (sslength (lumo_getss 3)) 2)
(check 'getss-bad-slot-is-the-reused-set (sslength (lumo_getss 11)) 2)
(check 'setmark-command (c:lumo_setmark) T)

;;; the history of saved sets, filled from the pickfirst set
(defun save-set (ss) (sssetfirst nil ss) (c:lumo_savsslink))
(check 'capacity-default (lumo_savssnum 0) 5)
(check 'capacity-too-big (lumo_savssnum 10) 5)
(check 'capacity-no-argument (lumo_savssnum) nil)
(setq sets (list (ssadd a) (ssadd b) (ssadd c) (ssadd d) (ssadd e) (ssadd f)))
(foreach s sets (save-set s))
(check 'newest-link (ssname (c:p1) 0) f)
(check 'oldest-kept (ssname (c:p5) 0) b)
(check 'beyond-capacity (type (c:p6)) 'SYM)
(save-set (ssadd f))            ; the same selection again is not saved
(check 'repeat-not-saved (list (ssname (c:p1) 0) (ssname (c:p2) 0)) (list f e))
(check 'cut-history (lumo_savssnum 3) 3)
(check 'cut-keeps-newest (ssname (c:p3) 0) d)
(check 'cut-drops-older (type (c:p4)) 'SYM)
(save-set (ssadd a))
(check 'capacity-holds (list (ssname (c:p1) 0) (type (c:p4))) (list a 'SYM))

;;; c:pp saves what came after the mark as the newest link
(lumo_setmark)
(setq g (line "D" 7.0))
(c:pp)
(check 'pp-saves-new-entities (list (sslength (c:p1)) (ssname (c:p1) 0)) (list 1 g))

;;; Ctrl-U at the command line saves the current selection as a link
(lumo_savssnum 5)
(sssetfirst nil (ssadd b))
(lumo-host:message 258 21)
(lumo-host:run-typed)
(check 'ctrl-u-saves-the-selection (ssname (c:p1) 0) b)

;;; sets made and dropped in a loop never run out
(setq i 0)
(repeat 500 (if (lumo_PickSet_Union onA onB) (setq i (1+ i))))
(check 'no-leak-of-algebra-sets i 500)
(repeat 300 (lumo_getss))
(check 'no-leak-of-getss (sslength (lumo_getss)) 1)

(check-done)
