"""The steps of an APT source. A statement that is not known here is an error, so that none is
overlooked."""

import re

import steps

INCH = 25.4
MILL, LATHE = (0.0, 0.0, 1.0), (0.0, 1.0, 0.0)  # normals of the planes of arcs
NUMBER = r"\s*(-?[\d.]+)"
IGNORED = re.compile(r"MODE/INCR,(ON|OFF)$|REWIND/0$|PPRINT|PARTNO|CUTCOM/|SPINDL/MAXRPM,|OPSKIP/|$")
FEEDS = {"MMPM": (1, "minute"), "IPM": (INCH, "minute"), "MMPR": (1, "turn"), "IPR": (INCH, "turn")}
SPEEDS = {"RPM": (1, "turns"), "SMM": (1, "metres"), "SFM": (0.3048, "metres")}
EVENTS = {"STOP": "stop", "OPSTOP": "optional stop", "GOHOME": "home", "END": "end"}


class BadApt(Exception):
    """A statement that cannot be read, or an arc that is none."""


class Reader:
    def __init__(self, normal):
        self.normal = normal
        self.place, self.rapid, self.direction = (0.0, 0.0, 0.0), False, None
        self.unit, self.feed, self.spindle, self.coolant = 1.0, None, None, ()
        # Nobody tells the axis of a lathe.
        self.axis = None if normal == MILL else normal
        self.found, self.moved = [], False

    def numbers(self, text, count):
        values = tuple(float(part) for part in text.split(","))
        if len(values) != count:
            raise BadApt(f"{count} numbers were expected: {text}")
        return values

    def lengths(self, text, count=3):
        return tuple(value * self.unit for value in self.numbers(text, count))

    def grain(self):
        return 0.6e-5 * self.unit

    def step(self, kind, place, arc=None):
        feed = None if kind == "rapid" else self.feed
        state = (self.spindle, self.coolant, self.grain(), f"APT line {self.line}")
        self.found.append(steps.Step(kind, place, self.place, arc, feed, *state))
        if kind in steps.MOVEMENTS:
            self.place, self.moved = place, True

    # Statements

    def read(self, text):
        for self.line, line in enumerate(text.replace("$\n", "").splitlines(), 1):
            name, _, arguments = line.partition("/")
            reader = self.READERS.get(name.strip() if "/" in line else line.strip())
            if reader:
                reader(self, arguments)
            elif line in EVENTS:
                self.step(EVENTS[line], 0)
            elif not IGNORED.match(line):
                raise BadApt(f"unknown statement: {line}")
        if self.rapid:
            raise BadApt("RAPID without a movement")
        return self.found

    def read_rapid(self, _):
        self.rapid = True

    def read_goto(self, arguments):
        self.need_axis()
        self.step("rapid" if self.rapid else "feed", self.lengths(arguments))
        self.rapid = False

    def read_direction(self, arguments):
        self.direction = self.numbers(arguments, 3)

    def need_axis(self):
        if self.axis is None:
            raise BadApt("a movement before TLAXIS")

    def read_arc(self, arguments):
        self.need_axis()
        form = r"\(CIRCLE/(.*)\),ON,\(LINE/(.*)\)$"
        found = re.match(form, arguments)
        if not found or self.direction is None or self.rapid:
            raise BadApt(f"no arc: {arguments}")
        *centre, radius = self.lengths(found[1], 4)
        *base, x, y, z = self.lengths(found[2], 6)
        if base != centre:
            raise BadApt(f"the end line does not start at the centre: {arguments}")
        self.arc(tuple(centre), radius, (x, y, z))
        self.direction = None

    def arc(self, centre, radius, end):
        arm = steps.minus(self.place, centre)
        turn = steps.dot(steps.cross(arm, self.direction), self.axis)
        normal = tuple(value if turn > 0 else -value for value in self.axis)
        size = steps.length(arm) * steps.length(self.direction)
        if size == 0 or abs(abs(turn) / size - 1) > 1e-4 or abs(steps.dot(arm, self.axis)) > 2 * self.grain():
            raise BadApt(f"the direction is no tangent at line {self.line}")
        arc = steps.arc_to(self.place, end, centre, normal, 1, 2 * self.grain())
        step = steps.Step("arc", end, self.place, arc, None, None, None)
        first, last = steps.radii(step)
        if abs(last - radius) > 4 * self.grain():
            raise BadApt(f"the radius is not that of the end at line {self.line}")
        if abs(first - radius) > steps.unequal(radius):
            raise BadApt(f"the radius is not that of the start at line {self.line}")
        if abs(steps.rise(step)) > 2 * self.grain():
            raise BadApt(f"the arc leaves its plane at line {self.line}")
        self.step("arc", end, arc)

    def read_axis(self, arguments):
        self.axis = self.numbers(arguments, 3)
        if self.axis != MILL or self.normal != MILL:
            raise BadApt(f"a tool axis that the machine lacks: {arguments}")

    def read_units(self, arguments):
        if self.moved or arguments.strip() not in ("MM", "INCHES"):
            raise BadApt(f"units where they must not stand: {arguments}")
        self.unit = INCH if arguments.strip() == "INCHES" else 1.0

    def read_feed(self, arguments):
        value, mode = arguments.split(",")
        factor, per = FEEDS[mode]
        self.feed = (float(value) * factor, per, 0.6e-4 * factor)

    def read_delay(self, arguments):
        value, *turns = arguments.split(",")
        self.step("dwell turns" if turns == ["REV"] else "dwell", float(value))

    def read_tool(self, arguments):
        # Whether the spindle turns behind a change nobody tells.
        self.spindle = steps.UNKNOWN
        self.step("tool", int(arguments))

    def read_spindle(self, arguments):
        if arguments.strip() == "OFF":
            self.spindle = None
        elif not arguments.startswith("MAXRPM,"):
            speed, unit, direction = arguments.split(",")
            factor, per = SPEEDS[unit]
            self.spindle = (direction, float(speed) * factor, per)

    def read_coolant(self, arguments):
        name = {"ON": "flood", "FLOOD": "flood", "MIST": "mist", "OFF": None}[arguments.strip()]
        self.coolant = tuple(sorted({*self.coolant, name})) if name else ()

    READERS = {
        "RAPID": read_rapid,
        "GOTO": read_goto,
        "AUTOPS": lambda self, _: None,
        "INDIRV": read_direction,
        "TLON,GOFWD": read_arc,
        "TLAXIS": read_axis,
        "UNITS": read_units,
        "FEDRAT": read_feed,
        "DELAY": read_delay,
        "LOADTL": read_tool,
        "SPINDL": read_spindle,
        "COOLNT": read_coolant,
    }


def read(text, normal=MILL):
    return Reader(normal).read(text)
