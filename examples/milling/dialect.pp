##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# Mill, ISO codes, numbers with a decimal point, comments in parentheses.
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
MFG_CLASS_NAME
MILLING_MACHINE
# The tool axis, written once before the first movement.
MFG_INIT_SPINDLE
0.0;0.0;1.0
##### String Section
# Comments go before any word is read, wherever they stand in a block.
COMMENT_START
(
COMMENT_END
)
RECORD_NUMBER
N
# The point decides: X5. and X5.0 are 5, and X5 is 5 as well.
DECIMAL_POINT_REPRESENTATION
.
# The lines that frame the program, which the conversion passes over.
REV_NO_EFFECT
%
# The number of the program, which nothing follows from.
REV_PROGRAM_NAME
O
##### Block Section
# Leading zeros do not count: G00 stands for G0, G00 and G000.
RAPID
G00
LINEAR_INTERPOLATION
G01
# Clockwise, then counter-clockwise.
CIRCULAR_INTERPOLATION_RIGHT
G02
CIRCULAR_INTERPOLATION_LEFT
G03
ABSOLUTE_ON
G90
INCREMENTAL_ON
G91
FEEDRAT_MMPM
G94
FEEDRAT_MMPR
G95
SPINDLE_CLOCKWISE
M03
SPINDLE_COUNTER_CLOCKWISE
M04
SPINDLE_STOP
M05
COOLANT_ON
M08
COOLANT_OFF
M09
REV_TLCHG_COM
M06
# A stop writes the same statements as the end of the program.
PROGRAM_STOP
M00
PROGRAM_END
M30
##### Address Section
# Behind each address stand a line that is passed over and the number format.
FEEDRATE
F
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
3RD_CIRCLE_CENTER_COORDINATE
K
1
M5.3
# Centres count from the start of the arc. The key stands behind the centre words.
CIRCLE_CENTER_ABS
0
REV_TLCHG_TLADR
T
