"""Random programs in an abstract form, printed in the three families of languages that compute.

    threeLanguages.py QUILLMARK DIALECTS COUNT [--seed N] [--judge] [--keep FOLDER]

quillmark has to make the same movements of all three, those that running the abstract form gives,
and with --judge those that rs274 makes of the o-word text. Values stay away from where a tiny
change of them turns the path: conditions, indices and counts compare whole numbers, arguments keep
their distance from poles, and the error of every value is bounded where it is made. Before the
programs, faults planted into texts have to be found. Exits with 1 at differences; --keep stores the
texts of those there."""

import argparse
import collections
import math
import multiprocessing
import os
import random
import sys
import tempfile
import zlib

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "path"))

import aptReader  # noqa: E402
import canonReader  # noqa: E402
import runs  # noqa: E402
import steps  # noqa: E402

MOST_STEPS = 1500  # of a run of the abstract form: larger programs are drawn again
MOST_LENGTH = 250  # of an o-word line
MOST_SHOWN = 5
COMPUTED_GRAIN = 0.4e-5  # with that of an APT source one unit of its last digit
WHOLE, REAL = 200, 500  # bounds of the magnitude of variables
ARRAY, ARRAY_SIZE = 20, 8  # global variables that are reached by computed numbers
FAULTS = 1e-9  # bound of the error of a value

# Variables: ("global", n), ("local", n) of the main program or a subprogram, ("argument", n).
# Expressions: ("number", text), ("variable", variable), ("array", index), ("minus", e),
# (operator, a, b), (function, a[, b]).
# Conditions: (comparison, a, b), ("and"|"or"|"xor", c, d).
# Bound is the largest magnitude of an expression, error that of its error.
Drawn = collections.namedtuple("Drawn", "tree bound error")
Program = collections.namedtuple("Program", "main subprograms")
Subprogram = collections.namedtuple("Subprogram", "number arguments locals body shares")

OPPOSITE = {"eq": "ne", "ne": "eq", "gt": "le", "le": "gt", "lt": "ge", "ge": "lt"}

# ---------------------------------------------------------------------------------------------
# Drawing


class Writer:
    """Draws one program."""

    def __init__(self, seed):
        self.rng = random.Random(seed)
        # A fault of rs274: a break out of a while ends the next do after one pass.
        self.breaks = self.rng.random() < 0.5
        self.loops = 0

    # Expressions

    def number(self, bound=40, whole=False):
        rng = self.rng
        if whole or rng.random() < 0.4:
            text = str(rng.randrange(int(bound) + 1))
        else:
            text = f"{rng.uniform(0, bound):.{rng.randrange(1, 6)}f}"
        return Drawn(("number", text), float(text), 0.0 if whole else abs(float(text)) * 1e-16)

    def whole_variable(self):
        rng = self.rng
        pick = rng.random()
        if pick < 0.25:
            index = self.remainder(self.whole(1), ARRAY_SIZE)
            return Drawn(("array", index.tree), WHOLE, 0.0)
        return Drawn(("variable", rng.choice(self.wholes)), WHOLE, 0.0)

    def whole(self, depth):
        """A whole number, exact."""
        rng = self.rng
        if depth <= 0 or rng.random() < 0.3:
            return self.whole_variable() if rng.random() < 0.7 else self.number(20, True)
        pick = rng.random()
        if pick < 0.6:
            return self.binary(rng.choice("+-*"), self.whole(depth - 1), self.whole(depth - 1))
        if pick < 0.75:
            return self.remainder(self.whole(depth - 1), rng.randrange(2, 30))
        if pick < 0.85:
            part = self.whole(depth - 1)
            return Drawn(("minus", part.tree), part.bound, 0.0)
        return self.rounded(depth - 1)

    def rounded(self, depth):
        """Quarters are exact, so that halves are rounded alike everywhere; the floor and the cut
        toward zero are the same where nothing is negative."""
        quarters = self.binary("/", self.whole(depth), Drawn(("number", "4"), 4, 0.0))
        if self.rng.random() < 0.5:
            return Drawn(("round", quarters.tree), quarters.bound + 1, 0.0)
        return Drawn(("fix", ("abs", quarters.tree)), quarters.bound + 1, 0.0)

    def remainder(self, dividend, divisor):
        """Families differ in the sign of a remainder: the dividend has none."""
        return Drawn(("mod", ("abs", dividend.tree), ("number", str(divisor))), divisor, 0.0)

    def binary(self, operator, a, b):
        bound, error = {
            "+": (a.bound + b.bound, a.error + b.error),
            "-": (a.bound + b.bound, a.error + b.error),
            "*": (a.bound * b.bound, a.error * b.bound + b.error * a.bound),
            "/": (a.bound, a.error + a.bound * b.error),  # b is 1 or more
        }[operator]
        tree = (operator, a.tree, b.tree)
        return Drawn(tree, bound, error and error + bound * 2e-16)

    def real(self, depth):
        rng = self.rng
        if depth <= 0 or rng.random() < 0.2:
            pick = rng.random()
            if pick < 0.45 and self.reals:
                return Drawn(("variable", rng.choice(self.reals)), REAL, FAULTS / 100)
            return self.number() if pick < 0.7 else self.whole_variable()
        a = self.real(depth - 1)
        pick = rng.random()
        if pick < 0.35:
            drawn = self.binary(rng.choice("+-*"), a, self.real(depth - 1))
        elif pick < 0.45:
            drawn = self.binary("/", a, self.apart(self.real(depth - 1)))
        elif pick < 0.5:
            drawn = Drawn(("minus", a.tree), a.bound, a.error)
        elif pick < 0.55:
            drawn = self.rounded(1)
        else:
            drawn = self.call(a, depth)
        # What grew too large or inexact is not worth mending.
        return drawn if drawn.bound < 1e6 and drawn.error < FAULTS else self.whole_variable()

    def apart(self, drawn, distance="1"):
        """A value of at least 1."""
        return Drawn(
            ("+", ("abs", drawn.tree), ("number", distance)), drawn.bound + 1, drawn.error + 1e-15
        )

    def within(self, drawn, factor):
        """A value between -factor and factor."""
        error = (drawn.error / 50 + 1e-15 * (1 + drawn.bound / 50)) * factor
        return Drawn(("*", ("sin", drawn.tree), ("number", str(factor))), factor, error)

    def call(self, a, depth):
        name = self.rng.choice(
            ["sin", "cos", "tan", "asin", "acos", "atan", "sqrt", "abs", "ln", "exp", "square"]
        )
        if name in ("sin", "cos"):
            return Drawn((name, a.tree), 1, a.error / 50 + 1e-15 * (1 + a.bound / 50))
        if name == "tan":
            a = self.within(a, 80)
            return Drawn((name, a.tree), 6, a.error + 1e-14)
        if name in ("asin", "acos"):
            a = self.within(a, 0.9)
            return Drawn((name, a.tree), 180, a.error * 140 + 1e-13)
        if name == "atan":
            b = self.apart(self.real(depth - 1))
            return Drawn((name, a.tree, b.tree), 90, (a.error + b.error) * 60 + 1e-13)
        if name == "exp":
            a = self.within(a, 4)
            return Drawn((name, a.tree), 55, a.error * 55 + 1e-13)
        if name == "square":
            return Drawn((name, a.tree), a.bound**2, 2 * a.bound * a.error + a.bound**2 * 4e-16)
        if name == "abs":
            return Drawn((name, a.tree), a.bound, a.error)
        a = self.apart(a)
        return Drawn((name, a.tree), a.bound, a.error + 1e-14)

    def coordinate(self):
        drawn = self.real(self.rng.randrange(4))
        return drawn.tree if drawn.bound < 5000 else self.within(drawn, 90).tree

    def length(self):
        """Of 1 or more."""
        return self.apart(self.real(1)).tree

    def condition(self, depth=1):
        rng = self.rng
        if depth and rng.random() < 0.35:
            parts = self.condition(depth - 1), self.condition(depth - 1)
            return (rng.choice(["and", "or", "xor"]), *parts)
        parts = [self.whole(1).tree, self.whole(1).tree]
        if rng.random() < 0.4:
            parts[1] = self.number(9, True).tree
        return (rng.choice(list(OPPOSITE)), *parts)

    # Statements

    def assignment(self):
        rng = self.rng
        if rng.random() < 0.5:
            drawn = self.remainder(self.whole(2), rng.randrange(2, WHOLE))
            tree = drawn.tree
            if rng.random() < 0.4:
                tree = ("-", tree, ("number", str(rng.randrange(1, 90))))
            if rng.random() < 0.3:
                index = self.remainder(self.whole(1), ARRAY_SIZE).tree
                return ("assign", ("array", index), tree)
            return ("assign", ("variable", rng.choice(self.writable)), tree)
        if not self.reals:
            return self.movement()
        drawn = self.real(3)
        # A level of error per variable would be tedious: a value made of variables is kept small.
        while drawn.bound >= REAL or drawn.error > FAULTS / 100 or self.reads_reals(drawn.tree):
            drawn = self.whole(1) if drawn.bound >= 1e4 else self.within(self.whole(2), 70)
            if drawn.bound >= REAL:
                drawn = self.within(drawn, 70)
        tree = drawn.tree
        target = ("variable", rng.choice(self.reals))
        if rng.random() < 0.3:
            tree = ("+", ("*", target, ("number", "0.5")), ("/", tree, ("number", "4")))
        return ("assign", target, tree)

    def reads_reals(self, tree):
        """Whether a value passes an error on from real variables, which would grow in loops."""
        if tree[0] == "variable":
            return tree[1] in self.reals
        return any(isinstance(part, tuple) and self.reads_reals(part) for part in tree[1:])

    def movement(self):
        rng = self.rng
        if rng.random() < 0.2:
            shape = rng.choice(["half", "quarter"])
            lengths = (self.length(), self.length() if shape == "half" else None)
            return ("arc", rng.choice(["clockwise", "counter-clockwise"]), shape, *lengths)
        axes = rng.sample("XYZ", rng.randrange(1, 4))
        words = tuple((axis, self.coordinate()) for axis in sorted(axes))
        incremental = rng.random() < 0.3
        if rng.random() < 0.15:
            return ("move", self.remainder(self.whole(1), 2).tree, words, incremental)
        return ("move", rng.choice(["rapid", "feed"]), words, incremental)

    def block(self, depth):
        return tuple(self.statement(depth) for _ in range(self.rng.randrange(1, 4)))

    def statement(self, depth):
        rng = self.rng
        pick = rng.random()
        if depth <= 0 or pick < 0.5:
            return self.movement() if rng.random() < 0.5 else self.assignment()
        if pick < 0.65:
            count = rng.randrange(1, 4)
            branches = [(self.condition(), self.block(depth - 1)) for _ in range(count)]
            return ("if", tuple(branches), self.block(depth - 1) if rng.random() < 0.5 else None)
        if pick < 0.72:
            values = rng.sample(range(6), rng.randrange(1, 4))
            branches = tuple((value, self.block(depth - 1)) for value in values)
            default = self.block(depth - 1) if rng.random() < 0.6 else None
            return ("case", self.remainder(self.whole(1), 6).tree, branches, default)
        if pick < 0.88:
            return self.loop(depth)
        if self.callable:
            return self.calling()
        return self.movement()

    def loop(self, depth):
        rng = self.rng
        kind = rng.choice(["while", "repeat"] + ["do"] * (not self.breaks))
        count = self.remainder(self.whole(1), 4).tree if rng.random() < 0.5 else (
            "number", str(rng.randrange(4)))
        counter = self.counter()
        body = list(self.block(depth - 1))
        if kind == "while" and self.breaks and rng.random() < 0.5:
            leave = (rng.choice(["break", "continue"]), self.condition(0))
            body.insert(rng.randrange(len(body) + 1), leave)
        return (kind, counter, count, tuple(body))

    def counter(self):
        """A variable that only its loop writes."""
        self.loops += 1
        if self.shares:
            return ("global", 50 + self.loops)
        self.locals += 1
        return ("local", self.locals - 1)

    def calling(self):
        subprogram = self.rng.choice(self.callable)
        values = []
        if subprogram.arguments:
            values.append(("number", str(self.rng.randrange(4))))
            for _ in range(subprogram.arguments - 1):
                values.append(self.remainder(self.whole(1), 50).tree)
        times = 1 if subprogram.arguments or self.rng.random() < 0.5 else self.rng.randrange(2, 4)
        return ("call", subprogram.number, tuple(values), times)

    def subprogram(self, number):
        """The first argument counts the calls of itself that are allowed."""
        rng = self.rng
        self.shares = rng.random() < 0.3
        arguments = 0 if self.shares else rng.randrange(1, 6)
        self.locals = 0
        self.wholes = [("global", n) for n in range(10)]
        self.writable = self.wholes[:]
        self.reals = [("global", n) for n in range(10, 16)]
        setting = ()
        if not self.shares:
            self.wholes += [("argument", n) for n in range(arguments)]
            self.writable += [("argument", n) for n in range(1, arguments)]
            self.locals = 2
            setting = tuple(
                ("assign", ("variable", ("local", n)), self.remainder(self.whole(1), 40).tree)
                for n in range(2)
            )
            self.wholes += [("local", 0), ("local", 1)]
            self.writable += [("local", 0), ("local", 1)]
        body = list(setting + self.block(2))
        if rng.random() < 0.4:
            body.insert(rng.randrange(len(setting), len(body) + 1), ("return", self.condition(0)))
        if not self.shares and rng.random() < 0.5:
            values = [("-", ("variable", ("argument", 0)), ("number", "1"))]
            values += [self.remainder(self.whole(1), 50).tree for _ in range(arguments - 1)]
            again = ("call", number, tuple(values), 1)
            goes_on = ("gt", ("variable", ("argument", 0)), ("number", "0"))
            after = self.block(0) if rng.random() < 0.5 else ()
            body.append(("if", ((goes_on, self.block(0) + (again,) + after),), None))
        return Subprogram(number, arguments, self.locals, tuple(body), self.shares)

    def program(self):
        rng = self.rng
        self.callable = []
        subprograms = []
        for number in range(rng.randrange(4)):
            subprograms.append(self.subprogram(number))
            self.callable.append(subprograms[-1])
        self.shares, self.locals = False, 0
        self.wholes = [("global", n) for n in range(10)]
        self.writable = self.wholes[:]
        self.reals = [("global", n) for n in range(10, 16)]
        setting = [("variable", ("global", n)) for n in range(16)]
        setting += [("array", ("number", str(n))) for n in range(ARRAY_SIZE)]
        start = [("assign", target, self.number(40, k not in range(10, 16)).tree)
                 for k, target in enumerate(setting)]
        start.append(("move", "rapid", (("X", ("number", "1.5")), ("Y", self.coordinate())), False))
        body = tuple(self.statement(3) for _ in range(rng.randrange(4, 12)))
        main = Subprogram(None, 0, 0, tuple(start) + body, False)
        return Program(main._replace(locals=self.locals), tuple(subprograms))


# ---------------------------------------------------------------------------------------------
# Running the abstract form


class TooLong(Exception):
    pass


class Leave(Exception):
    pass


class Run:
    """Runs a program; `moves` is what it makes."""

    def __init__(self, program):
        self.program = program
        self.globals = {}
        self.place = [0.0, 0.0, 0.0]
        self.moves = []
        self.steps = 0
        self.enter(program.main, ())

    def enter(self, subprogram, values):
        before = getattr(self, "frame", None)
        self.frame = {("argument", n): value for n, value in enumerate(values)}
        try:
            self.block(subprogram.body)
        except Leave as leave:
            if leave.args[0] != "return":
                raise
        self.frame = before

    def pool(self, target):
        if target[0] == "array":
            return self.globals, ("global", ARRAY + int(self.value(target[1])))
        return (self.globals if target[1][0] == "global" else self.frame), target[1]

    def value(self, tree):
        kind = tree[0]
        if kind == "number":
            return float(tree[1])
        if kind in ("variable", "array"):
            pool, key = self.pool(tree)
            return pool[key]
        return COMPUTED[kind](*map(self.value, tree[1:]))

    def holds(self, condition):
        return bool(LOGIC[condition[0]](*map(
            self.holds if condition[0] in ("and", "or", "xor") else self.value, condition[1:])))

    def block(self, statements):
        for statement in statements:
            self.steps += 1
            if self.steps > MOST_STEPS:
                raise TooLong
            getattr(self, "do_" + statement[0])(*statement[1:])

    def do_assign(self, target, tree):
        value = self.value(tree)
        pool, key = self.pool(target)
        pool[key] = value

    def do_if(self, branches, otherwise):
        for condition, body in branches:
            if self.holds(condition):
                return self.block(body)
        return self.block(otherwise or ())

    def do_case(self, tree, branches, otherwise):
        value = self.value(tree)
        return self.block(dict(branches).get(int(value), otherwise or ()))

    def turns(self, counter, count, body, at_least):
        key = counter
        pool = self.globals if counter[0] == "global" else self.frame
        pool[key] = 0.0
        while at_least or pool[key] < self.value(count):
            at_least = False
            pool[key] += 1
            try:
                self.block(body)
            except Leave as leave:
                if leave.args[0] == "break":
                    break
                if leave.args[0] == "return":
                    raise

    def do_while(self, counter, count, body):
        self.turns(counter, count, body, False)

    def do_do(self, counter, count, body):
        self.turns(counter, count, body, True)

    def do_repeat(self, counter, count, body):
        for _ in range(int(self.value(count))):
            self.block(body)

    def do_break(self, condition):
        if self.holds(condition):
            raise Leave("break")

    def do_continue(self, condition):
        if self.holds(condition):
            raise Leave("continue")

    def do_return(self, condition):
        if self.holds(condition):
            raise Leave("return")

    def do_call(self, number, values, times):
        subprogram = self.program.subprograms[number]
        values = [self.value(value) for value in values]
        for _ in range(times):
            self.enter(subprogram, values)

    def do_move(self, kind, words, incremental):
        if isinstance(kind, tuple):
            kind = ["rapid", "feed"][int(self.value(kind))]
        for axis, tree in words:
            at = "XYZ".index(axis)
            value = self.value(tree)
            self.place[at] = self.place[at] + value if incremental else value
        self.move(kind, None)

    def do_arc(self, turn, shape, first, second):
        i, j, dx, dy = arc_words(turn, shape)
        lengths = self.value(first), second and self.value(second)
        start = tuple(self.place)
        centre = (start[0] + i(*lengths), start[1] + j(*lengths), start[2])
        self.place[0] += dx(*lengths)
        self.place[1] += dy(*lengths)
        normal = (0.0, 0.0, -1.0 if turn == "clockwise" else 1.0)
        self.move("arc", steps.arc_to(start, tuple(self.place), centre, normal, 1, 0.0))

    def move(self, kind, arc):
        start = self.moves[-1].place if self.moves else (0.0, 0.0, 0.0)
        state = (None, steps.UNKNOWN, (), COMPUTED_GRAIN)
        self.moves.append(steps.Step(kind, tuple(self.place), start, arc, *state))


def arc_words(turn, shape):
    """I, J and the way in X and Y of half a turn about (a, b), or a quarter about (a, 0)."""
    if shape == "half":
        return (lambda a, b: a), (lambda a, b: b), (lambda a, b: 2 * a), (lambda a, b: 2 * b)
    sign = 1 if turn == "clockwise" else -1
    return (lambda a, b: a), (lambda a, b: 0.0), (lambda a, b: a), (lambda a, b: sign * a)


def half_away(value):
    return math.copysign(math.floor(abs(value) + 0.5), value)


COMPUTED = {
    "minus": lambda a: -a,
    "+": lambda a, b: a + b,
    "-": lambda a, b: a - b,
    "*": lambda a, b: a * b,
    "/": lambda a, b: a / b,
    "mod": math.fmod,
    "sin": lambda a: math.sin(a * math.pi / 180),
    "cos": lambda a: math.cos(a * math.pi / 180),
    "tan": lambda a: math.tan(a * math.pi / 180),
    "asin": lambda a: math.asin(a) * 180 / math.pi,
    "acos": lambda a: math.acos(a) * 180 / math.pi,
    "atan": lambda a, b: math.atan2(a, b) * 180 / math.pi,
    "sqrt": math.sqrt,
    "abs": abs,
    "ln": math.log,
    "exp": math.exp,
    "square": lambda a: a * a,
    "round": half_away,
    "fix": lambda a: float(math.floor(a)),
}
LOGIC = {
    "and": lambda a, b: a and b,
    "or": lambda a, b: a or b,
    "xor": lambda a, b: a != b,
    "eq": lambda a, b: a == b,
    "ne": lambda a, b: a != b,
    "gt": lambda a, b: a > b,
    "ge": lambda a, b: a >= b,
    "lt": lambda a, b: a < b,
    "le": lambda a, b: a <= b,
}

# ---------------------------------------------------------------------------------------------
# Printing

SUM, PRODUCT, OPERAND = 1, 2, 3


class Printer:
    """What the three have in common. `files` holds the texts by the names of their files, the main
    program's as "". `plant` moves the first point of the main program."""

    brackets = "[]"
    functions = {}

    def __init__(self, program, seed, plant=False):
        self.rng = random.Random(seed)
        self.program = program
        self.files = {}
        self.lines = []
        self.marks = 0
        self.plant = False
        self.plants = plant
        self.scope = None
        self.beside = {part.number for part in program.subprograms if self.rng.random() < 0.3}
        self.print_program()

    def put(self, line):
        self.lines.append(line)

    def mark(self):
        self.marks += 1
        return self.marks

    def bracket(self, text):
        return self.brackets[0] + text + self.brackets[1]

    # Expressions, with the brackets that they need and now and then more

    def expression(self, tree, level=SUM):
        kind = tree[0]
        if kind in ("+", "-"):
            own, text = SUM, self.joined(tree, SUM)
        elif kind in ("*", "/", "mod"):
            own, text = PRODUCT, self.joined(tree, PRODUCT)
        else:
            own, text = OPERAND, self.operand(tree)
        return self.bracket(text) if own < level or self.rng.random() < 0.05 else text

    def joined(self, tree, own):
        sign = " MOD " if tree[0] == "mod" else tree[0]
        return self.expression(tree[1], own) + sign + self.expression(tree[2], own + 1)

    def operand(self, tree):
        kind = tree[0]
        if kind == "number":
            return tree[1]
        if kind == "variable":
            return self.variable(tree[1])
        if kind == "array":
            return self.indexed(("+", ("number", str(100 + ARRAY)), tree[1]))
        if kind == "minus":
            # Two signs in a row are not for every reader.
            part = self.expression(tree[1], OPERAND)
            return "-" + (self.bracket(part) if part[0] == "-" else part)
        return self.called(kind, [self.expression(part) for part in tree[1:]])

    def called(self, kind, parts):
        return f"{self.functions.get(kind, kind.upper())}{self.bracket(','.join(parts))}"

    def comparison(self, condition):
        sign, a, b = condition
        return f"{self.expression(a)} {self.sign(sign)} {self.expression(b)}"

    def sign(self, sign):
        return sign.upper()

    def condition(self, tree):
        """Comparisons stand in brackets where the family or several AND, OR and XOR want it."""
        if tree[0] not in ("and", "or", "xor"):
            return self.comparison(tree)
        parts = [self.condition(part) for part in tree[1:]]
        if not self.plain_logic or any(part[0] in ("and", "or", "xor") for part in tree[1:]):
            parts = [self.bracket(part) for part in parts]
        return f"{parts[0]} {tree[0].upper()} {parts[1]}"

    plain_logic = True  # comparisons come before logic without brackets

    # Statements

    def block(self, statements):
        for statement in statements:
            getattr(self, "put_" + statement[0])(*statement[1:])

    def put_move(self, kind, words, incremental):
        code = self.code(kind)
        texts = []
        for axis, tree in words:
            if self.plant:
                tree = ("+", tree, ("number", "0.001"))
                self.plant = False
            texts.append(self.word(axis, tree))
        start = f"{self.blank()}G91{self.blank()}" if incremental else ""
        self.put(start + code + self.blank() + " ".join(texts))
        if incremental:
            self.put("G90")

    def code(self, kind):
        if isinstance(kind, tuple):
            return self.word("G", kind)
        return {"rapid": "G0", "feed": "G1"}[kind]

    def blank(self):
        return " "

    def put_arc(self, turn, shape, first, second):
        twice = lambda tree: ("*", ("number", "2"), tree)
        if shape == "half":
            words = {"X": twice(first), "Y": twice(second), "I": first, "J": second}
        else:
            end = first if turn == "clockwise" else ("minus", first)
            words = {"X": first, "Y": end, "I": first}
        code = "G2" if turn == "clockwise" else "G3"
        texts = [self.word(letter, tree) for letter, tree in words.items()]
        self.put(" ".join(["G91", code, *texts]))
        self.put("G90")

    def put_program(self, subprogram):
        self.scope = subprogram
        self.plant = self.plants and subprogram is self.program.main
        self.block(subprogram.body)

    def texts(self):
        return {name: "\n".join(lines) + "\n" for name, lines in self.files.items()}

    def into(self, name):
        self.lines = self.files.setdefault(name, [])


class OWord(Printer):
    file = "part.ngc"

    def variable(self, variable):
        kind, number = variable
        if kind == "global":
            return f"#{100 + number}"
        if kind == "argument":
            return f"#{number + 1}"
        return f"#<local{number}>" if self.scope.number is None or number % 2 else f"#{15 + number}"

    def indexed(self, tree):
        return f"#{self.bracket(self.expression(tree))}"

    def called(self, kind, parts):
        if kind == "atan":
            return f"ATAN[{parts[0]}]/[{parts[1]}]"
        if kind == "square":
            return f"[[{parts[0]}]**2]"
        return super().called(kind, parts)

    plain_logic = False  # fully bracketed

    def word(self, letter, tree):
        if tree[0] in ("number", "variable", "array"):
            return letter + self.operand(tree)
        return letter + self.bracket(self.expression(tree))

    def label(self):
        return f"o{1000 + self.mark()}"

    def put(self, line):
        self.lines.append(line.lower() if self.rng.random() < 0.5 else line)

    def put_assign(self, target, tree):
        self.put(f"{self.operand(target)} = {self.bracket(self.expression(tree))}")

    def put_if(self, branches, otherwise):
        label = self.label()
        word = "if"
        for condition, body in branches:
            self.put(f"{label} {word} [{self.condition(condition)}]")
            self.block(body)
            word = "elseif"
        if otherwise is not None:
            self.put(f"{label} else")
            self.block(otherwise)
        self.put(f"{label} endif")

    def put_case(self, tree, branches, otherwise):
        self.put_if([(("eq", tree, ("number", str(value))), body) for value, body in branches],
                    otherwise)

    def step(self, counter):
        name = self.variable(counter)
        self.put(f"{name}=[{name}+1]")

    def put_while(self, counter, count, body):
        label = self.label()
        self.put(f"{self.variable(counter)}=0")
        self.put(f"{label} while [{self.comparison(('lt', ('variable', counter), count))}]")
        self.step(counter)
        outer, self.loop = getattr(self, "loop", None), label
        self.block(body)
        self.loop = outer
        self.put(f"{label} endwhile")

    def put_do(self, counter, count, body):
        label = self.label()
        self.put(f"{self.variable(counter)}=0")
        self.put(f"{label} do")
        self.step(counter)
        self.block(body)
        self.put(f"{label} while [{self.comparison(('lt', ('variable', counter), count))}]")

    def put_repeat(self, counter, count, body):
        label = self.label()
        self.put(f"{label} repeat [{self.expression(count)}]")
        self.block(body)
        self.put(f"{label} endrepeat")

    def guarded(self, condition, line):
        label = self.label()
        self.put(f"{label} if [{self.condition(condition)}]")
        self.put(line)
        self.put(f"{label} endif")

    def put_break(self, condition):
        self.guarded(condition, f"{self.loop} break")

    def put_continue(self, condition):
        self.guarded(condition, f"{self.loop} continue")

    def put_return(self, condition):
        leave = "m99" if self.by_number(self.scope) else f"o<part{self.scope.number}> return"
        self.guarded(condition, leave)

    def by_number(self, subprogram):
        """M98 shares variables; inside of a branch rs274 does not return with M99."""
        return subprogram.shares and not self.has_return(subprogram)

    @staticmethod
    def has_return(subprogram):
        return any(statement[0] == "return" for statement in subprogram.body)

    def put_call(self, number, values, times):
        subprogram = self.program.subprograms[number]
        if self.by_number(subprogram):
            self.put(f"m98 p{200 + number}" + (f" l{times}" if times > 1 else ""))
            return
        arguments = " ".join(f"[{self.expression(value)}]" for value in values)
        for _ in range(times):
            self.put(f"o<part{number}> call {arguments}".strip())

    def print_program(self):
        if any(map(self.by_number, self.program.subprograms)):
            self.beside = set()  # rs274 looks for numbers in the file of the call alone
        self.into("")
        for part in self.program.subprograms:
            if self.by_number(part):
                continue
            self.into(f"part{part.number}.ngc" if part.number in self.beside else "")
            self.put(f"o<part{part.number}> sub")
            self.put_program(part)
            self.put(f"o<part{part.number}> endsub")
            if part.number in self.beside:
                self.put("m2")
        self.into("")
        self.put("G21 G17 G90 F100")
        self.put_program(self.program.main)
        self.put("M2")
        for part in reversed(self.program.subprograms):  # rs274 looks behind the call alone
            if self.by_number(part):
                self.put(f"o{200 + part.number}")
                self.put_program(part)
                self.put("m99")


class Hash(Printer):
    file = "part.nc"
    # Arguments A to E, and local variables that are none.
    arguments = [("A", 1), ("B", 2), ("C", 3), ("D", 7), ("E", 8)]

    def variable(self, variable):
        kind, number = variable
        if kind == "global":
            return f"#{100 + number}"
        if kind == "argument":
            return f"#{self.arguments[number][1]}"
        return f"#{14 + number}" if self.scope.number is not None else f"#{180 + number}"

    def indexed(self, tree):
        return f"#{self.bracket(self.expression(tree))}"

    def called(self, kind, parts):
        if kind == "atan":
            join = "]/[" if self.rng.random() < 0.5 else ","
            return f"ATAN[{join.join(parts)}]"
        if kind == "square":
            return f"POW[{parts[0]},2]"
        return super().called(kind, parts)

    def put(self, line):
        # Blanks mean nothing.
        self.lines.append(line.replace(" ", "") if self.rng.random() < 0.4 else line)

    word = OWord.word

    def put_assign(self, target, tree):
        self.put(f"{self.operand(target)}={self.expression(tree)}")

    def go(self, number, condition=None):
        self.put((f"IF[{self.condition(condition)}]" if condition else "") + f"GOTO {number}")

    def label(self):
        return 1000 + self.mark()

    def here(self, number):
        self.put(f"N{number}")

    def put_if(self, branches, otherwise):
        end = self.label()
        for condition, body in branches:
            if len(branches) == 1 and otherwise is None and len(body) == 1:
                statement = body[0]
                if statement[0] == "assign" and self.rng.random() < 0.5:
                    target = self.operand(statement[1])
                    self.put(f"IF[{self.condition(condition)}]THEN "
                             f"{target}={self.expression(statement[2])}")
                    return
            other = self.label()
            self.go(other, negated(condition))
            self.block(body)
            self.go(end)
            self.here(other)
        self.block(otherwise or ())
        self.here(end)

    def put_case(self, tree, branches, otherwise):
        end = self.label()
        targets = [(self.label(), value, body) for value, body in branches]
        for label, value, _ in targets:
            self.go(label, ("eq", tree, ("number", str(value))))
        self.block(otherwise or ())
        self.go(end)
        for label, _, body in targets:
            self.here(label)
            self.block(body)
            self.go(end)
        self.here(end)

    def set_counter(self, counter):
        name = self.variable(counter)
        self.put(f"{name}=0")
        return name

    depth = 0

    def put_while(self, counter, count, body):
        name = self.set_counter(counter)
        self.depth += 1
        outer, self.loop = getattr(self, "loop", None), (self.label(), self.label())
        self.put(f"WHILE[{self.comparison(('lt', ('variable', counter), count))}]DO {self.depth}")
        self.put(f"{name}={name}+1")
        self.block(body)
        self.here(self.loop[0])
        self.put(f"END {self.depth}")
        self.here(self.loop[1])
        self.depth -= 1
        self.loop = outer

    def put_do(self, counter, count, body):
        name = self.set_counter(counter)
        start = self.label()
        self.here(start)
        self.put(f"{name}={name}+1")
        self.block(body)
        self.go(start, ("lt", ("variable", counter), count))

    def put_repeat(self, counter, count, body):
        """The count is taken once, into a variable that counts down."""
        name = self.variable(counter)
        self.put(f"{name}={self.expression(count)}")
        self.depth += 1
        self.put(f"WHILE[{name} GT 0]DO {self.depth}")
        self.put(f"{name}={name}-1")
        self.block(body)
        self.put(f"END {self.depth}")
        self.depth -= 1

    def put_break(self, condition):
        self.go(self.loop[1], condition)

    def put_continue(self, condition):
        self.go(self.loop[0], condition)

    def put_return(self, condition):
        on = self.label()
        self.go(on, negated(condition))
        self.put("M99")
        self.here(on)

    def put_call(self, number, values, times):
        program = 2000 + number
        if self.program.subprograms[number].shares:
            packed = self.rng.random() < 0.3
            count = "" if times == 1 else f" L{times}"
            self.put(f"M98 P{times}{program}" if packed else f"M98 P{program}{count}")
            return
        words = [self.word(self.arguments[k][0], value) for k, value in enumerate(values)]
        self.put(" ".join([f"G65 P{program}", *words]))

    def print_program(self):
        self.into("")
        self.put("O0001 (RANDOM)")
        self.put("G21 G17 G90 F100.")
        self.put_program(self.program.main)
        self.put("M30")
        for part in self.program.subprograms:
            self.into(f"O{2000 + part.number}.nc" if part.number in self.beside else "")
            self.put(f"O{2000 + part.number}")
            self.put_program(part)
            self.put("M99")


def negated(condition):
    kind = condition[0]
    if kind in OPPOSITE:
        return (OPPOSITE[kind], *condition[1:])
    if kind == "xor":
        return (kind, negated(condition[1]), condition[2])
    return ("or" if kind == "and" else "and", *map(negated, condition[1:]))


class RParameter(Printer):
    file = "PART.MPF"
    brackets = "()"
    functions = {"atan": "ATAN2", "square": "POT", "fix": "TRUNC"}
    signs = {"eq": "==", "ne": "<>", "gt": ">", "ge": ">=", "lt": "<", "le": "<="}

    def sign(self, sign):
        return self.signs[sign]

    def condition(self, tree):
        if self.rng.random() < 0.1:
            return f"NOT ({super().condition(negated(tree))})"
        return super().condition(tree)

    def variable(self, variable):
        kind, number = variable
        if kind == "global":
            return f"R{100 + number}"
        letter = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"[number % 26]
        more = str(number // 26) if number >= 26 else ""
        return ("ARG" if kind == "argument" else "LOC") + letter + more

    def indexed(self, tree):
        return f"R[{self.expression(tree)}]"

    def word(self, letter, tree):
        if tree[0] == "number" and self.rng.random() < 0.5:
            return letter + tree[1]
        return f"{letter}={self.expression(tree)}"

    def put_move(self, kind, words, incremental):
        if not incremental or self.plant or self.rng.random() < 0.5:
            super().put_move(kind, words, incremental)
            return
        marked = [f"{axis}=IC({self.expression(tree)})" for axis, tree in words]
        self.put(" ".join([self.code(kind), *marked]))

    def put_assign(self, target, tree):
        self.put(f"{self.operand(target)}={self.expression(tree)}")

    def label(self):
        return f"MARK{self.mark()}"

    def here(self, label):
        self.put(f"{label}:")

    def put_if(self, branches, otherwise):
        if self.rng.random() < 0.5:
            self.put_jumps(branches, otherwise)
            return
        for k, (condition, body) in enumerate(branches):
            if k:
                self.put("ELSE")
            self.put(f"IF {self.condition(condition)}")
            self.block(body)
        if otherwise is not None:
            self.put("ELSE")
            self.block(otherwise)
        for _ in branches:
            self.put("ENDIF")

    def put_jumps(self, branches, otherwise):
        end = self.label()
        labels = [self.label() for _ in branches]
        for label, (condition, _) in zip(labels, branches):
            self.put(f"IF {self.condition(condition)} {self.rng.choice(['GOTOF', 'GOTO'])} {label}")
        self.block(otherwise or ())
        self.put(f"GOTOF {end}")
        for label, (_, body) in zip(labels, branches):
            self.here(label)
            self.block(body)
            self.put(f"GOTOF {end}")
        self.here(end)

    def put_case(self, tree, branches, otherwise):
        end, default = self.label(), self.label()
        targets = [(self.label(), value, body) for value, body in branches]
        cases = " ".join(f"{value} GOTOF {label}" for label, value, _ in targets)
        tail = f" DEFAULT GOTOF {default}" if self.rng.random() < 0.5 else ""
        self.put(f"CASE({self.expression(tree)}) OF {cases}{tail}")
        self.here(default)
        self.block(otherwise or ())
        self.put(f"GOTOF {end}")
        for label, _, body in targets:
            self.here(label)
            self.block(body)
            self.put(f"GOTOF {end}")
        self.here(end)

    def put_while(self, counter, count, body):
        name = self.variable(counter)
        outer, self.loop = getattr(self, "loop", None), (self.label(), self.label())
        self.put(f"{name}=0")
        goes_on = ("lt", ("variable", counter), count)
        endless = self.rng.random() < 0.3
        if endless:
            self.put("LOOP")
            self.put(f"IF {self.condition(negated(goes_on))} GOTOF {self.loop[1]}")
        else:
            self.put(f"WHILE {self.condition(goes_on)}")
        self.put(f"{name}={name}+1")
        self.block(body)
        self.here(self.loop[0])
        self.put("ENDLOOP" if endless else "ENDWHILE")
        self.here(self.loop[1])
        self.loop = outer

    def put_do(self, counter, count, body):
        name = self.variable(counter)
        self.put(f"{name}=0")
        self.put("REPEAT")
        self.put(f"{name}={name}+1")
        self.block(body)
        self.put(f"UNTIL {self.condition(('ge', ('variable', counter), count))}")

    def put_repeat(self, counter, count, body):
        self.put(f"FOR {self.variable(counter)}=1 TO {self.expression(count)}")
        self.block(body)
        self.put("ENDFOR")

    def put_break(self, condition):
        self.put(f"IF {self.condition(condition)} GOTOF {self.loop[1]}")

    def put_continue(self, condition):
        self.put(f"IF {self.condition(condition)} GOTOF {self.loop[0]}")

    def put_return(self, condition):
        self.put(f"IF {self.condition(condition)}")
        self.put(self.rng.choice(["RET", "M17"]))
        self.put("ENDIF")

    def name(self, number):
        return f"PART{'ABCD'[number]}"

    def put_call(self, number, values, times):
        arguments = f"({','.join(map(self.expression, values))})" if values else ""
        count = "" if times == 1 else f" P{times}"
        self.put(f"{self.name(number)}{arguments}{count}")

    def define(self, program, first=0):
        names = [self.variable(("local", n)) for n in range(first, program.locals)]
        if names:
            self.put(f"DEF REAL {', '.join(names)}")

    def print_program(self):
        self.into("")
        self.put("%_N_PART_MPF")
        self.define(self.program.main)
        self.put("G71 G17 G90 F100")
        self.put_program(self.program.main)
        self.put("M30")
        for part in self.program.subprograms:
            name = self.name(part.number)
            beside = part.number in self.beside
            self.into(f"{name}.SPF" if beside else "")
            if not beside or self.rng.random() < 0.5:
                self.put(f"%_N_{name}_SPF")
            self.scope = part
            arguments = [f"REAL {self.variable(('argument', n))}" for n in range(part.arguments)]
            if arguments:
                self.put(f"PROC {name}({', '.join(arguments)})")
            self.define(part)
            self.put_program(part)
            self.put("M17" if self.rng.random() < 0.5 else "RET")


FAMILIES = {"o-word": OWord, "hash": Hash, "r-parameter": RParameter}

# ---------------------------------------------------------------------------------------------
# Comparing


def store(folder, family, texts):
    """Writes the texts of a program into a folder of its own; the path of the main one."""
    home = os.path.join(folder, family)
    os.makedirs(home, exist_ok=True)
    for name, text in texts.items():
        with open(os.path.join(home, name or FAMILIES[family].file), "w", encoding="ascii") as file:
            file.write(text)
    return os.path.join(home, FAMILIES[family].file)


def draw(seed):
    """A program of bounded length, with lines that rs274 can hold, and its movements."""
    for attempt in range(1000):
        program = Writer(seed + attempt * 2**32).program()
        try:
            moves = Run(program).moves
        except TooLong:
            continue
        texts = OWord(program, seed).files.values()
        if max(len(line) for lines in texts for line in lines) < MOST_LENGTH:
            return program, moves
    raise AssertionError("every program is too long")


def movements(found):
    return [step for step in found if step.kind in steps.MOVEMENTS]


def parted(wanted, made):
    """Where movements part; an arc may stand whole or in pieces."""
    return steps.difference(
        wanted, made, ways=lambda step: [[step], *steps.written(step)], least=-1.0
    )


def whole(made):
    """With the pieces of an arc joined, which only some dialects ask for."""
    joined = []
    for step in made:
        last = joined[-1] if joined else None
        if step.arc and last and last.arc and last.arc[:2] == step.arc[:2]:
            sweep = last.arc.sweep + step.arc.sweep
            if sweep < 6.3:
                joined[-1] = last._replace(place=step.place, arc=step.arc._replace(sweep=sweep))
                continue
        joined.append(step)
    return joined


def exactly(step):
    return step.kind, step.place, step.arc and step.arc[:2]


def differences(options, seed, folder, plant=None):
    """What is wrong with the program of a seed; `plant` names the text that gets a fault."""
    program, wanted = draw(seed)
    paths = {
        family: store(folder, family, printer(program, seed, plant == family).texts())
        for family, printer in FAMILIES.items()
    }
    made, found = {}, []
    for family in FAMILIES if options.quillmark != "none" else ():
        dialect = os.path.join(options.dialects, f"{family}-mill.pp")
        status, text, told, _ = runs.convert(options.quillmark, dialect, paths[family])
        made[family] = movements(aptReader.read(text))
        if status != 0:
            found.append(f"{family} ends with {status}: {told[:400]}")
        elif part := parted(wanted, made[family]):
            found.append(f"{family}: {steps.told(part)}")
    for family in list(made)[1:]:
        if not found and [exactly(step) for step in whole(made["o-word"])] != [
            exactly(step) for step in whole(made[family])
        ]:
            found.append(f"{family}: not to the last digit as in o-word")
    if options.judge:
        if plant == "judge":
            store(folder, "o-word", OWord(program, seed, True).texts())
        status, text, told = runs.judge(paths["o-word"])
        if status != 0:
            found.append(f"rs274 ends with {status}: {told[-400:]}")
        elif part := parted(wanted, movements(canonReader.read(text))):
            found.append(f"rs274: {steps.told(part)}")
    return found, len(wanted)


def trial(task):
    options, seed = task
    with tempfile.TemporaryDirectory() as folder:
        found, moves = differences(options, seed, folder)
        if found and options.keep:
            home = os.path.join(options.keep, str(seed))
            os.makedirs(home, exist_ok=True)
            differences(options, seed, home)
    return seed, found, moves


def plants(options):
    """Faults that are not found."""
    tried = [] if options.quillmark == "none" else list(FAMILIES)
    missed = []
    for text in tried + ["judge"] * options.judge:
        with tempfile.TemporaryDirectory() as folder:
            found, _ = differences(options, 7, folder, text)
        if not any("movement 0" in line for line in found):
            missed.append(text)
    return missed


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("quillmark", help='the program, or "none" for rs274 alone')
    arguments.add_argument("dialects")
    arguments.add_argument("count", type=int)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--judge", action="store_true", help="try the o-word text on rs274")
    arguments.add_argument("--keep", metavar="FOLDER", help="of the programs that differ")
    options = arguments.parse_args()
    missed = plants(options)
    if missed:
        sys.exit(f"a planted fault is not found: {', '.join(missed)}")
    tasks = [(options, zlib.crc32(f"{options.seed} {k}".encode())) for k in range(options.count)]
    moves, wrong = 0, []
    with multiprocessing.Pool() as pool:
        for seed, found, made in pool.imap_unordered(trial, tasks, chunksize=8):
            moves += made
            if found:
                wrong.append((seed, found))
    print(f"{options.count} programs, {moves} movements, {len(wrong)} programs that differ")
    for seed, found in sorted(wrong)[:MOST_SHOWN]:
        print(f"  program {seed}", *found, sep="\n    ")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
