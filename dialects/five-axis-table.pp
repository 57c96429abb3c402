##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# five-axis-table: mills of the hash family with a tilting and a turning table, A carrying C; G43.4
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
MFG_CLASS_NAME
NC_TWO_AXIS_ON_TABLE_MACHINES
# The tool at zero of the rotary axes; from the first movement on, every point has its axis.
MFG_INIT_SPINDLE
0;0;1
# The table A carries the table C, and the part stands on that. Centres count from the zero of the
# program with all axes at zero: they are to be set as the part is clamped.
MFG_ROTARY_AXIS
A
MFG_X_ROT_CENTER
0
MFG_Y_ROT_CENTER
0
MFG_Z_ROT_CENTER
-50
# 1: a positive angle turns the tool relative to the part right-handed, 2: the other way.
MFG_ROT_POS_WAY
1
MFG_MIN_ROT_POS
-120
MFG_MAX_ROT_POS
30
MFG_ROTARY_AXIS_2
C
MFG_X_ROT_CNTR_2
0
MFG_Y_ROT_CNTR_2
0
MFG_Z_ROT_CNTR_2
0
MFG_ROT_POS_WAY_2
1
##### String Section
# How programs compute. This key also sets that blanks mean nothing, a line "%" frames the program,
# "O" names it, "/" marks blocks to skip, and the end of the program ends the reading.
REV_PROGRAM_LANGUAGE
HASH
COMMENT_START
(
COMMENT_END
)
RECORD_NUMBER
N
DECIMAL_POINT_REPRESENTATION
.
##### Block Section
# Within a block the machine acts in this order, whatever the order of the words: plane, units, feed,
# speed, tool, spindle, coolant, dwell, compensation, zero, distances, return mode, shifts and
# reference points, movement, then spindle and coolant off, then stops and ends.
REV_EXECUTION_ORDER
OFF_LAST
RAPID
G0
LINEAR_INTERPOLATION
G1
# Clockwise, then counter-clockwise.
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
REV_COOLANT_MIST
M7
REV_TLCHG_COM
M6
# Planned and optional stops.
REV_STOP
M0
REV_OPTIONAL_STOP
M1
PROGRAM_END
M2
PROGRAM_END
M30
# Cutting speed, then speed in turns.
REV_CUTTING_SPEED
G96
REV_SPINDLE_SPEED_MODE
G97
# In a block with S this is the highest speed.
REV_SPINDLE_LIMIT
G92
# Planes; the direction of arcs in them is seen against Z, Y or X.
REV_PLANE_XY
G17
REV_PLANE_ZX
G18
REV_PLANE_YZ
G19
# Inches and millimetres.
REV_INCH
G20
REV_METRIC
G21
# Dwell, threads, radius compensation.
REV_DWELL
G4
REV_THREAD
G33
REV_CUTCOM_LEFT
G41
REV_CUTCOM_RIGHT
G42
REV_CUTCOM_OFF
G40
# Zeros, the table that holds them, and the shifts on top.
REV_ZERO_SYSTEM
G54
REV_ZERO_SYSTEM
G55
REV_ZERO_SYSTEM
G56
REV_ZERO_SYSTEM
G57
REV_ZERO_SYSTEM
G58
REV_ZERO_SYSTEM
G59
REV_TABLE
G10
REV_SHIFT_SET
G92
REV_SHIFT_LOCAL
G52
REV_SHIFT_CANCEL
G92.1
# Positions of the machine. Where its zero lies only REV_MACHINE_ZERO can tell.
REV_MACHINE_COORDINATES
G53
REV_REFERENCE_POINT
G28
REV_REFERENCE_POINT_2
G30
# Rotation, scaling and mirroring about a centre, and their ends; the factor counts thousandths.
REV_FRAME_ROTATE
G68
REV_FRAME_ROTATE_CANCEL
G69
REV_FRAME_SCALE
G51
REV_FRAME_SCALE_CANCEL
G50
REV_FRAME_FACTOR_THOUSANDTHS
1
REV_MIRROR_AT
G51.1
REV_MIRROR_CANCEL
G50.1
# Radius and angle.
REV_POLAR_ON
G16
REV_POLAR_OFF
G15
# Cycles, their end, and where they go back to: to the start unless a block says otherwise.
REV_CYCLE_DRILL
G81
REV_CYCLE_DRILL_DWELL
G82
REV_CYCLE_DEEP
G83
REV_CYCLE_BREAK_CHIP
G73
REV_CYCLE_TAP
G84
REV_CYCLE_TAP_LEFT
G74
REV_CYCLE_FEED_OUT
G85
REV_CYCLE_STOP_OUT
G86
REV_CYCLE_DWELL_OUT
G89
REV_CYCLE_FINE_BORE
G76
REV_CYCLE_OFF
G80
REV_CYCLE_TO_START
G98
REV_CYCLE_TO_CLEARANCE
G99
# Without effect on the path: how corners are taken,
REV_NO_EFFECT
G9
REV_NO_EFFECT
G61
REV_NO_EFFECT
G62
REV_NO_EFFECT
G63
REV_NO_EFFECT
G64
# the end of tables,
REV_NO_EFFECT
G11
# tool lengths with their H (positions are those of the tool's tip), limits off, contour control, speeds
# that waver, the ends of modes, orientation, rigid tapping, overrides.
# RTCP: positions are those of the tip on the part; with G43.5 blocks may have tool vectors. G49 ends
# it, and the lengths below.
REV_RTCP_ON
G43.4
REV_TOOL_VECTOR_ON
G43.5
REV_RTCP_OFF
G49
# F counts how often in a minute the block could be run.
REV_FEED_INVERSE_TIME
G93
# How far the axis may be off between two points, degrees; LINEAR_TOLERANCE tells it of the tip.
REV_AXIS_TOLERANCE
1
REV_TOOL_LENGTH_ON
G43
REV_TOOL_LENGTH_ON
G44
REV_NO_EFFECT
G23
REV_NO_EFFECT
G5.1
REV_NO_EFFECT
G8
REV_NO_EFFECT
G13.1
REV_NO_EFFECT
G113
REV_NO_EFFECT
G25
REV_NO_EFFECT
G26
REV_NO_EFFECT
G67
REV_NO_EFFECT
M19
REV_NO_EFFECT
M29
REV_NO_EFFECT
M48
REV_NO_EFFECT
M49
# Numbers of offsets.
REV_NO_EFFECT_WORD
D
REV_NO_EFFECT_WORD
H
# The corners of limits are no positions.
REV_OWN_WORDS
G22
# What changes the path, or what F means, and is not followed: other arcs and splines, cylinders and
# polar interpolation, further zeros, tilted planes,
REV_NOT_CONVERTED
G2.1
REV_NOT_CONVERTED
G2.2
REV_NOT_CONVERTED
G2.3
REV_NOT_CONVERTED
G2.4
REV_NOT_CONVERTED
G3.1
REV_NOT_CONVERTED
G3.2
REV_NOT_CONVERTED
G3.3
REV_NOT_CONVERTED
G3.4
REV_NOT_CONVERTED
G5
REV_NOT_CONVERTED
G6.2
REV_NOT_CONVERTED
G7.1
REV_NOT_CONVERTED
G107
REV_NOT_CONVERTED
G12
REV_NOT_CONVERTED
G13
REV_NOT_CONVERTED
G12.1
REV_NOT_CONVERTED
G112
REV_NOT_CONVERTED
G54.1
REV_NOT_CONVERTED
G54.2
REV_NOT_CONVERTED
G54.4
REV_NOT_CONVERTED
G53.1
REV_NOT_CONVERTED
G68.2
REV_NOT_CONVERTED
G68.3
REV_NOT_CONVERTED
G68.4
# the check of reference points and the way back from them, contacts, other compensations, positions
# that are reached from one side,
REV_NOT_CONVERTED
G27
REV_NOT_CONVERTED
G29
REV_NOT_CONVERTED
G31
REV_NOT_CONVERTED
G32
REV_NOT_CONVERTED
G34
REV_NOT_CONVERTED
G36
REV_NOT_CONVERTED
G37
REV_NOT_CONVERTED
G39
REV_NOT_CONVERTED
G41.1
REV_NOT_CONVERTED
G42.1
REV_NOT_CONVERTED
G41.2
REV_NOT_CONVERTED
G42.2
REV_NOT_CONVERTED
G43.1
REV_NOT_CONVERTED
G43.3
REV_NOT_CONVERTED
G45
REV_NOT_CONVERTED
G46
REV_NOT_CONVERTED
G47
REV_NOT_CONVERTED
G48
REV_NOT_CONVERTED
G60
# other taps, patterns and pockets, grinding, boring from behind and by hand.
REV_NOT_CONVERTED
G70
REV_NOT_CONVERTED
G71
REV_NOT_CONVERTED
G72
REV_NOT_CONVERTED
G72.1
REV_NOT_CONVERTED
G72.2
REV_NOT_CONVERTED
G75
REV_NOT_CONVERTED
G77
REV_NOT_CONVERTED
G78
REV_NOT_CONVERTED
G79
REV_NOT_CONVERTED
G81.1
REV_NOT_CONVERTED
G84.2
REV_NOT_CONVERTED
G84.3
REV_NOT_CONVERTED
G87
REV_NOT_CONVERTED
G88
# Chamfers and corners, and further axes.
REV_NOT_CONVERTED_WORD
,A
REV_NOT_CONVERTED_WORD
,R
REV_NOT_CONVERTED_WORD
,C
REV_NOT_CONVERTED_WORD
B
REV_NOT_CONVERTED_WORD
U
REV_NOT_CONVERTED_WORD
V
REV_NOT_CONVERTED_WORD
W
##### Address Section
# Rotary axes, in the order of the machine's.
REV_ROTARY_1ST
A
1
M5.5
REV_ROTARY_2ND
C
1
M5.5
REV_TOOL_VECTOR_1ST
I
1
M5.5
REV_TOOL_VECTOR_2ND
J
1
M5.5
REV_TOOL_VECTOR_3RD
K
1
M5.5
# The point decides; the places of the formats would only count without one.
FEEDRATE
F
1
M5.3
SPINDLE_SPEED
S
1
M5.0
1ST_COORDINATE
X
1
M5.5
2ND_COORDINATE
Y
1
M5.5
3RD_COORDINATE
Z
1
M5.5
1ST_CIRCLE_CENTER_COORDINATE
I
1
M5.5
2ND_CIRCLE_CENTER_COORDINATE
J
1
M5.5
3RD_CIRCLE_CENTER_COORDINATE
K
1
M5.5
# Centres count from the start of the arc. The key stands behind the centre words.
CIRCLE_CENTER_ABS
0
REV_TLCHG_TLADR
T
# Words of arcs,
REV_CIRCLE_RADIUS
R
1
M5.5
# of dwells, threads and compensation,
REV_DWELL_SECONDS
X
1
M5.5
REV_DWELL_SECONDS
U
1
M5.5
REV_DWELL_MILLISECONDS
P
1
M5.5
REV_THREAD_PITCH
F
1
M5.5
REV_CUTCOM_REGISTER
D
1
M5.5
# of tables, rotation and scaling,
REV_TABLE_KIND
L
1
M5.5
REV_TABLE_NUMBER
P
1
M5.5
REV_TABLE_ANGLE
R
1
M5.5
REV_FRAME_ANGLE
R
1
M5.5
REV_FRAME_FACTOR
P
1
M5.5
# of cycles.
REV_CYCLE_CLEARANCE
R
1
M5.5
REV_CYCLE_PECK
Q
1
M5.5
REV_CYCLE_PAUSE_MILLISECONDS
P
1
M5.5
REV_CYCLE_REPEAT
K
1
M5.5
REV_CYCLE_REPEAT
L
1
M5.5
