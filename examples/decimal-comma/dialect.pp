##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# Mill with a decimal comma, words for the dimensions, and absolute centres.
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
MFG_CLASS_NAME
MILLING_MACHINE
MFG_INIT_SPINDLE
0;0;1
##### String Section
# Without an end text a comment lasts to the end of its block.
COMMENT_START
;
COMMENT_END

RECORD_NUMBER
:
# One character, the comma.
DECIMAL_POINT_REPRESENTATION
,
##### Block Section
RAPID
G0
LINEAR_INTERPOLATION
G1
CIRCULAR_INTERPOLATION_RIGHT
G2
CIRCULAR_INTERPOLATION_LEFT
G3
# A command without a number is its letters alone.
ABSOLUTE_ON
ABS
INCREMENTAL_ON
REL
SPINDLE_CLOCKWISE
M13
SPINDLE_COUNTER_CLOCKWISE
M14
SPINDLE_STOP
M15
COOLANT_ON
M8
COOLANT_OFF
M9
REV_TLCHG_COM
M67
PROGRAM_STOP
M0
PROGRAM_END
M30
##### Address Section
# An address may have several letters.
FEEDRATE
FA
1
M5.1
SPINDLE_SPEED
S
1
M5.0
1ST_COORDINATE
X
1
M5.3
2ND_COORDINATE
Y
1
M5.3
3RD_COORDINATE
Z
1
M5.3
1ST_CIRCLE_CENTER_COORDINATE
I
1
M5.3
2ND_CIRCLE_CENTER_COORDINATE
J
1
M5.3
# Centres are positions of the workpiece.
CIRCLE_CENTER_ABS
1
REV_TLCHG_TLADR
TOOL
