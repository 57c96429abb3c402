; Shelf side 300 x 200, plywood 12 mm, zero at the lower left corner on top
G90 G94
T1 M6            ; drill 5 mm
S12000 M3
M7
G0 Z20
X37 Y50          ; four holes for pins
G0 Z2
G1 Z-8 F300
G0 Z2
G91 Y32
G90 G1 Z-8
G0 Z2
G91 Y32
G90 G1 Z-8
G0 Z2
G91 Y32
G90 G1 Z-8
G0 Z20

T2 M6            ; end mill 6 mm
S18000 M3
G0 X150 Y-10
Z2
; outline with rounded corners, half the thickness first
G1 Z-6 F600
G1 Y-3 F2400
X15
G2 X-3 Y15 J18
G1 Y185
G2 X15 Y203 I18
G1 X285
G2 X303 Y185 J-18
G1 Y15
G2 X285 Y-3 I-18
G1 X150
Z-12.2 F600
X15 F2400
G2 X-3 Y15 J18
G1 Y185
G2 X15 Y203 I18
G1 X285
G2 X303 Y185 J-18
G1 Y15
G2 X285 Y-3 I-18
G1 X150
G0 Z2
; hole for a cable, from the inside, against the clock
X230 Y100
G1 Z-12.2 F600
G3 X244.5 I7.25 F1800
G3 I-14.5
G1 X230
G0 Z20
M9
M5
M30
