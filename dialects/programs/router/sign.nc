; Sign 120 x 60, plywood 6 mm, zero in its lower left corner
g21 g90 g94 g17 g91.1 g40
g10 l2 p1 x0 y0 z0
g54
t1 m6 (end mill 3 mm)
s18000 m3 m8
G0 Z5
X0 Y-5
(the outline, rounded at its corners)
G1 Z-3 F300
Y0 F1200
N10 g1 x 11 0
g3 x120 y10 j10
g1 y 50
G3 X110 Y60 R10
G1X10
G3X0Y50R10
G1Y10
G3 X10 Y0 I10
G1 X20
G0 Z5
; a round pocket, down a helix
x60 y30
G0 X68 Z1
G3 Z-2 I-8 F600
G3 I-8
G0 Z5
; dots, each from the last
G0 X20 Y15
g91
g1 z-6 f200
g0 z6
x10
g1 z-6
g0 z6
g90
G4 P0.5
; a text field by its own zero
G10 L2 P2 X40 Y5
G55 G0 X0 Y0
G1 Z-0.5 F400
G2 X20 Y0 R10
G1 X0
G54 G0 Z20
M9
M5
M30
