##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# Mill with marked words: X=AC(5) is absolute and X=IC(5) incremental in any mode.
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
MFG_CLASS_NAME
MILLING_MACHINE
##### String Section
# Marked words need their parentheses, so comments begin with something else.
# Without an end text a comment lasts to the end of its block.
COMMENT_START
;
RECORD_NUMBER
N
DECIMAL_POINT_REPRESENTATION
.
##### Block Section
RAPID
G0
LINEAR_INTERPOLATION
G1
CIRCULAR_INTERPOLATION_RIGHT
G2
CIRCULAR_INTERPOLATION_LEFT
G3
ABSOLUTE_ON
G90
INCREMENTAL_ON
G91
FEEDRAT_MMPM
G94
FEEDRAT_MMPR
G95
SPINDLE_CLOCKWISE
M3
SPINDLE_COUNTER_CLOCKWISE
M4
SPINDLE_STOP
M5
COOLANT_ON
M8
COOLANT_OFF
M9
REV_TLCHG_COM
M6
PROGRAM_STOP
M0
# Each end of program is a command of its own.
PROGRAM_END
M17
PROGRAM_END
M30
##### Address Section
FEEDRATE
F
1
M5.3
SPINDLE_SPEED
S
1
M5.0
# These words count from the last position in any mode.
1ST_COORDINATE_INCR
U
1
M5.3
2ND_COORDINATE_INCR
V
1
M5.3
3RD_COORDINATE_INCR
W
1
M5.3
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
3RD_CIRCLE_CENTER_COORDINATE
K
1
M5.3
# Centres count from the start of the arc, unless the word says I=AC(...).
CIRCLE_CENTER_ABS
0
REV_TLCHG_TLADR
T
