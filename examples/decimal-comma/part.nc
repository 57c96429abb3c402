; Housing cover, groove in the sealing face
:1 ABS
:2 TOOL4 M67 ; ball cutter 6 mm
:3 S3200 M13
:4 G0 X0 Y-37,5 Z25
:5 Z1,5 M8
:6 G1 Z-1,25 FA150
:7 X30 FA420,5 ; straight side
:8 G3 X67,5 Y0 I30 J0
:9 G1 Y20
:10 G3 X30 Y57,5 I30 J20
:11 G1 X-30
:12 G3 X-67,5 Y20 I-30 J20
:13 G1 Y0
:14 G3 X-30 Y-37,5 I-30 J0
:15 G1 X0
:16 G0 Z1,5
; two relief cuts, the other way round
:17 X12,125 Y10
:18 G1 Z-,75 FA150
:19 G2 X12,125 Y10 I0 J10 FA300
:20 REL G0 Z5
:21 X2,375
:22 G1 Z-5
:23 G2 I0 J10
:24 ABS G0 Z25 M9
:25 M15
:26 M30
