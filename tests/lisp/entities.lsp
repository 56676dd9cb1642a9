;;; Entities, tables and dictionaries as a writer of LISP programs uses them.
(load "check.lsp")

(defun dxf (code ent) (cdr (assoc code (entget ent))))

;;; entmake and entget
(check 'empty-drawing (entnext) nil)
(check 'entmake-line
       (entmake '((0 . "LINE") (8 . "WALL") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0)))
       '((0 . "LINE") (8 . "WALL") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0)))
(setq line (entlast))
(check 'entlast-type (type line) 'ENAME)
(check 'entget-type (dxf 0 line) "LINE")
(check 'entget-layer (dxf 8 line) "WALL")
(check 'entget-start (dxf 10 line) '(1.0 2.0 0.0))
(check 'entget-first (car (car (entget line))) -1)
(check 'entget-self (dxf -1 line) line)
(check 'entget-normal (dxf 210 line) '(0.0 0.0 1.0))
(check 'entget-space (dxf 410 line) "Model")
(check 'layer-made (cdr (assoc 2 (tblsearch "LAYER" "WALL"))) "WALL")
(check 'thickness-real
       (progn (entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 2.5) (39 . 1.5))) (dxf 39 (entlast)))
       1.5)
(check 'circle-radius (dxf 40 (entlast)) 2.5)
(check 'arc-radians
       (progn (entmake '((0 . "ARC") (10 0.0 0.0 0.0) (40 . 1.0) (50 . 0.0) (51 . 1.5))) (dxf 51 (entlast)))
       1.5)
(check 'no-radius (entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0))) nil)
(check 'unknown-type (entmake '((0 . "BANANA") (10 0.0 0.0 0.0))) nil)
(check 'not-a-list-of-groups (entmake nil) nil)
(check-error 'bad-group '(entmake '((0 . "LINE") (10 . "a"))) "bad DXF group: (10 . \"a\")")
(check-error 'entget-needs-a-name '(entget "x") "bad argument type: lentityp \"x\"")
(check-error 'entget-arguments '(entget) "too few arguments")

;;; lightweight polylines keep 2D vertices
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 1)
           (10 0.0 0.0) (42 . 0.5) (10 10.0 0.0)))
(setq lw (entget (entlast)))
(check 'lw-vertex (cdr (assoc 10 lw)) '(0.0 0.0))
(check 'lw-bulge (cdr (assoc 42 lw)) 0.5)
(check 'lw-count (cdr (assoc 90 lw)) 2)

;;; entmod
(setq ed (entget line))
(check 'entmod (entmod (subst '(8 . "OTHER") (assoc 8 ed) ed)) (subst '(8 . "OTHER") (assoc 8 ed) ed))
(check 'entmod-layer (dxf 8 line) "OTHER")
(check 'entmod-partial (progn (entmod (list (cons -1 line) '(11 9.0 9.0 0.0))) (dxf 11 line)) '(9.0 9.0 0.0))
(check 'entmod-kept (dxf 10 line) '(1.0 2.0 0.0))
(check 'entmod-bad-linetype (entmod (list (cons -1 line) '(6 . "NOSUCH"))) nil)
(check 'entmod-unchanged (dxf 6 line) nil)
(check 'entupd (entupd line) line)

;;; extended data
(check 'regapp (regapp "LUMO_TEST") "LUMO_TEST")
(check 'regapp-twice (regapp "LUMO_TEST") nil)
(entmod (append (entget line) '((-3 ("LUMO_TEST" (1000 . "tag") (1040 . 2.5) (1070 . 3))))))
(check 'xdata (cdr (assoc -3 (entget line '("LUMO_TEST"))))
       '(("LUMO_TEST" (1000 . "tag") (1040 . 2.5) (1070 . 3))))
(check 'xdata-hidden (assoc -3 (entget line)) nil)
(check 'xdata-star (car (car (cdr (assoc -3 (entget line '("*")))))) "LUMO_TEST")
(entmod (list (cons -1 line) '(-3 ("LUMO_TEST"))))
(check 'xdata-removed (assoc -3 (entget line '("LUMO_TEST"))) nil)
(check 'xdata-unregistered (entmod (list (cons -1 line) '(-3 ("NOPE" (1000 . "x"))))) nil)
; the name with its length, then a code byte and the value (strings with their length)
(check 'xdsize (xdsize '(("LUMO_TEST" (1000 . "ab")))) 16)
(check 'xdsize-grows (- (xdsize '(("LUMO_TEST" (1000 . "ab") (1040 . 1.0) (1000 . "abcd"))))
                        (xdsize '(("LUMO_TEST" (1000 . "ab"))))) 16)
(check 'xdsize-bad (xdsize '(("LUMO_TEST" (1 . "ab")))) nil)
(check 'xdroom (xdroom line) 16383)

;;; complex entities
(entmake '((0 . "POLYLINE") (66 . 1) (70 . 1)))
(entmake '((0 . "VERTEX") (10 0.0 0.0 0.0)))
(entmake '((0 . "VERTEX") (10 5.0 5.0 0.0) (42 . 1.0)))
(entmake '((0 . "SEQEND")))
(setq pl (entlast))
(check 'polyline (dxf 0 pl) "POLYLINE")
(setq v (entnext pl))
(check 'vertex-1 (dxf 0 v) "VERTEX")
(check 'vertex-2 (dxf 42 (entnext v)) 1.0)
(check 'seqend (dxf 0 (entnext (entnext v))) "SEQEND")
(check 'past-seqend (entnext (entnext (entnext v))) nil)

;;; blocks and inserts
(check 'block-begin (entmake '((0 . "BLOCK") (2 . "MARK") (10 0.0 0.0 0.0) (70 . 0)))
       '((0 . "BLOCK") (2 . "MARK") (10 0.0 0.0 0.0) (70 . 0)))
(entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 1.0)))
(check 'block-end (entmake '((0 . "ENDBLK"))) "MARK")
(setq blk (tblsearch "BLOCK" "MARK"))
(check 'block-entry (list (cdr (assoc 0 blk)) (cdr (assoc 2 blk))) '("BLOCK" "MARK"))
(check 'block-first (dxf 0 (cdr (assoc -2 blk))) "CIRCLE")
(check 'insert (dxf 2 (entmakex '((0 . "INSERT") (2 . "MARK") (10 5.0 5.0 0.0)))) "MARK")
(check 'insert-missing-block (entmake '((0 . "INSERT") (2 . "NOPE") (10 0.0 0.0 0.0))) nil)

;;; entdel toggles
(setq last (entlast))
(check 'entdel (entdel last) last)
(check 'entdel-gone (entget last) nil)
(check 'entdel-back (progn (entdel last) (dxf 0 last)) "INSERT")

;;; handles
(check 'handent (handent (dxf 5 line)) line)
(check 'handent-unknown (handent "FFFFFFF") nil)

;;; tables
(check 'tblsearch-layer (tblsearch "LAYER" "0") '((0 . "LAYER") (2 . "0") (70 . 0) (62 . 7) (6 . "Continuous")))
(check 'tblsearch-missing (tblsearch "LAYER" "NOPE") nil)
(check 'tblnext-first (cdr (assoc 2 (tblnext "LAYER" T))) "0")
(check 'tblnext-second (cdr (assoc 2 (tblnext "LAYER"))) "WALL")
(check 'tblsearch-setnext (progn (tblsearch "LAYER" "0" T) (cdr (assoc 2 (tblnext "LAYER")))) "WALL")
(check 'tblnext-blocks (cdr (assoc 2 (tblnext "BLOCK" T))) "MARK")
(check 'tblobjname (dxf 2 (tblobjname "LAYER" "WALL")) "WALL")
(check 'style (cdr (assoc 3 (tblsearch "STYLE" "STANDARD"))) "txt")
(check 'snvalid (snvalid "A-B_C $1") T)
(check 'snvalid-bad (snvalid "A<B") nil)
(check 'snvalid-pipe (snvalid "X|Y") nil)
(check 'snvalid-pipe-allowed (snvalid "X|Y" 1) T)
(check 'snvalid-empty (snvalid "") nil)

;;; dictionaries
(setq nod (namedobjdict))
(check 'nod-type (dxf 0 nod) "DICTIONARY")
(check 'acad-group (dxf 0 (cdr (assoc -1 (dictsearch nod "ACAD_GROUP")))) "DICTIONARY")
(setq xr (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (1 . "hello") (40 . 2.5))))
(check 'dictadd (dictadd nod "LUMO_DATA" xr) xr)
(check 'dictsearch (cdr (assoc 1 (dictsearch nod "LUMO_DATA"))) "hello")
(check 'dictnext (cdr (assoc 0 (dictnext nod T))) "DICTIONARY")
(check 'dictrename (dictrename nod "LUMO_DATA" "LUMO_DATA2") "LUMO_DATA2")
(check 'dictremove (dictremove nod "LUMO_DATA2") xr)
(check 'dictsearch-gone (dictsearch nod "LUMO_DATA2") nil)

;;; system variables the drawing keeps
(check 'clayer (getvar "CLAYER") "0")
(check 'setvar-clayer (progn (setvar "CLAYER" "WALL") (getvar "CLAYER")) "WALL")
(check 'new-on-clayer (progn (entmake '((0 . "POINT") (10 0.0 0.0 0.0))) (dxf 8 (entlast))) "WALL")

(check-done)
