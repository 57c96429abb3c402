##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# Lathe, ISO codes, decimal point, X and I in diameter.
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
# The class comes before the movement keys: it decides which of them count.
MFG_CLASS_NAME
NC_LATHE_MACHINE
##### String Section
COMMENT_START
(
COMMENT_END
)
RECORD_NUMBER
N
DECIMAL_POINT_REPRESENTATION
.
# The number of the program, which nothing follows from.
REV_PROGRAM_NAME
O
##### Block Section
# On a lathe the movements and coordinates are configured by their lathe keys alone.
RAPID_LATHE
G0
LINEAR_INTERPOLATION_LATHE
G1
# Clockwise and counter-clockwise as seen with the tool in front of the axis.
CIRCULAR_INTERPOLATION_RIGHT_LATHE
G2
CIRCULAR_INTERPOLATION_LEFT_LATHE
G3
FEEDRAT_MMPM_LATHE
G98
FEEDRAT_MMPR_LATHE
G99
SPINDLE_CLOCKWISE_LATHE
M3
SPINDLE_COUNTER_CLOCKWISE_LATHE
M4
SPINDLE_OFF_LATHE
M5
COOLANT_ON_LATHE
M8
COOLANT_OFF_LATHE
M9
REV_TLCHG_COM_LATHE
M6
PROGRAM_STOP_LATHE
M0
PROGRAM_END_LATHE
M30
# A sign, then what X and I are divided by: diameters become radii.
ZX_LATHE_X_ASSIGNMENT
+2
ZX_LATHE_Z_ASSIGNMENT
+1
##### Address Section
FEEDRATE_LATHE
F
1
M3.3
SPINDLE_SPEED_LATHE
S
1
M5.0
1ST_COORDINATE_LATHE
X
1
M5.3
3RD_COORDINATE_LATHE
Z
1
M5.3
# U and W count from the last position.
1ST_COORDINATE_INCR_LATHE
U
1
M5.3
3RD_COORDINATE_INCR_LATHE
W
1
M5.3
1ST_CIRCLE_CENTER_COORDINATE
I
1
M5.3
3RD_CIRCLE_CENTER_COORDINATE
K
1
M5.3
CIRCLE_CENTER_ABS
0
REV_TLCHG_TLADR_LATHE
T
