"""Compares the expected APT of the programs for machines with rotary axes with what their positions mean,
computed here by quaternions: every programmed place is there, and what lies between two of them is on the
way of the machine's axes, nowhere left by more than the tolerances.

    fiveAxes.py DIALECTS

Exits with 1 when something differs."""

import math
import os
import re
import sys

TIP, AXIS = 2e-5, 3e-7  # what five and seven decimals leave
TOLERANCE, AXIS_TOLERANCE = 0.01, 1.0
SAMPLES = 60


def turn(axis, angle, v):
    """A vector turned about X, Y or Z by a unit quaternion."""
    half = math.radians(angle) / 2
    w, u = math.cos(half), [math.sin(half) if i == "XYZ".index(axis) else 0.0 for i in range(3)]
    c = [a + w * b for a, b in zip(cross(u, v), v)]
    return [a + 2 * b for a, b in zip(v, cross(u, c))]


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def plus(a, b, factor=1.0):
    return [x + factor * y for x, y in zip(a, b)]


def length(v):
    return math.sqrt(sum(x * x for x in v))


def unit(v):
    return [x / length(v) for x in v]


def table(p, a, c):
    """A about X through (0, 0, -50), which carries C about Z."""
    centre = [0, 0, -50]
    tip = turn("Z", c, plus(turn("X", a, plus(p, centre, -1)), centre))
    return tip, turn("Z", c, turn("X", a, [0, 0, 1]))


def head(p, c, b):
    """C about Z, which carries B about Y; both centres 280 above the tip of tool 1."""
    centre = [0, 0, 280]
    tip = plus(plus(p, centre), turn("Z", c, turn("Y", b, [0, 0, -280])))
    return tip, turn("Z", c, turn("Y", b, [0, 0, 1]))


class State:
    """A state of the machine: position, angles, whether positions are tips, and a vector."""

    def __init__(self, machine, position, angles, rtcp, vector=None):
        self.machine, self.position, self.angles = machine, position, angles
        self.rtcp, self.vector = rtcp, vector

    def place(self):
        if self.vector:
            return self.position, unit(self.vector)
        tip, axis = self.machine(self.position, *self.angles)
        return (self.position if self.rtcp else tip), axis

    def towards(self, other, u):
        """The place at a part of the way; axes of the machine move evenly, vectors on the great arc."""
        between = lambda a, b: [x + (y - x) * u for x, y in zip(a, b)]
        state = State(self.machine, between(self.position, other.position), [], other.rtcp)
        if not other.vector:
            state.angles = between(self.angles, other.angles)
            return state.place()
        a, b = self.place()[1], other.place()[1]
        angle = math.atan2(length(cross(a, b)), sum(x * y for x, y in zip(a, b)))
        if angle < 1e-9:
            return state.position, b
        weights = math.sin((1 - u) * angle) / math.sin(angle), math.sin(u * angle) / math.sin(angle)
        return state.position, [weights[0] * x + weights[1] * y for x, y in zip(a, b)]


def table_states():
    """What five-axis-table/impeller.nc asks for, block after block."""
    states = []

    def go(position, a, c, rtcp=False):
        states.append(State(table, position, [a, c], rtcp))

    go([0, 0, 60], 0, 0)
    go([0, 0, 60], -30, 0)
    for hole in range(4):
        go([0, 0 if hole == 0 else 30, 60], -30, hole * 90.0)
        for z in (60, 2, -12, 60) if hole == 0 else (2, -12, 60):
            go([0, 30, z], -30, hole * 90.0)
    go([0, 30, 60], -30, 270)
    go([0, 30, 60], 0, 0)
    go([0, 30, 60], -90, 0)
    for x, y, z in ((-20, -30, 30), (-20, -30, 10), (-20, -30, 5), (20, -30, 5)):
        go([x, y, z], -90, 0)
    states.append("arc")
    go([-20, -30, 5], -90, 0)
    go([-20, -30, 60], -90, 0)
    go([-20, -30, 60], 0, 0)
    go([25, 0, 20], 0, 0, True)
    for i in range(13):
        angle = math.radians(i * 10)
        go([25 * math.cos(angle), 25 * math.sin(angle), 10 - i * 0.75], -20 - 2 * i, 90 - 10 * i, True)
    tip = states[-1].position[:2] + [40]
    go(tip, -44, -30, True)
    # Back in positions of the machine: C, then A, are undone.
    centre = [0, 0, -50]
    position = plus(turn("X", 44, plus(turn("Z", 30, tip), centre, -1)), centre)
    states.append(("from", State(table, position, [-44, -30], False)))
    go(position[:2] + [80], -44, -30)
    go(position[:2] + [80], 0, 0)
    return states


def head_states():
    """What five-axis-head/mould.mpf asks for."""
    states = []

    def go(position, c, b):
        states.append(State(head, position, [c, b], False))

    def lean(position, vector):
        states.append(State(head, position, [0, 0], True, vector))

    go([0, 0, 100], 0, 0)
    go([0, 0, 100], 0, 30)
    go([120, 0, -20], 0, 30)
    go([120 - 5, 0, -20 - 10 * math.cos(math.radians(30))], 0, 30)
    go([120, 0, -20], 0, 30)
    go([120, 0, 100], 0, 30)
    go([120, 0, 100], 0, 0)
    lean([40, 0, 30], [0, 0, 1])
    lean([40, 0, 0], [1, 0, 3])
    for angle in range(15, 361, 15):
        x, y = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        lean([40 * x, 40 * y, 0], [x, y, 3])
    lean([40, 0, 30], [0, 0, 1])
    states.append("unknown")
    go([0, 0, 150], 0, 0)
    return states


def read(name):
    """The places of an APT, and for each arc its last line's end point."""
    with open(name, encoding="ascii") as file:
        text = file.read().replace(" ", "").replace("$\n", "")
    places = []
    for line in text.splitlines():
        numbers = [float(n) for n in re.findall(r"-?\d+\.\d+", line)]
        if line.startswith("GOTO/"):
            places.append((numbers[:3], numbers[3:]))
        elif line.startswith("TLON"):
            places.append((numbers[-3:], None))
    return places


def same(found, wanted):
    return length(plus(found[0], wanted[0], -1)) < TIP and (
        found[1] is None or length(plus(found[1], wanted[1], -1)) < AXIS
    )


def part_of(found, start, end, least):
    """How much of the way was done at a place of it, by the nearest of places ever denser."""
    low, high = least, 1.0
    for _ in range(12):
        step = (high - low) / 40
        off = lambda u: length(plus(found[0], start.towards(end, u)[0], -1)) + 100 * length(
            plus(found[1], start.towards(end, u)[1], -1)
        )
        best = min((low + i * step for i in range(41)), key=off)
        low, high = max(least, best - step), min(1.0, best + step)
    return best


def fault(states, places):
    """What is wrong with the places; empty when nothing."""
    previous, last, at = None, None, 0
    is_arc = False
    for number, state in enumerate(states):
        if state == "arc":
            is_arc = True
            continue
        if state == "unknown":
            previous = None
            continue
        if isinstance(state, tuple):
            previous = state[1]
            continue
        begin, wanted = 0.0, state.place()
        while True:
            if at == len(places):
                return f"place {number} is missing: {wanted}"
            found = places[at]
            at += 1
            if same(found, wanted):
                end = 1.0
            elif is_arc:
                continue  # the pieces of an arc
            elif previous is None:
                return f"{found} stands where {wanted} is wanted"
            else:
                end = part_of(found, previous, state, begin)
                if not same(found, previous.towards(state, end)):
                    return f"{found} is not on the way to place {number}, {wanted}"
            if previous is not None and not is_arc:
                for i in range(1, SAMPLES):
                    u = i / SAMPLES
                    truth = previous.towards(state, begin + (end - begin) * u)
                    tip = plus(last[0], plus(found[0], last[0], -1), u)
                    axis = unit(plus(last[1], plus(found[1], last[1], -1), u))
                    off = math.degrees(2 * math.asin(min(1, length(plus(axis, truth[1], -1)) / 2)))
                    if length(plus(tip, truth[0], -1)) > TOLERANCE + TIP or off > AXIS_TOLERANCE:
                        return f"the way to place {number}, {wanted}, is left before {found}"
            begin, last = end, (found[0], found[1] or wanted[1])
            if end == 1.0:
                break
        previous, is_arc = state, False
    return "" if at == len(places) else f"{places[at]} is one place too many"


def main():
    folder = os.path.join(sys.argv[1], "programs")
    faults = 0
    for name, states in (
        ("five-axis-table/impeller.apt", table_states()),
        ("five-axis-head/mould.apt", head_states()),
    ):
        reason = fault(states, read(os.path.join(folder, name)))
        faults += bool(reason)
        print(f"{name}: {reason or 'agrees'}")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
