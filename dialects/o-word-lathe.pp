##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# o-word-lathe: lathes of the o-word family (RS274NGC), radii until G7 says diameters
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
# The class comes before the movement keys: it decides which of them count. A lathe begins in ZX.
MFG_CLASS_NAME
NC_LATHE_MACHINE
##### String Section
# How programs compute. This key also sets that letters count in any case, blanks mean nothing inside
# a number, a semicolon opens a comment to the end of the block beside the parentheses below, a line
# "%" frames the program, "/" marks blocks to skip, and the end of the program ends the reading.
REV_PROGRAM_LANGUAGE
O_WORD
COMMENT_START
(
COMMENT_END
)
RECORD_NUMBER
N
DECIMAL_POINT_REPRESENTATION
.
##### Block Section
# Within a block the machine acts in this order, whatever the order of the words: feed, speed, tool,
# spindle, coolant, dwell, plane, units, compensation, zero, distances, return mode, shifts and
# reference points, movement, then stops and ends.
REV_EXECUTION_ORDER
OFF_FIRST
RAPID_LATHE
G0
LINEAR_INTERPOLATION_LATHE
G1
# Clockwise, then counter-clockwise.
CIRCULAR_INTERPOLATION_RIGHT_LATHE
G2
CIRCULAR_INTERPOLATION_LEFT_LATHE
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
SPINDLE_OFF_LATHE
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
REV_STOP
M60
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
# Planes, the direction of arcs in them seen against X, Y or Z, and how their centres count.
REV_PLANE_XY
G17
REV_PLANE_ZX
G18
REV_PLANE_YZ
G19
REV_CENTRE_ABSOLUTE
G90.1
REV_CENTRE_RELATIVE
G91.1
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
# X is a diameter, or a radius as at the start; the centre word I is a length either way.
REV_DIAMETER_ON
G7
REV_DIAMETER_OFF
G8
REV_CENTRE_IS_RADIUS
1
# Zeros, the table that holds them, and the shift on top.
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
REV_ZERO_SYSTEM
G59.1
REV_ZERO_SYSTEM
G59.2
REV_ZERO_SYSTEM
G59.3
REV_TABLE
G10
REV_SHIFT_SET
G92
REV_SHIFT_LOCAL
G52
REV_SHIFT_CANCEL
G92.1
REV_SHIFT_SUSPEND
G92.2
REV_SHIFT_RESTORE
G92.3
# Positions of the machine. Where its zero lies only REV_MACHINE_ZERO can tell.
REV_MACHINE_COORDINATES
G53
REV_REFERENCE_POINT
G28
REV_REFERENCE_POINT_2
G30
# Cycles, their end, and where they go back to.
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
REV_CYCLE_OFF
G80
REV_CYCLE_TO_START
G98
REV_CYCLE_TO_CLEARANCE
G99
# The way out of G84, G74 and G89 is at feed all along, the ways before a cycle are straight, and a
# cycle wants all its words when it begins.
REV_CYCLE_FEED_TO_RETURN
1
REV_CYCLE_STRAIGHT
1
REV_CYCLE_STRICT
1
# The return mode in force before the first block.
REV_START
G99
# Without effect on the path: how corners are taken.
REV_NO_EFFECT
G61
REV_NO_EFFECT
G61.1
REV_NO_EFFECT
G64
# A tool length takes its H along: positions are those of the tool's tip.
REV_TOOL_LENGTH_ON
G43
REV_TOOL_LENGTH_OFF
G49
# Orientation, overrides, tool number, inputs, outputs.
REV_NO_EFFECT
M19
REV_NO_EFFECT
M48
REV_NO_EFFECT
M49
REV_NO_EFFECT
M50
REV_NO_EFFECT
M51
REV_NO_EFFECT
M52
REV_NO_EFFECT
M53
REV_NO_EFFECT
M61
REV_NO_EFFECT
M62
REV_NO_EFFECT
M63
REV_NO_EFFECT
M64
REV_NO_EFFECT
M65
REV_NO_EFFECT
M66
REV_NO_EFFECT
M67
REV_NO_EFFECT
M68
# Saved states that count no more.
REV_NO_EFFECT
M71
# Number of the tool length.
REV_NO_EFFECT_WORD
H
# What changes the path, or what F means, and is not followed: tilted planes, splines, positions
# to come back to,
REV_NOT_CONVERTED
G17.1
REV_NOT_CONVERTED
G18.1
REV_NOT_CONVERTED
G19.1
REV_NOT_CONVERTED
G5
REV_NOT_CONVERTED
G5.1
REV_NOT_CONVERTED
G5.2
REV_NOT_CONVERTED
G5.3
REV_NOT_CONVERTED
G28.1
REV_NOT_CONVERTED
G30.1
# tapping in one block, contacts, compensations by table, cycles that rough a contour,
REV_NOT_CONVERTED
G33.1
REV_NOT_CONVERTED
G38.2
REV_NOT_CONVERTED
G38.3
REV_NOT_CONVERTED
G38.4
REV_NOT_CONVERTED
G38.5
REV_NOT_CONVERTED
G41.1
REV_NOT_CONVERTED
G42.1
REV_NOT_CONVERTED
G43.1
REV_NOT_CONVERTED
G43.2
REV_NOT_CONVERTED
G70
REV_NOT_CONVERTED
G71
REV_NOT_CONVERTED
G71.1
REV_NOT_CONVERTED
G71.2
REV_NOT_CONVERTED
G72
REV_NOT_CONVERTED
G72.1
REV_NOT_CONVERTED
G72.2
# threads in passes that the control chooses, other cycles, inverse time, and states that come back.
REV_NOT_CONVERTED
G76
REV_NOT_CONVERTED
G87
REV_NOT_CONVERTED
G88
REV_NOT_CONVERTED
G93
REV_NOT_CONVERTED
M70
REV_NOT_CONVERTED
M72
REV_NOT_CONVERTED
M73
# Coordinates by radius and angle, and further axes.
REV_NOT_CONVERTED_WORD
@
REV_NOT_CONVERTED_WORD
^
REV_NOT_CONVERTED_WORD
A
REV_NOT_CONVERTED_WORD
B
REV_NOT_CONVERTED_WORD
C
REV_NOT_CONVERTED_WORD
U
REV_NOT_CONVERTED_WORD
V
REV_NOT_CONVERTED_WORD
W
##### Address Section
# The point decides; the places of the formats would only count without one.
FEEDRATE
F
1
M5.3
SPINDLE_SPEED
S
1
M5.0
1ST_COORDINATE_LATHE
X
1
M5.5
2ND_COORDINATE_LATHE
Y
1
M5.5
3RD_COORDINATE_LATHE
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
REV_TURNS_BEGUN
P
1
M5.5
# of dwells, threads and speeds,
REV_DWELL_SECONDS
P
1
M5.5
REV_THREAD_PITCH
K
1
M5.5
REV_SPINDLE_LIMIT_WORD
D
1
M5.5
# of compensation and tables,
REV_CUTCOM_REGISTER
D
1
M5.5
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
# of cycles.
REV_CYCLE_CLEARANCE
R
1
M5.5
REV_CYCLE_PECK
Q
1
M5.5
REV_CYCLE_PAUSE
P
1
M5.5
REV_CYCLE_REPEAT
L
1
M5.5
