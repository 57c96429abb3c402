"""The steps of what rs274 -g prints. Its numbers count in the unit, the zero, the shift and the
rotation in force at that line; what stands here counts in millimetres from the machine's zero."""

import math
import re

import steps

INCH = 25.4
FOOT = 0.3048  # metres; a cutting speed under inches counts feet
LINE = re.compile(r"\s*\d+ N(\d+|\.+)\s+(\w+)\((.*)\)$")
HALF_DIGIT = 0.55e-4  # of the last printed one
AXES = {"XY": (0, 1, 2), "XZ": (2, 0, 1), "YZ": (1, 2, 0)}  # first, second and the normal
IGNORED = {
    "COMMENT", "MESSAGE", "ON_RESET", "SET_FEED_REFERENCE", "SET_MOTION_CONTROL_MODE", "SELECT_TOOL",
    "SET_NAIVECAM_TOLERANCE", "START_CHANGE", "DISABLE_FEED_OVERRIDE", "ENABLE_FEED_OVERRIDE",
    "DISABLE_SPEED_OVERRIDE", "ENABLE_SPEED_OVERRIDE", "PALLET_SHUTTLE", "USE_TOOL_LENGTH_OFFSET",
    "ORIENT_SPINDLE", "WAIT_SPINDLE_ORIENT_COMPLETE", "TURN_PROBE_ON", "TURN_PROBE_OFF",
    "DISABLE_ADAPTIVE_FEED", "ENABLE_ADAPTIVE_FEED", "ENABLE_FEED_HOLD", "DISABLE_FEED_HOLD",
    "CHANGE_TOOL_NUMBER", "SET_TOOL_TABLE_ENTRY", "RELOAD_TOOLDATA", "UPDATE_TAG", "LOG", "LOGOPEN",
    "LOGCLOSE", "SET_MOTION_OUTPUT_BIT", "CLEAR_MOTION_OUTPUT_BIT", "SET_AUX_OUTPUT_BIT",
    "CLEAR_AUX_OUTPUT_BIT", "FINISH", "SET_MOTION_OUTPUT_VALUE", "SET_AUX_OUTPUT_VALUE", "WAIT",
}  # fmt: skip


class BadCanon(Exception):
    """A call that is not known here, or one that no list of steps can hold."""


class Reader:
    def __init__(self):
        self.place, self.unit, self.plane = (0.0, 0.0, 0.0), 1.0, "XY"
        self.zero, self.shift, self.angle = (0.0,) * 3, (0.0,) * 3, 0.0
        self.inexact = {"zero": 0.0, "shift": 0.0, "angle": 0.0}
        self.feed, self.per, self.thread = (0.0, 0.0), "minute", None
        self.last_grain = 0.0
        self.direction, self.speed, self.surface, self.coolant = None, 0.0, False, ()
        self.found = []

    def read(self, text):
        """Steps, and the N number of the last line that has one."""
        self.block = ""
        for line in text.splitlines():
            found = LINE.match(line)
            if not found:
                continue
            if found[1].isdigit():
                self.block = f"N{found[1]}"
            reader = self.READERS.get(found[2])
            if reader:
                reader(self, found[3])
            elif found[2] not in IGNORED:
                raise BadCanon(f"{found[2]} in {self.block}")
        return self.found

    def numbers(self, text):
        return [float(part) for part in text.split(",")]

    # From the printed coordinates to those of the machine

    def turned(self, point):
        c, s = math.cos(self.angle), math.sin(self.angle)
        return (c * point[0] - s * point[1], s * point[0] + c * point[1], point[2])

    def machine(self, point):
        inner = steps.plus(tuple(value * self.unit for value in point), self.shift)
        return steps.plus(self.turned(inner), self.zero)

    def grain(self, point):
        inner = steps.plus(tuple(value * self.unit for value in point), self.shift)
        angle = self.inexact["angle"] * (abs(inner[0]) + abs(inner[1]))
        exact = self.unit * HALF_DIGIT + self.inexact["zero"] + self.inexact["shift"] + angle
        return exact * (1.42 if self.angle else 1)

    # Steps

    def step(self, kind, place, arc=None, grain=0.0):
        feed = None
        if kind in ("feed", "arc"):
            value, inexact = self.thread or self.feed
            feed = (value, "turn" if self.thread else self.per, inexact)
        state = (self.turning(), self.coolant, grain, self.block)
        self.found.append(steps.Step(kind, place, self.place, arc, feed, *state))
        if kind in steps.MOVEMENTS:
            self.place, self.last_grain = place, grain

    def turning(self):
        if self.direction in (None, steps.UNKNOWN):
            return self.direction
        return (self.direction, self.speed, "metres" if self.surface else "turns")

    def read_straight(self, kind, text):
        point = self.numbers(text)[:3]
        self.step(kind, self.machine(point), None, self.grain(point))

    def read_arc(self, text):
        first, second, one, other, turns, height = self.numbers(text)[:6]
        end, centre = [0.0] * 3, [0.0] * 3
        a, b, c = AXES[self.plane]
        end[a], end[b], end[c] = first, second, height
        centre[a], centre[b], centre[c] = one, other, height
        normal = [0.0] * 3
        normal[c] = math.copysign(1.0, turns)
        normal = self.turned(normal)
        grain = self.grain(end)
        coarse = max(grain, self.last_grain)
        place = self.machine(end)
        arc = steps.arc_to(
            self.place, place, self.machine(centre), normal, abs(int(turns)), 3 * coarse
        )
        self.step("arc", place, arc, coarse)

    # State

    def read_units(self, text):
        self.unit = {"CANON_UNITS_MM": 1.0, "CANON_UNITS_INCHES": INCH}[text]

    def read_plane(self, text):
        self.plane = text.rpartition("_")[2]

    def lengths(self, name, values):
        self.inexact[name] = HALF_DIGIT * self.unit if any(values) else 0.0
        return tuple(value * self.unit for value in values)

    def read_zero(self, text):
        self.zero = self.lengths("zero", self.numbers(text)[1:4])

    def read_shift(self, text):
        self.shift = self.lengths("shift", self.numbers(text)[:3])

    def read_angle(self, text):
        degrees = float(text)
        self.inexact["angle"] = 0.0 if degrees == round(degrees, 3) else math.radians(HALF_DIGIT)
        self.angle = math.radians(degrees)

    def inexactly(self, value):
        return value * self.unit, HALF_DIGIT * self.unit

    def read_feed(self, text):
        self.feed = self.inexactly(float(text))

    def read_feed_mode(self, text):
        self.per = "turn" if self.numbers(text)[1] else "minute"

    def read_thread(self, text):
        self.thread = self.inexactly(self.numbers(text)[0])

    def end_thread(self, _):
        self.thread = None

    def start_spindle(self, direction):
        self.direction = direction

    def read_speed(self, text):
        speed = self.numbers(text)[1]
        self.speed = speed * FOOT if self.surface and self.unit != 1 else speed

    def read_speed_mode(self, text):
        self.surface = float(text.split()[1]) != 0

    def read_tool(self, text):
        self.direction = steps.UNKNOWN
        self.step("tool", int(text))

    def add_coolant(self, name):
        self.coolant = tuple(sorted({*self.coolant, name}))

    def end_coolant(self, name):
        self.coolant = tuple(kept for kept in self.coolant if kept != name)

    READERS = {
        "STRAIGHT_TRAVERSE": lambda self, text: self.read_straight("rapid", text),
        "STRAIGHT_FEED": lambda self, text: self.read_straight("feed", text),
        "ARC_FEED": read_arc,
        "USE_LENGTH_UNITS": read_units,
        "SELECT_PLANE": read_plane,
        "SET_G5X_OFFSET": read_zero,
        "SET_G92_OFFSET": read_shift,
        "SET_XY_ROTATION": read_angle,
        "SET_FEED_RATE": read_feed,
        "SET_FEED_MODE": read_feed_mode,
        "START_SPEED_FEED_SYNC": read_thread,
        "STOP_SPEED_FEED_SYNCH": end_thread,
        "DWELL": lambda self, text: self.step("dwell", float(text)),
        "CHANGE_TOOL": read_tool,
        "SET_SPINDLE_SPEED": read_speed,
        "SET_SPINDLE_MODE": read_speed_mode,
        "START_SPINDLE_CLOCKWISE": lambda self, _: self.start_spindle("CLW"),
        "START_SPINDLE_COUNTERCLOCKWISE": lambda self, _: self.start_spindle("CCLW"),
        "STOP_SPINDLE_TURNING": lambda self, _: self.start_spindle(None),
        "FLOOD_ON": lambda self, _: self.add_coolant("flood"),
        "MIST_ON": lambda self, _: self.add_coolant("mist"),
        "FLOOD_OFF": lambda self, _: self.end_coolant("flood"),
        "MIST_OFF": lambda self, _: self.end_coolant("mist"),
        "PROGRAM_STOP": lambda self, _: self.step("stop", 0),
        "OPTIONAL_PROGRAM_STOP": lambda self, _: self.step("optional stop", 0),
        "PROGRAM_END": lambda self, _: self.step("end", 0),
    }


def read(text):
    return Reader().read(text)
