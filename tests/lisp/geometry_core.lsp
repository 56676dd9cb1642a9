;;; The host's point functions: polar, angle, distance, inters, trans.
(load "check.lsp")

;;; polar keeps the point's dimension
(check 'polar-3d (polar '(1 1 3.5) 0.785398163397448 1.4142135623731) '(2.0 2.0 3.5))
(check 'polar-2d (polar '(1 1) pi 2) '(-1.0 1.0))
(check 'polar-negative (polar '(0 0) (/ pi 2) -3) '(0.0 -3.0))

;;; angle in the XY plane, from 0 to 2 pi
(check 'angle-up (angle '(1.0 1.0) '(1.0 4.0)) (/ pi 2))
(check 'angle-left (angle '(5.0 1.33) '(2.4 1.33)) pi)
(check 'angle-down (angle '(0 0) '(0 -1)) (* 1.5 pi))
(check 'angle-ignores-z (angle '(0 0 0) '(1 1 9)) (/ pi 4))
(check 'angle-same-point (angle '(2 2) '(2 2)) 0.0)

;;; distance: 3D, or 2D when either point is 2D
(check 'distance (distance '(1.0 2.5 3.0) '(7.7 2.5 3.0)) 6.7)
(check 'distance-3d (distance '(0 0 0) '(2 3 6)) 7.0)
(check 'distance-2d (distance '(0 0) '(3 4 12)) 5.0)
(check-error 'distance-not-point '(distance '(0 0) 5) "bad argument type: 2D/3D point: 5")

;;; inters: segments unless onseg is given as nil
(setq a '(1.0 1.0) b '(9.0 9.0) c '(4.0 1.0) d '(4.0 2.0))
(check 'inters-segments (inters a b c d) nil)
(check 'inters-segments-t (inters a b c d T) nil)
(check 'inters-lines (inters a b c d nil) '(4.0 4.0))
(check 'inters-cross (inters '(0 0) '(2 2) '(0 2) '(2 0)) '(1.0 1.0))
(check 'inters-touching-ends (inters '(0 0) '(2 0) '(2 0) '(2 5)) '(2.0 0.0))
(check 'inters-parallel (inters '(0 0) '(1 0) '(0 1) '(1 1) nil) nil)
(check 'inters-collinear (inters '(0 0) '(2 0) '(1 0) '(3 0)) nil)
(check 'inters-3d (inters '(0 0 0) '(2 2 2) '(0 2 2) '(2 0 0)) '(1.0 1.0 1.0))
(check 'inters-skew (inters '(0 0 0) '(2 0 0) '(1 -1 1) '(1 1 1) nil) nil)
(check 'inters-mixed-is-2d (inters '(0 0 5) '(2 2 5) '(0 2) '(2 0)) '(1.0 1.0))

;;; trans between coordinate systems
(check 'trans-world (trans '(1 2 3) 0 0) '(1.0 2.0 3.0))
(check 'trans-2d-point (trans '(1 2) 1 0) '(1.0 2.0 0.0))
(check 'trans-vector-normal (trans '(1 0 0) '(0 0 1) 0) '(1.0 0.0 0.0))
(check 'trans-flipped-normal (trans '(1 0 0) '(0 0 -1) 0) '(-1.0 0.0 0.0))
(check 'trans-bad-code (trans '(1 2 3) 9 0) nil)

(check-done)
