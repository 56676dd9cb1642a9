;;; Selection sets on a drawing built for the test.
(load "check.lsp")

(defun line (layer x1 y1 x2 y2)
  (entmake (list '(0 . "LINE") (cons 8 layer) (list 10 x1 y1 0.0) (list 11 x2 y2 0.0))))
(line "WALL" 0.0 0.0 10.0 0.0)
(line "WALL-PART" 0.0 5.0 10.0 5.0)
(line "TEXT" 50.0 50.0 60.0 50.0)
(entmake '((0 . "CIRCLE") (8 . "DOOR") (10 20.0 0.0 0.0) (40 . 2.0) (62 . 1)))
;; a half circle below the chord from (30 0) to (34 0)
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (8 . "0")
           (90 . 2) (70 . 0) (10 30.0 0.0) (42 . 1.0) (10 34.0 0.0)))
(regapp "LUMO_TEST")
(entmake '((0 . "POINT") (8 . "0") (10 40.0 40.0 0.0) (-3 ("LUMO_TEST" (1000 . "tag")))))

(defun n (ss) (if ss (sslength ss) 0))

;;; filters
(check 'all (n (ssget "X")) 6)
(check 'type-and-wild-layer (n (ssget "X" '((0 . "LINE") (8 . "WALL*")))) 2)
(check 'case-insensitive (n (ssget "X" '((0 . "line") (8 . "wall")))) 1)
(check 'or-group (n (ssget "X" '((-4 . "<OR") (0 . "CIRCLE") (8 . "TEXT") (-4 . "OR>")))) 2)
(check 'not-group (n (ssget "X" '((-4 . "<NOT") (0 . "LINE") (-4 . "NOT>")))) 3)
(check 'bylayer-default (n (ssget "X" '((62 . 256)))) 5)
(check 'relational (n (ssget "X" '((0 . "CIRCLE") (-4 . ">") (40 . 1.5)))) 1)
(check 'point-relational (n (ssget "X" '((0 . "LINE") (-4 . ">,*,*") (10 20.0 0.0 0.0)))) 1)
(check 'xdata-app (n (ssget "X" '((-3 ("LUMO_TEST"))))) 1)
(check 'nothing-is-nil (ssget "X" '((0 . "ARC"))) nil)
(check-error 'unclosed-group '(ssget "X" '((-4 . "<OR") (0 . "LINE"))) "bad SSGET list")

;;; geometry
(check 'window-inside-only (n (ssget "W" '(-1.0 -1.0) '(11.0 1.0))) 1)
(check 'crossing-touches (n (ssget "C" '(5.0 -1.0) '(6.0 6.0))) 2)
(check 'crossing-inside-circle-misses (ssget "C" '(19.5 -0.5) '(20.5 0.5)) nil)
(check 'crossing-arc (n (ssget "C" '(17.0 -0.5) '(18.5 0.5))) 1)
(check 'fence-bulge-below (n (ssget "F" '((32.0 -3.0) (32.0 -1.0)))) 1)
(check 'fence-above-misses (ssget "F" '((32.0 1.0) (32.0 3.0))) nil)
(check 'window-polygon (n (ssget "WP" '((-1.0 -1.0) (11.0 -1.0) (11.0 6.0) (-1.0 6.0)))) 2)
(check 'crossing-polygon (n (ssget "CP" '((5.0 -1.0) (6.0 -1.0) (6.0 1.0)))) 1)
(check 'last (cdr (assoc 0 (entget (ssname (ssget "L") 0)))) "POINT")
(ssget "X" '((0 . "CIRCLE")))
(check 'previous (cdr (assoc 0 (entget (ssname (ssget "P") 0)))) "CIRCLE")

;;; the set functions
(setq walls (ssget "X" '((8 . "WALL*"))))
(setq first (ssname walls 0))
(check 'ssname-order (cdr (assoc 8 (entget first))) "WALL")
(check 'ssname-past-end (ssname walls 2) nil)
(check 'ssmemb (ssmemb first walls) first)
(check 'ssdel (sslength (ssdel first walls)) 1)
(check 'ssdel-again (ssdel first walls) nil)
(check 'ssadd-back (sslength (ssadd first walls)) 2)
(check 'ssadd-twice-once (sslength (ssadd first walls)) 2)
(check 'ssadd-new (sslength (ssadd first)) 1)
(check 'ssadd-empty (sslength (ssadd)) 0)
(check 'type (type walls) 'PICKSET)
(check-error 'bad-set '(sslength "a") "bad argument type: lselsetp \"a\"")

;;; a block reference is selected by its block's entities where it stands
(entmake '((0 . "BLOCK") (2 . "SWING") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 0.0 9.0 0.0)))
(entmake '((0 . "ARC") (10 0.0 0.0 0.0) (40 . 9.0) (50 . 0.0) (51 . 1.5708)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "INSERT") (2 . "SWING") (10 100.0 0.0 0.0) (50 . 1.5708)))
(setq swing (entlast))
(check 'insert-by-its-line (ssname (ssget "C" '(95.0 -1.0) '(96.0 1.0)) 0) swing)
(check 'insert-not-by-its-empty-corner (ssget "C" '(92.0 7.0) '(92.5 7.5)) nil)

;;; sets that are dropped go away: thousands in a loop never run out
(setq i 0)
(repeat 2000 (if (ssget "X") (setq i (1+ i))))
(check 'no-leak-of-sets i 2000)

(check-done)
