"""Random o-word programs over what moves a tool: planes, arcs, units, zeros, shifts, cycles, and
now and then a block that a control refuses.

A program is a list of blocks, a block a list of words; "judge-less" words are those of radius
compensation, which the path that is compared does not know. What rs274 itself does wrong is left
out: numbers of a cycle over a change of units, zero or plane, G74 with L, taps outside of XY, a
tool change in a turned zero, a zero in force that turns under a shift, pecks that are a share of
the depth."""

import math
import random

PLANES = {"G17": "XYZ", "G18": "ZXY", "G19": "YZX"}  # first, second and third axis
CENTRES = {"X": "I", "Y": "J", "Z": "K"}
ZEROS = ["G54", "G55", "G56", "G57", "G58", "G59", "G59.1", "G59.2", "G59.3"]
TAPS = ["G84", "G74"]
CYCLES = ["G81", "G82", "G83", "G73", *TAPS, "G85", "G86", "G89"]
# What programs may be about, beside straight movements and what stands between movements.
SUBJECTS = ("arcs", "planes", "units", "zeros", "machine", "cycles", "pauses", "compensation", "threads")
COMPENSATION = ("G41", "G42", "G40")


def is_compensation(word):
    return word in COMPENSATION


def for_judge(block):
    """The block without radius compensation."""
    if not any(map(is_compensation, block)):
        return block
    return [word for word in block if not is_compensation(word) and word[0] != "D"]


def printed(blocks):
    return "".join(f"N{at} {' '.join(block)}\n" for at, block in enumerate(blocks, 1))


class Writer:
    """Draws one program. It follows the state as far as it needs to write blocks that are valid
    most of the time; what they mean it leaves to others."""

    def __init__(self, seed, subjects):
        self.rng, self.subjects = random.Random(seed), subjects
        self.blocks = []
        self.inch, self.plane, self.absolute, self.absolute_centre = False, "G17", True, False
        self.mode, self.cycle, self.fed, self.turning = None, None, False, None
        self.place = dict.fromkeys("XYZ", 0.0)  # None: not known
        self.compensated, self.shifted, self.turned, self.system = False, False, False, 1

    def program(self):
        rng = self.rng
        self.start()
        wrong = rng.randrange(3, 16) if self.chance(0.25) else -1
        for at in range(rng.randrange(4, 22)):
            if at == wrong:
                self.wrong()
            else:
                self.something()
        self.blocks.append([rng.choice(["M2", "M30"])])
        return self.blocks

    # Words

    def put(self, words):
        self.rng.shuffle(words)
        self.blocks.append(words if any(map(is_compensation, words)) else self.dressed(words))

    def dressed(self, words):
        """The block as people write one, with what means nothing."""
        if self.chance(0.06):
            words.insert(self.rng.randrange(len(words) + 1), "(G0 Z9 M5; NO BLOCK)")
        if self.chance(0.04):
            words = [f"{word[0]} {word[1:]}" if word[0] in "XYZIJKRF" else word for word in words]
        if self.chance(0.04):
            words = [word.lower() for word in words]
        return [*words, "; G1 X77"] if self.chance(0.04) else words

    def chance(self, share):
        return self.rng.random() < share

    def size(self, millimetres):
        return millimetres / 25.4 if self.inch else millimetres

    def rounded(self, value):
        """To so many decimals as people write; more in inches."""
        return round(value, 5 if self.inch else 4)

    def drawn(self, low, high):
        """A length between two of millimetres, in the program's unit."""
        decimals = self.rng.choice([0, 0, 1, 2, 3, 4]) + self.inch
        return round(self.size(self.rng.uniform(low, high)), decimals)

    def word(self, letter, value):
        text = f"{value:.6f}".rstrip("0")
        text = text.rstrip(".") if self.chance(0.7) else text
        if text.startswith("0.") and self.chance(0.2):
            text = text[1:]
        return letter + ("0" if text in ("-0", "-0.", "", ".") else text)

    def feed(self):
        """A feed word when one is needed, or by chance."""
        if self.fed and not self.chance(0.15):
            return []
        self.fed = True
        return [self.word("F", self.drawn(60, 900) if self.per_minute else self.drawn(0.3, 4) or 1)]

    # Blocks

    def start(self):
        rng = self.rng
        words = [
            "G20" if "units" in self.subjects and self.chance(0.4) else "G21",
            rng.choice(list(PLANES)) if "planes" in self.subjects else "G17",
            "G90",
        ]
        self.inch, self.plane, self.per_minute = words[0] == "G20", words[1], True
        if self.chance(0.8):
            words.append("G94")
        self.put(words)
        if self.chance(0.3):
            self.tool()
        self.spindle("S800")
        if self.chance(0.7):
            self.to_known("XYZ")

    def something(self):
        if self.cycle:
            self.rng.choices(
                [self.cycle_again, self.cycle_start, self.cycle_end, self.beside, self.distance],
                [8, 3, 4, 2, 1],
            )[0]()
            return
        weights = {
            "": {self.straight: 14, self.distance: 4, self.feed_mode: 2, self.beside: 4, self.tool: 1},
            "arcs": {self.arc: 22, self.centre_mode: 2},
            "planes": {self.change_plane: 4},
            "units": {self.units: 2},
            "zeros": {self.zero: 3, self.table: 4, self.shift: 4},
            "machine": {self.reference: 3, self.machine: 2},
            "cycles": {self.cycle_start: 7},
            "compensation": {self.compensation: 1},
            "threads": {self.thread: 1},
        }
        choices = {}
        for subject in ("", *self.subjects):
            choices.update(weights.get(subject, {}))
        self.rng.choices(list(choices), list(choices.values()))[0]()

    def target(self, axis, low=-60, high=60):
        """A value of an axis word, after which the place is known when it can be."""
        value = self.drawn(low, high)
        self.reach(axis, value)
        return value

    def reach(self, axis, value):
        if self.absolute:
            self.place[axis] = value
        elif self.place[axis] is not None:
            self.place[axis] += value

    def lost(self):
        self.place = dict.fromkeys("XYZ")

    def to_known(self, axes):
        words = ["G90"] if not self.absolute or self.chance(0.2) else []
        self.absolute = True
        words += [self.word(axis, self.target(axis)) for axis in axes]
        self.put([*words, "G0"])
        self.mode = "G0"

    def straight(self):
        mode = self.rng.choice(["G0", "G1", "G1"])
        words = [] if mode == self.mode and self.chance(0.7) else [mode]
        words += self.modes()
        if mode == "G1" or self.chance(0.1):
            words += self.feed()
        axes = self.rng.sample("XYZ", self.rng.choice([1, 1, 2, 3]))
        words += [self.word(axis, self.target(axis)) for axis in axes]
        if self.chance(0.08):
            words.append(self.rng.choice(["M8", "M9", *self.pauses()]))
        elif "S1250" not in words and self.chance(0.03):
            words.append("S1500")
        elif "pauses" in self.subjects and self.chance(0.02):
            words += ["G4", "P0.5"]
        self.mode = mode
        self.put(words)

    def modes(self):
        """Codes that act before the movement of their block."""
        words = []
        if self.chance(0.08):
            self.absolute = not self.absolute
            words.append("G90" if self.absolute else "G91")
        if self.chance(0.02) and not self.turned and not self.compensated:
            words += [f"T{self.rng.randrange(1, 4)}", "M6"]
            self.turning = None
        if self.chance(0.04):
            self.turning = self.rng.choice(["M3", "M4"])
            words += [self.turning, "S1250"]
        return words

    def pauses(self):
        return ["M0", "M1", "M7", "M60"] if "pauses" in self.subjects else []

    def beside(self):
        """What does not move."""
        pick = self.rng.randrange(6)
        if pick == 0 and "pauses" in self.subjects:
            self.put(["G4", self.word("P", self.rng.choice([0.5, 1, 2.25, 0]))])
        elif pick == 1:
            self.put([self.rng.choice(["M8", "M9", *self.pauses()])])
        elif pick == 2 and self.cycle not in ("G84", "G74", "G86"):
            self.spindle()
        elif pick == 3:
            self.put([self.rng.choice(["G64", "G61", "G49", "G40", "M48", "(MSG, X5)"])])
        elif pick == 4 and not self.cycle:
            limit = ["D2500"] if self.chance(0.3) else []
            words = [self.rng.choice([["G96", *limit], ["G97"]]), [f"S{self.rng.randrange(50, 400)}"]]
            self.put(sum(words, []))
        else:
            self.fed = True
            self.put([self.word("F", self.drawn(60, 900) if self.per_minute else 1.25)])

    def spindle(self, speed=None):
        drawn = [self.word("S", self.rng.randrange(100, 3000))] if self.chance(0.8) else []
        words = [speed] if speed else drawn
        self.turning = self.rng.choice(["M3", "M3", "M4", "M5"])
        self.put([*words, self.turning])

    def tool(self):
        if self.turned:  # rs274 takes the tool elsewhere in its mind when a zero is turned
            return
        words = ["M6"]
        number = f"T{self.rng.randrange(1, 4)}"
        if self.chance(0.2):
            self.put([number])
        else:
            words.append(number)
        if self.chance(0.5):
            self.turning = self.rng.choice(["M3", "M4"])
            words += [self.turning, "S500"]
        else:
            self.turning = None
        self.put(words)

    def change_plane(self):
        self.plane = self.rng.choice(list(PLANES))
        self.put([self.plane])

    def distance(self):
        self.absolute = not self.absolute
        self.put(["G90" if self.absolute else "G91"])

    def centre_mode(self):
        self.absolute_centre = not self.absolute_centre
        self.put(["G90.1" if self.absolute_centre else "G91.1"])

    def units(self):
        self.inch = not self.inch
        factor = 1 / 25.4 if self.inch else 25.4
        self.place = {axis: at and at * factor for axis, at in self.place.items()}
        words = ["G20" if self.inch else "G21"]
        if self.chance(0.3):  # a length of the block counts in the new unit, its feed in the old one
            axis = self.rng.choice("XYZ")
            words += ["G0", self.word(axis, self.target(axis))]
            self.mode = "G0"
        if self.chance(0.3) and self.per_minute:
            words.append("F150")
            self.fed = True
        self.put(words)

    def feed_mode(self):
        self.per_minute = not self.per_minute
        self.fed = False
        words = ["G94" if self.per_minute else "G95"]
        if self.chance(0.7):
            words += self.feed()
        self.put(words)

    def zero(self):
        self.lost()
        self.system = self.rng.randrange(len(ZEROS)) + 1
        words = [ZEROS[self.system - 1]]
        if self.chance(0.25):
            axes = self.rng.sample("XYZ", 2)
            words += ["G0", *(self.word(axis, self.target(axis)) for axis in axes)]
            self.mode = "G0"
        self.put(words)

    def table(self):
        self.lost()
        kind = self.rng.choice(["L2", "L2", "L20"])
        axes = self.rng.sample("XYZ", self.rng.randrange(4))
        system = self.rng.choice([0, 0, self.system, *range(1, 10)])
        words = ["G10", kind, f"P{system}"]
        words += [self.word(axis, self.drawn(-40, 40)) for axis in axes]
        # rs274 loses the place of the tool when the system in force turns under a shift.
        turns = not (self.shifted and system in (0, self.system))
        if kind == "L2" and turns and (self.chance(0.3) or not axes):
            self.turned = True
            words.append(self.word("R", self.rng.choice([0, 30, 45, 90, -17.5, 123.456])))
        elif not axes:
            words.append("X1")
        self.put(words)

    def shift(self):
        self.lost()
        code = self.rng.choice(["G92", "G92", "G52", "G92.1", "G92.2", "G92.3"])
        words = [code]
        self.shifted = self.shifted or code not in ("G92.1", "G92.2")
        if code in ("G92", "G52"):
            axes = self.rng.sample("XYZ", self.rng.randrange(1, 4))
            words += [self.word(axis, self.drawn(-40, 40)) for axis in axes]
        self.put(words)

    def reference(self):
        words = [self.rng.choice(["G28", "G30"])]
        axes = self.rng.sample("XYZ", self.rng.randrange(4))
        words += [self.word(axis, self.drawn(-20, 20)) for axis in axes]
        self.lost()
        self.put(words)

    def machine(self):
        words = [] if self.absolute else ["G90"]
        self.absolute = True
        mode = self.rng.choice(["G0", "G1"])
        words += ["G53", mode, *(self.feed() if mode == "G1" else [])]
        axes = self.rng.sample("XYZ", self.rng.randrange(1, 4))
        words += [self.word(axis, self.drawn(-60, 60)) for axis in axes]
        self.mode = mode
        self.lost()
        self.put(words)

    def compensation(self):
        """A stretch of what can be under it."""
        if self.plane != "G17":
            return
        self.compensated = True
        self.put([self.rng.choice(["G41", "G42"]), "D1"])
        for _ in range(self.rng.randrange(6)):
            self.rng.choice([self.straight, self.arc] if "arcs" in self.subjects else [self.straight])()
        self.compensated = False
        self.put(["G40"])

    def thread(self):
        if self.turning not in ("M3", "M4"):
            return
        axes = self.rng.choice(["Z", "Z", "ZX", "XYZ"])
        words = [self.word(axis, self.target(axis)) for axis in axes]
        words += ["G33", self.word("K", self.drawn(0.5, 3) or 1)]
        self.mode = "G33"
        self.put(words)

    # Arcs

    def arc(self):
        rng = self.rng
        form = rng.choice(["centre", "centre", "radius", "full"])
        before = self.arc_modes()
        if self.absolute_centre and not (self.absolute and form == "radius"):
            self.known_plane()
        elif self.absolute and form == "centre":
            self.known_plane()
        if form == "radius" and self.absolute:
            self.known_plane()
        mode = rng.choice(["G2", "G3"])
        words = [] if mode == self.mode and self.chance(0.6) else [mode]
        words += before + self.feed()
        words += getattr(self, f"arc_by_{form}")(-1 if mode == "G2" else 1)
        if self.chance(0.25):
            third = PLANES[self.plane][2]
            words.append(self.word(third, self.target(third)))
        if self.chance(0.15):
            words.append(f"P{rng.choice([1, 2, 2, 3])}")
        self.mode = mode
        self.put(words)

    def arc_modes(self):
        words = []
        if not self.compensated and "planes" in self.subjects and self.chance(0.08):
            self.plane = self.rng.choice(list(PLANES))
            words.append(self.plane)
        if self.chance(0.06):
            self.absolute_centre = not self.absolute_centre
            words.append("G90.1" if self.absolute_centre else "G91.1")
        return words

    def known_plane(self):
        axes = PLANES[self.plane][:2]
        if any(self.place[axis] is None for axis in axes):
            self.to_known(axes)

    def angle(self):
        if self.chance(0.4):
            return math.radians(self.rng.choice([90, 180, 270, 120, 240]))
        return math.radians(self.rng.uniform(2, 357))

    def centre_of(self):
        """From the start to the centre."""
        rng = self.rng
        if self.chance(0.3):
            reach = self.drawn(0.5, 50) or 1.0
            return rng.choice([(reach, 0.0), (0.0, reach), (-reach, 0.0), (0.0, -reach)])
        if self.chance(0.05):
            return self.drawn(300, 3000), self.drawn(300, 3000)
        one, other = self.drawn(-40, 40), self.drawn(-40, 40)
        return (one, other) if abs(one) + abs(other) > self.size(0.5) else (self.drawn(2, 9) + 1, 0.0)

    def centre_words(self, offsets):
        axes = PLANES[self.plane][:2]
        words = []
        for axis, offset in zip(axes, offsets):
            if self.absolute_centre:
                words.append(self.word(CENTRES[axis], self.rounded(self.place[axis] + offset)))
            elif offset or self.chance(0.5):
                words.append(self.word(CENTRES[axis], offset))
        return words

    def end_words(self, ways):
        """By the way in both axes of the plane; a word that says nothing may be missing."""
        words, axes = [], PLANES[self.plane][:2]
        for at, (axis, way) in enumerate(zip(axes, ways)):
            last = at == 1 and not words
            if self.absolute:
                value = self.rounded(self.place[axis] + way)
                needed = abs(way) > 1e-9
            else:
                value = self.rounded(way)
                needed = value != 0
            if needed or last or self.chance(0.6):
                self.reach(axis, value)
                words.append(self.word(axis, value))
        return words

    def arc_by_centre(self, turn):
        i, j = self.centre_of()
        angle = self.angle() * turn
        c, s = math.cos(angle), math.sin(angle)
        words = self.centre_words((i, j))
        return words + self.end_words((i - c * i + s * j, j - s * i - c * j))

    def arc_by_full(self, _):
        return self.centre_words(self.centre_of())

    def arc_by_radius(self, turn):
        radius = max(self.drawn(0.5, 60), self.size(0.5))
        if self.chance(0.15):
            ways = self.rng.choice([(2 * radius, 0.0), (0.0, -2 * radius)])
            return [self.word("R", radius), *self.end_words(ways)]
        angle = self.angle()
        while abs(angle - math.pi) < 0.02:
            angle = self.angle()
        chord, heading = 2 * radius * math.sin(angle / 2), self.rng.uniform(0, 2 * math.pi)
        sign = 1 if angle < math.pi else -1
        words = [self.word("R", sign * radius)]
        return words + self.end_words((chord * math.cos(heading), chord * math.sin(heading)))

    # Cycles

    def cycle_start(self):
        rng = self.rng
        first, second, depth = PLANES[self.plane]
        # Outside of XY rs274 taps along another axis than that of the plane.
        code = rng.choice([code for code in CYCLES if self.plane == "G17" or code not in TAPS])
        needed = {"G84": "M3", "G74": "M4"}.get(code, self.turning)
        if code == "G86" and needed not in ("M3", "M4"):
            needed = "M3"
        if needed != self.turning:
            self.turning = needed
            self.put([needed, "S700"])
        words = [code, *self.feed()]
        if self.chance(0.08):
            self.absolute = not self.absolute
            words.append("G90" if self.absolute else "G91")
        if self.absolute:
            clearance = self.drawn(-10, 25)
            bottom = self.rounded(clearance - (self.drawn(1, 20) or 1))
        else:
            clearance = self.drawn(-8, 12)
            bottom = -(self.drawn(1, 20) or 1)
        words += [self.word("R", clearance), self.word(depth, bottom)]
        if code in ("G82", "G86", "G89") or (code in ("G84", "G74") and self.chance(0.3)):
            words.append(self.word("P", rng.choice([0.25, 1, 0.5])))
        if code in ("G83", "G73"):
            # Never a share of the depth: there rs274 may peck once more, by a rounding error.
            words.append(self.word("Q", (abs(self.drawn(2, 9)) or 3) + 7e-6))
        for axis in (first, second):
            if self.chance(0.8):
                words.append(self.word(axis, self.target(axis)))
        if self.chance(0.2) and code != "G74":
            words.append(f"L{rng.randrange(1, 4)}")
        if self.chance(0.4):
            words.append(rng.choice(["G98", "G99"]))
        self.mode, self.cycle = code, code
        self.place[depth] = None
        self.put(words)

    def cycle_again(self):
        axes = self.rng.sample(PLANES[self.plane][:2], self.rng.choice([1, 2]))
        words = [self.word(axis, self.target(axis)) for axis in axes]
        if self.chance(0.1):
            words.append(self.rng.choice(["G98", "G99"]))
        if self.chance(0.15) and self.cycle != "G74":
            words.append(f"L{self.rng.randrange(1, 4)}")
        if self.chance(0.1):
            words.append(self.word("R", self.drawn(10, 25) if self.absolute else self.drawn(0, 9)))
        if self.chance(0.1):
            words.append(self.cycle)
            # A code that comes again wants its numbers anew.
            words = [word for word in words if word[0] != "R"]
            depth = PLANES[self.plane][2]
            words += [self.word("R", self.size(5)), self.word(depth, -self.size(7)), "P1", "Q2.3"]
            keep = {"G73": "Q", "G83": "Q"}.get(self.cycle, "P")
            drop = "PQ".replace(keep, "") + ("P" if self.cycle in ("G81", "G85") else "")
            words = [word for word in words if word[0] not in drop]
        self.put(words)

    def cycle_end(self):
        self.cycle = None
        if self.chance(0.7):
            self.mode = None
            self.put(["G80"])
        else:
            self.mode = None
            self.straight()

    # Blocks that are refused

    def wrong(self):
        """A block that a control refuses in most states; in the others it is one more block."""
        first, second, third = PLANES[self.plane]
        if self.cycle:
            choices = [["G53", "G0", "X1"], [f"{first}1", "L0"], [f"{first}2", "R-500"]]
            self.put(list(self.rng.choice(choices)))
            self.mode = self.cycle = None
            self.put(["G80"])
            return
        one, other, foreign = CENTRES[first], CENTRES[second], CENTRES[third]
        feed = self.feed()
        self.mode = "G2"
        wrong = {
            "arcs": [
                ["G91", "G2", f"{first}30", "R4", *feed],
                ["G91", "G3", f"{first}3", "R20", f"{one}4", *feed],
                ["G91", "G2", f"{first}3", f"{second}1", *feed],
                ["G91", "G91.1", "G2", f"{first}3", f"{one}1.5", f"{foreign}2", *feed],
                ["G91", "G91.1", "G3", f"{first}3", f"{one}1.5", "P0", *feed],
                ["G91", "G91.1", "G3", f"{first}3", f"{one}1.5", "P1.5", *feed],
                ["G91", "G91.1", "G3", f"{first}3", f"{one}1.5", "P-1", *feed],
                ["G91", "G2", f"{first}3", "R0", *feed],
                ["G91", "G91.1", "G3", f"{first}3", f"{one}2", *feed],
                ["G91", "G91.1", "G3", f"{first}9", f"{one}{self.rng.choice(['4.4', '4.49', '4.499'])}"],
                ["G91", "G3", f"{first}0", f"{second}0", "R8", *feed],
                ["G90.1", "G2", f"{one}3", *feed],
                ["G2", "R5", *feed],
                ["G95", "G3", f"{one}3"],
            ],
            "machine": [
                ["G91", "G53", "G0", "X1"],
                ["G90", "G53", "X1"] if self.chance(0.5) else ["G80", "G53"],
                ["G28", "G0", "X1"],
            ],
            "pauses": [
                ["G4"],
                ["G4", "P-1"],
                ["G4", "P1", "G2", f"{one}3", *feed],
            ],
            "": [
                ["G94", "G1", "X1"],
                ["G80", "X1"],
                ["G0", "G1", "X1", *feed],
            ],
            "cycles": [
                ["G90", "G81", f"{first}1", f"{second}1", f"{third}-3", *feed],
                ["G90", "G81", f"{first}1", "R2", *feed],
                ["G90", "G82", f"{first}1", "R2", f"{third}-3", *feed],
                ["G90", "G83", f"{first}1", "R2", f"{third}-3", *feed],
                ["G90", "G73", f"{first}1", "R2", f"{third}-3", "Q-1", *feed],
                ["G90", "G83", f"{first}1", "R2", f"{third}-3", "Q0", *feed],
                ["G90", "G81", f"{first}1", "R2", f"{third}3", *feed],
                ["G90", "G81", f"{first}1", "R2", f"{third}-3", "L0", *feed],
                ["M5", "G84", f"{first}1", "R2", f"{third}-3", *feed],
                ["M4", "G84", f"{first}1", "R2", f"{third}-3", *feed],
                ["M3", "G74", f"{first}1", "R2", f"{third}-3", *feed],
            ],
            "zeros": [
                ["G10", "L2", "X1"],
                ["G10", "P1", "X1"],
                ["G10", "L2", "P10", "X1"],
                ["G10", "L2", "P1.5", "X1"],
                ["G92"],
                ["G52"],
                ["G80", "G92", "X1", "G0"],
                ["G54", "G55"],
            ],
            "planes": [
                ["G17", "G18"],
            ],
            "threads": [
                ["G33", "Z3"],
                ["G33", "K3"],
            ],
        }
        choices = [row for subject in ("", *self.subjects) for row in wrong.get(subject, ())]
        block = list(self.rng.choice(choices))
        if "G91" in block:
            self.absolute = False
        self.put(block)
        self.lost()
        self.mode = None
        self.cycle = None
        self.put(["G80"])


def program(seed, subjects=SUBJECTS):
    return Writer(seed, subjects).program()
