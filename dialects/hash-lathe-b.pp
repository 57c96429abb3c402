##### Header
#FILE:       UNCODED
#VERSION:    V1R5
# hash-lathe-b: lathes of the hash family in code system B: X in diameters, G90 and G91
# Lines that begin with a number sign and a blank are comments.
##### Toolmachine Section
# The class comes before the movement keys: it decides which of them count. A lathe begins in ZX.
MFG_CLASS_NAME
NC_LATHE_MACHINE
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
# speed, tool, spindle, coolant, dwell, compensation, zero, distances, shifts and reference points,
# movement, then spindle and coolant off, then stops and ends.
REV_EXECUTION_ORDER
OFF_LAST
RAPID_LATHE
G0
LINEAR_INTERPOLATION_LATHE
G1
# Clockwise, then counter-clockwise, as seen against Y: with a turret behind the axis, as it is drawn.
CIRCULAR_INTERPOLATION_RIGHT_LATHE
G2
CIRCULAR_INTERPOLATION_LEFT_LATHE
G3
ABSOLUTE_ON_LATHE
G90
INCREMENTAL_ON_LATHE
G91
# Per minute and per revolution; the latter holds at the start.
FEEDRAT_MMPM_LATHE
G94
FEEDRAT_MMPR_LATHE
G95
REV_START
G95
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
REV_COOLANT_MIST
M7
# T0203 changes to tool 2; the last two digits are the number of its offset.
REV_TOOL_BY_WORD
4;2
# Planned and optional stops.
REV_STOP
M0
REV_OPTIONAL_STOP
M1
PROGRAM_END_LATHE
M2
PROGRAM_END_LATHE
M30
# Cutting speed, then speed in turns.
REV_CUTTING_SPEED
G96
REV_SPINDLE_SPEED_MODE
G97
# In a block with S this is the highest speed, with axis words a shift.
REV_SPINDLE_LIMIT
G92
REV_SHIFT_SET
G92
# The plane of the lathe.
REV_PLANE_ZX
G18
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
REV_TABLE
G10
REV_SHIFT_LOCAL
G52
# Positions of the machine. Where its zero lies only REV_MACHINE_ZERO can tell.
REV_MACHINE_COORDINATES
G53
REV_REFERENCE_POINT
G28
REV_REFERENCE_POINT_2
G30
# Single passes: turning, facing, threading; and a contour followed once.
REV_LATHE_TURN
G77
REV_LATHE_FACE
G79
REV_LATHE_THREAD
G78
REV_LATHE_FINISH
G70
# X is a diameter, the centre word I a length.
ZX_LATHE_X_ASSIGNMENT
+2
ZX_LATHE_Z_ASSIGNMENT
+1
REV_CENTRE_IS_RADIUS
1
# Without effect on the path: how corners are taken, the ends of tables, limits and modes, speeds that
# waver, the end of drilling cycles and where they go back to,
REV_NO_EFFECT
G5.1
REV_NO_EFFECT
G8
REV_NO_EFFECT
G9
REV_NO_EFFECT
G11
REV_NO_EFFECT
G13.1
REV_NO_EFFECT
G113
REV_NO_EFFECT
G23
REV_NO_EFFECT
G25
REV_NO_EFFECT
G26
REV_NO_EFFECT
G61
REV_NO_EFFECT
G62
REV_NO_EFFECT
G63
REV_NO_EFFECT
G64
REV_NO_EFFECT
G67
REV_NO_EFFECT
G69
REV_NO_EFFECT
G80
REV_NO_EFFECT
G98
REV_NO_EFFECT
G99
# chucks, orientation, gears, rigid tapping, overrides.
REV_NO_EFFECT
M10
REV_NO_EFFECT
M11
REV_NO_EFFECT
M19
REV_NO_EFFECT
M29
REV_NO_EFFECT
M40
REV_NO_EFFECT
M41
REV_NO_EFFECT
M42
REV_NO_EFFECT
M43
REV_NO_EFFECT
M44
REV_NO_EFFECT
M48
REV_NO_EFFECT
M49
REV_NO_EFFECT
M68
REV_NO_EFFECT
M69
# The corners of limits are no positions.
REV_OWN_WORDS
G22
# What changes the path, or what F means, and is not followed: other arcs and splines, cylinders and
# polar interpolation, other planes,
REV_NOT_CONVERTED
G2.1
REV_NOT_CONVERTED
G2.2
REV_NOT_CONVERTED
G3.1
REV_NOT_CONVERTED
G3.2
REV_NOT_CONVERTED
G5
REV_NOT_CONVERTED
G6.2
REV_NOT_CONVERTED
G7.1
REV_NOT_CONVERTED
G107
REV_NOT_CONVERTED
G10.9
REV_NOT_CONVERTED
G12.1
REV_NOT_CONVERTED
G112
REV_NOT_CONVERTED
G17
REV_NOT_CONVERTED
G19
# the check of reference points and the way back from them, contacts and measured offsets, threads whose
# pitch grows or that are bent, positions that are reached from one side,
REV_NOT_CONVERTED
G27
REV_NOT_CONVERTED
G29
REV_NOT_CONVERTED
G30.1
REV_NOT_CONVERTED
G31
REV_NOT_CONVERTED
G32
REV_NOT_CONVERTED
G34
REV_NOT_CONVERTED
G35
REV_NOT_CONVERTED
G36
REV_NOT_CONVERTED
G37
REV_NOT_CONVERTED
G60
# polygons, the end of scaling, scaling, mirrors, rotation, further zeros, tilted planes,
REV_NOT_CONVERTED
G50
REV_NOT_CONVERTED
G50.1
REV_NOT_CONVERTED
G50.2
REV_NOT_CONVERTED
G51
REV_NOT_CONVERTED
G51.1
REV_NOT_CONVERTED
G51.2
REV_NOT_CONVERTED
G250
REV_NOT_CONVERTED
G251
REV_NOT_CONVERTED
G54.1
REV_NOT_CONVERTED
G54.2
REV_NOT_CONVERTED
G68
REV_NOT_CONVERTED
G68.1
REV_NOT_CONVERTED
G68.2
# roughing, grooves and threads in passes that the control chooses, drilling cycles,
REV_NOT_CONVERTED
G71
REV_NOT_CONVERTED
G72
REV_NOT_CONVERTED
G73
REV_NOT_CONVERTED
G74
REV_NOT_CONVERTED
G75
REV_NOT_CONVERTED
G76
REV_NOT_CONVERTED
G81
REV_NOT_CONVERTED
G82
REV_NOT_CONVERTED
G83
REV_NOT_CONVERTED
G84
REV_NOT_CONVERTED
G85
REV_NOT_CONVERTED
G86
REV_NOT_CONVERTED
G87
REV_NOT_CONVERTED
G88
REV_NOT_CONVERTED
G89
# inverse time.
REV_NOT_CONVERTED
G93
# Chamfers, corners and angles, and further axes.
REV_NOT_CONVERTED_WORD
,A
REV_NOT_CONVERTED_WORD
,C
REV_NOT_CONVERTED_WORD
,R
REV_NOT_CONVERTED_WORD
A
REV_NOT_CONVERTED_WORD
B
REV_NOT_CONVERTED_WORD
C
REV_NOT_CONVERTED_WORD
H
REV_NOT_CONVERTED_WORD
U
REV_NOT_CONVERTED_WORD
V
REV_NOT_CONVERTED_WORD
W
REV_NOT_CONVERTED_WORD
Y
##### Address Section
# The point decides; the places of the formats would only count without one.
FEEDRATE_LATHE
F
1
M5.3
SPINDLE_SPEED_LATHE
S
1
M5.0
1ST_COORDINATE_LATHE
X
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
3RD_CIRCLE_CENTER_COORDINATE
K
1
M5.5
# Centres count from the start of the arc. The key stands behind the centre words.
CIRCLE_CENTER_ABS
0
REV_TLCHG_TLADR_LATHE
T
# Words of arcs and of tapered passes,
REV_CIRCLE_RADIUS
R
1
M5.5
# of dwells, threads and tables.
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
REV_TABLE_KIND
L
1
M5.5
REV_TABLE_NUMBER
P
1
M5.5
