;;; main.lsp -- the example job: a report on a floor plan.
;;; Run:  build/lumo -d examples/floorplan.dxf -o out/floorplan_out.dxf examples/main.lsp

(defun count-by-layer (/ e layer counts pair)
  ;; Walks the drawing's entities and counts them per layer.
  (setq e (entnext))
  (while e
    (setq layer (cdr (assoc 8 (entget e)))
          pair  (assoc layer counts))
    (if pair
      (setq counts (subst (cons layer (1+ (cdr pair))) pair counts))
      (setq counts (cons (cons layer 1) counts)))
    (setq e (entnext e)))
  (vl-sort counts '(lambda (a b) (< (car a) (car b)))))

(defun wall-lengths (/ e data lengths)
  ;; Lengths of the walls drawn as lines, shortest first, near-equal ones once.
  (setq e (entnext))
  (while e
    (setq data (entget e))
    (if (and (= (cdr (assoc 0 data)) "LINE")
             (wcmatch (cdr (assoc 8 data)) "WALL*"))
      (setq lengths (cons (distance (cdr (assoc 10 data)) (cdr (assoc 11 data))) lengths)))
    (setq e (entnext e)))
  (apply 'lumo_realsort1 lengths))

(princ "\nEntities per layer:")
(foreach pair (count-by-layer)
  (princ (lumo_string_format "\n  " (car pair) ": " (cdr pair))))

(princ "\nWall lengths (m): ")
(princ (lumo_string_join (mapcar '(lambda (x) (/ x 1000.0)) (wall-lengths)) ", "))

;; Tag each room label with its area in extended data, so that the saved
;; drawing carries it.
(regapp "LUMO_EXAMPLE")
(setq e (entnext))
(while e
  (setq data (entget e))
  (if (= (cdr (assoc 0 data)) "TEXT")
    (progn
      (setq words (lumo_string_split (cdr (assoc 1 data)) " "))
      (entmod (append data
                      (list (list -3 (list "LUMO_EXAMPLE"
                                           (cons 1000 (car words))
                                           (cons 1040 (atof (cadr words))))))))
      (princ (lumo_string_format "\nRoom " (car words) " tagged."))))
  (setq e (entnext e)))
(princ "\n")
(princ)
