"""What a machine does, step by step, and how two such lists are compared.

A step is a movement ("rapid", "feed", "arc") or what happens between them ("dwell", "dwell turns",
"tool", "stop", "optional stop", "home", "end"). Lengths are millimetres in the zero in force at the
start, whatever the program counts in."""

import collections
import math

# place: end of a movement; of a dwell, a tool its number. start: of a movement.
# arc: of arcs. feed: (value, "minute" or "turn", inexactness) of a movement at feed, None
# where nobody asks. spindle: (direction, speed,
# "turns" or "metres" a minute), None or UNKNOWN; coolant: sorted names. grain: how inexact the place is known.
# block: where the step comes from, for people.
Step = collections.namedtuple(
    "Step", "kind place start arc feed spindle coolant grain block", defaults=(0.0, "")
)
# normal: unit vector as seen from whose tip the arc turns counter-clockwise. sweep: radians, above 0,
# of all turns. The centre is the one in the plane of the start.
Arc = collections.namedtuple("Arc", "centre normal sweep")

# Where two lists part: what differs, the number of the made step, the wanted one and the made ones.
Difference = collections.namedtuple("Difference", "reason at wanted made")

UNKNOWN = "unknown"
MOVEMENTS = ("rapid", "feed", "arc")
PIECE = 2 * math.pi / 3  # longest piece of an arc
TOLERANCE = 0.01  # between an arc and the chords that stand for it
UNEQUAL = 0.03  # radii at start and end that still make an arc, see unequal()

# -------------------------------------------------------------------------------------------------
# Vectors


def plus(a, b, factor=1.0):
    return tuple(x + factor * y for x, y in zip(a, b))


def minus(a, b):
    return tuple(x - y for x, y in zip(a, b))


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def cross(a, b):
    return (
        a[1] * b[2] - a[2] * b[1],
        a[2] * b[0] - a[0] * b[2],
        a[0] * b[1] - a[1] * b[0],
    )


def length(a):
    return math.sqrt(dot(a, a))


def away(a, b):
    return length(minus(a, b))


def within_plane(vector, normal):
    return plus(vector, normal, -dot(vector, normal))


# -------------------------------------------------------------------------------------------------
# Arcs


def arc_to(start, end, centre, normal, turns, same):
    """The arc between two points; ends that are closer than `same` make a full turn."""
    centre = plus(centre, normal, dot(minus(start, centre), normal))
    a, b = (within_plane(minus(point, centre), normal) for point in (start, end))
    angle = math.atan2(dot(cross(a, b), normal), dot(a, b)) % (2 * math.pi)
    if away(a, b) <= same:
        angle = 2 * math.pi
    return Arc(centre, normal, angle + 2 * math.pi * (turns - 1))


def radii(step):
    """At the start and at the end, within the plane."""
    return tuple(
        length(within_plane(minus(point, step.arc.centre), step.arc.normal))
        for point in (step.start, step.place)
    )


def rise(step):
    return dot(minus(step.place, step.start), step.arc.normal)


def on_path(step, share):
    """The point of an arc after a share of its way."""
    if share >= 1:
        return step.place
    centre, normal, sweep = step.arc
    a = within_plane(minus(step.start, centre), normal)
    first, last = radii(step)
    grown = 1 + share * (last / first - 1)
    turned = plus(
        tuple(x * math.cos(sweep * share) for x in a),
        cross(normal, a),
        math.sin(sweep * share),
    )
    return plus(plus(centre, turned, grown), normal, rise(step) * share)


def unequal(radius):
    return max(UNEQUAL, 1.1e-3 * radius)


# -------------------------------------------------------------------------------------------------
# How an arc is written: as pieces or as points


def counts(exact, doubt):
    """Whole numbers that the upper one of a quotient may be."""
    return range(max(1, math.ceil(exact - doubt)), max(1, math.ceil(exact + doubt)) + 1)


def pieces(step, number):
    """An arc in equal parts."""
    made, start = [], step.start
    for k in range(1, number + 1):
        end = on_path(step, k / number)
        arc = step.arc._replace(sweep=step.arc.sweep / number)
        made.append(step._replace(start=start, place=end, arc=arc))
        start = end
    return made


def points(step, number):
    made, start = [], step.start
    for k in range(1, number + 1):
        end = on_path(step, k / number)
        made.append(step._replace(kind="feed", start=start, place=end, arc=None))
        start = end
    return made


def written(step, axis=(0.0, 0.0, 1.0), chords=TOLERANCE):
    """The ways in which a step may stand in an APT source: an arc about the tool axis is pieces of
    at most a third of a turn, every other one is points; more than one way where inexact values
    leave open how many."""
    if step.kind != "arc":
        return [[step]]
    radius, grain = max(radii(step)), 2 * step.grain + abs(radii(step)[0] - radii(step)[1])
    doubt = min(3 * grain / radius, 0.5)
    ways = []
    if abs(abs(dot(step.arc.normal, axis)) - 1) < 1e-9 and abs(rise(step)) <= 2 * step.grain:
        ways += [pieces(step, n) for n in counts(step.arc.sweep / PIECE, doubt + 1e-6)]
        if abs(rise(step)) == 0:
            return ways
    most = 1 - chords / max(radius, chords)
    exact = step.arc.sweep / (2 * math.acos(most))
    ways += [points(step, n) for n in counts(exact, exact * doubt + 1e-6)]
    return ways


# -------------------------------------------------------------------------------------------------
# Comparing


def close(a, b, tolerance):
    return abs(a - b) <= tolerance + 1e-11 * abs(a)


def near(a, b, tolerance):
    return all(close(x, y, tolerance) for x, y in zip(a, b))


def same_feed(wanted, made):
    if wanted.feed is None:
        return True
    if made.feed is None:
        return False
    # Of a coarse value more than the digits count, so that another unit is found.
    inexact = min(wanted.feed[2] + made.feed[2], 0.05 * wanted.feed[0])
    return wanted.feed[1] == made.feed[1] and close(wanted.feed[0], made.feed[0], inexact)


def same_state(wanted, made):
    """What the machine does after a tool change is open until the program says it."""
    if wanted.coolant != made.coolant:
        return False
    if wanted.spindle in (UNKNOWN, None) and made.spindle == UNKNOWN:
        return True
    return wanted.spindle == UNKNOWN or same_spindle(wanted.spindle, made.spindle)


def same_spindle(wanted, made):
    if None in (wanted, made) or made == UNKNOWN:
        return wanted == made
    return (wanted[0], wanted[2]) == (made[0], made[2]) and close(wanted[1], made[1], 1.1e-4)


def same(wanted, made):
    """What differs between a step and the one that stands for it; empty when nothing does."""
    if wanted.kind != made.kind:
        return "kind"
    if wanted.kind not in MOVEMENTS:
        return "" if close(wanted.place, made.place, 1.1e-4) else "value"
    tolerance = wanted.grain + made.grain
    if wanted.arc:
        first, last = radii(wanted)
        if not near(wanted.arc.centre, made.arc.centre, tolerance):
            return "centre"
        if away(wanted.arc.normal, made.arc.normal) > 1e-3:
            return "direction"
        if abs(wanted.arc.sweep - made.arc.sweep) * first > 3 * tolerance + abs(first - last):
            return "sweep"
    if not near(wanted.place, made.place, tolerance):
        return "end"
    if wanted.kind != "rapid" and not same_feed(wanted, made):
        return "feed"
    return "" if same_state(wanted, made) else "spindle or coolant"


def loosened(way):
    """Points between the ends of an arc follow from inexact ones."""
    return [step._replace(grain=8 * step.grain + 1e-4) for step in way[:-1]] + way[-1:]


def moving(steps, least):
    """Without straight movements that are shorter than `least`, and without dwells of no time, which
    rs274 prints behind every tap."""

    def counts(step):
        if step.kind in ("rapid", "feed"):
            return away(step.place, step.start) > least
        return step.kind != "dwell" or step.place != 0

    return [step for step in steps if counts(step)]


def difference(wanted, made, ends=True, ways=written, least=None):
    """The first Difference of two lists, None without one. With `ends` False either may go on.
    `ways` tells how a step may be written; straight movements shorter than `least`, by default what
    the grain cannot tell from none, count as none, and so do dwells of no time."""
    if least is None:
        least = 2 * max([step.grain for step in wanted + made], default=0.0)
    wanted, made = moving(wanted, least), moving(made, least)
    at = 0
    for step in wanted:
        if at >= len(made):
            return Difference("missing", at, step, []) if ends else None
        reasons = []
        for way in ways(step):
            reason = fits(way, made[at : at + len(way)], ends)
            if not reason:
                break
            reasons.append(reason)
        else:
            return Difference(reasons[0], at, step, made[at : at + len(way)])
        at += len(way)
    return Difference("too much", at, None, made[at : at + 3]) if ends and at < len(made) else None


def fits(way, made, ends):
    for wanted, one in zip(loosened(way), made):
        reason = same(wanted, one)
        if reason:
            return reason
    return "missing" if ends and len(made) < len(way) else ""


# -------------------------------------------------------------------------------------------------
# For people


def numbers(values):
    return " ".join(f"{value:.4f}".rstrip("0").rstrip(".") for value in values)


def text(step):
    if step is None:
        return "nothing"
    if step.kind not in MOVEMENTS:
        return f"{step.kind} {step.place:g}".strip()
    told = f"{step.kind} to {numbers(step.place)}"
    if step.arc:
        turn = math.degrees(step.arc.sweep)
        told += f" about {numbers(step.arc.centre)}, normal {numbers(step.arc.normal)}, {turn:.3f}°"
    if step.feed and step.kind != "rapid":
        told += f", {step.feed[0]:g} per {step.feed[1]}"
    if step.spindle not in (None, UNKNOWN):
        told += f", {' '.join(map(str, step.spindle))}"
    return told + (f" [{step.block}]" if step.block else "")


def told(part):
    made = "; ".join(map(text, part.made[:2])) or "nothing"
    return f"{part.reason} of movement {part.at}: is to be {text(part.wanted)} and is {made}"
