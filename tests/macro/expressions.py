"""Random expressions of each family through the program evaluateLines and through an evaluation of
its own: a parser by regular expressions and Python's arithmetic, with the rules of the family.

    expressions.py EVALUATE_LINES COUNT [--seed N] [--family NAME] [--judge COUNT]

COUNT expressions per family; with --judge, the rules of the o-word family are tried on rs274 as
well. Exact operations have to agree to the last bit, single functions and
operators within one unit of the last place, whole expressions within 1e-9 relative; failures have
to have the same code. With every value goes a bound of its error, and an operation is done at the
corners of the bounds, too: where that turns a branch or a failure, or leaves more than 1e-10, the
expression is left out and counted. Exits with 1 at the first differences."""

import argparse
import itertools
import math
import multiprocessing
import random
import re
import subprocess
import sys
import tempfile
import zlib

UNREADABLE, UNKNOWN, WRONG_TYPE, NO_FUNCTION = 90001, 90003, 90004, 90005
COUNT, DIVISION, RANGE = 90011, 90503, 90518
CHUNK = 20000
MOST_SHOWN = 20


class Failure(Exception):
    def __init__(self, code):
        self.code = code


class Unstable(Exception):
    pass


# ---------------------------------------------------------------------------------------------
# What operators and functions compute; a number is float or, from bits and quotes, int.


def number(value):
    if isinstance(value, str):
        raise Failure(WRONG_TYPE)
    return 0.0 if value is None else float(value)


def finite(compute, *arguments):
    try:
        result = compute(*arguments)
    except (ValueError, OverflowError):
        raise Failure(RANGE) from None
    if math.isinf(result) or math.isnan(result):
        raise Failure(RANGE)
    return result


def arithmetic(compute):
    return lambda a, b: finite(compute, number(a), number(b))


def quotient(compute):
    def divide(a, b):
        a, b = number(a), number(b)
        if b == 0:
            raise Failure(DIVISION)
        return finite(compute, a, b)

    return divide


def logical(compute):
    return lambda a, b: compute(number(a) != 0, number(b) != 0)


def bits(compute):
    def whole(value):
        if isinstance(value, str) or isinstance(value, float) and not value.is_integer():
            raise Failure(WRONG_TYPE)
        if not -(2**63) <= (value or 0) < 2**63:
            raise Failure(WRONG_TYPE)
        return int(value or 0)

    return lambda *operands: compute(*map(whole, operands))


def sign(factor):
    def change(value):
        if isinstance(value, str):
            raise Failure(WRONG_TYPE)
        if value is None or factor == 1:
            return value
        return -value if type(value) is int else -float(value)

    return change


def same(family):
    def equal(a, b):
        if isinstance(a, str) and isinstance(b, str):
            return a == b
        x, y = number(a), number(b)
        if family == "hash":
            return x == y and (a is None) == (b is None)
        if family == "o-word":
            return abs(x - y) < 1e-4
        return abs(x - y) <= 1e-9 * max(abs(x), abs(y))

    return equal


def comparison(compute):
    return lambda a, b: compute(number(a), number(b))


def positive_remainder(a, b):
    rest = math.fmod(a, b)
    return rest + abs(b) if rest < 0 else rest


def cut(x):
    return math.copysign(float(math.trunc(x)), x)


def floor(x):
    return math.copysign(float(math.floor(x)), x)


def ceiling(x):
    return math.copysign(float(math.ceil(x)), x)


def half_away(x):
    below = math.floor(abs(x))
    return math.copysign(float(below + (abs(x) - below >= 0.5)), x)


def by_half(x):
    # The interpreter adds a half in doubles and cuts.
    return math.copysign(float(math.floor(abs(x) + 0.5)), x) if abs(x) < 2**30 else half_away(x)


def by_half_in_32_bits(x):
    if abs(x) >= 2**31 - 1:
        raise Unstable
    return by_half(x)


def from_code(x):
    if not x.is_integer() or not 0 <= x < 16**13 or not f"{int(x):x}".isdigit():
        raise Failure(RANGE)
    return float(int(f"{int(x):x}"))


def to_code(x):
    if not x.is_integer() or not 0 <= x < 10**13:
        raise Failure(RANGE)
    return float(int(str(int(x)), 16))


def bound(low, high, value):
    if low > high:
        raise Failure(RANGE)
    return min(max(value, low), high)


def turn(function):
    return lambda x: function(x * math.pi / 180)


def angle(function):
    return lambda *x: function(*x) * 180 / math.pi


def arc_tangent(y, *x):
    return math.atan2(y, *x) if x else math.atan(y)


# Name -> (argument counts, computation, exact)
COMMON = {
    "SIN": ((1,), turn(math.sin), False),
    "COS": ((1,), turn(math.cos), False),
    "TAN": ((1,), turn(math.tan), False),
    "ASIN": ((1,), angle(math.asin), False),
    "ACOS": ((1,), angle(math.acos), False),
    "SQRT": ((1,), math.sqrt, True),
    "ABS": ((1,), abs, True),
    "LN": ((1,), math.log, False),
    "EXP": ((1,), math.exp, False),
}


class Family:
    def __init__(self, name, brackets, variable, functions, levels, condition, setup):
        self.name, self.brackets, self.variable, self.setup = name, brackets, variable, setup
        self.functions = COMMON | functions
        self.levels = {"expression": levels, "condition": condition or levels}
        self.blind = name != "R-parameter"  # to blanks
        # Long ones first, and always in the same order, so that a seed repeats a run.
        self.operators = sorted({o for level in levels for o in level}, key=lambda o: (-len(o), o))
        end = "" if self.blind else r"(?![A-Z0-9_$])"
        spelled = [re.escape(o) + (end if o[-1].isalpha() else "") for o in self.operators]
        self.operator = re.compile("|".join(spelled))
        names = sorted(self.functions, key=len, reverse=True)
        self.function = re.compile(rf"({'|'.join(names)})[ \t]*{re.escape(brackets[0])}")
        self.values = {}

    def compute(self, operator, condition):
        """The computation of an operator and whether it is exact."""
        if operator in ("AND", "OR", "XOR") and self.name == "hash" and not condition:
            operator = "B_" + operator
        return BINARY.get(operator) or BINARY[self.name, operator]


BINARY = {
    "+": (arithmetic(lambda a, b: a + b), True),
    "-": (arithmetic(lambda a, b: a - b), True),
    "*": (arithmetic(lambda a, b: a * b), True),
    "/": (quotient(lambda a, b: a / b), True),
    "**": (arithmetic(math.pow), False),
    "DIV": (quotient(lambda a, b: cut(finite(lambda: a / b))), True),
    "AND": (logical(lambda a, b: a and b), True),
    "OR": (logical(lambda a, b: a or b), True),
    "XOR": (logical(lambda a, b: a != b), True),
    "B_AND": (bits(lambda a, b: a & b), True),
    "B_OR": (bits(lambda a, b: a | b), True),
    "B_XOR": (bits(lambda a, b: a ^ b), True),
}
for spellings, computation in (
    (("GT", ">"), lambda a, b: a > b),
    (("GE", ">="), lambda a, b: a >= b),
    (("LT", "<"), lambda a, b: a < b),
    (("LE", "<="), lambda a, b: a <= b),
):
    BINARY |= {spelling: (comparison(computation), True) for spelling in spellings}
for name in ("o-word", "hash", "R-parameter"):
    remainder = positive_remainder if name == "o-word" else math.fmod
    BINARY[name, "MOD"] = (quotient(remainder), True)
    for spelling in ("EQ", "=="):
        BINARY[name, spelling] = (same(name), True)
    for spelling in ("NE", "<>"):
        BINARY[name, spelling] = (lambda a, b, equal=same(name): not equal(a, b), True)

UNARY = {
    "-": sign(-1),
    "+": sign(1),
    "NOT": lambda value: number(value) == 0,
    "B_NOT": bits(lambda a: ~a),
}

RELATIONS = ["EQ", "NE", "GT", "GE", "LT", "LE"]
SIGNS = ["==", "<>", ">", ">=", "<", "<="]
FAMILIES = {
    family.name: family
    for family in (
        Family(
            "o-word",
            "[]",
            "#",
            {
                "ATAN": ((2,), angle(arc_tangent), False),
                "ROUND": ((1,), by_half, True),
                "FIX": ((1,), floor, True),
                "FUP": ((1,), ceiling, True),
                "EXISTS": ((1,), None, True),
            },
            [["**"], ["*", "/", "MOD"], ["+", "-"], RELATIONS, ["AND", "OR", "XOR"]],
            None,
            [(f"#{n}", n) for n in range(1, 41)] + [("#<depth>", "DEPTH"), ("#<_top>", "_TOP")],
        ),
        Family(
            "hash",
            "[]",
            "#",
            {
                "ATAN": ((1, 2), angle(arc_tangent), False),
                "SQR": ((1,), math.sqrt, True),
                "POW": ((2,), math.pow, False),
                "ROUND": ((1,), half_away, True),
                "FIX": ((1,), cut, True),
                "FUP": ((1,), lambda x: ceiling(x) if x > 0 else floor(x), True),
                "BIN": ((1,), from_code, True),
                "BCD": ((1,), to_code, True),
            },
            [["*", "/", "MOD", "AND"], ["+", "-", "OR", "XOR"], RELATIONS],
            [["*", "/", "MOD"], ["+", "-"], RELATIONS, ["AND"], ["XOR"], ["OR"]],
            [(f"#{n}", n) for n in range(1, 41) if n % 7],
        ),
        Family(
            "R-parameter",
            "()",
            "R",
            {
                "ATAN2": ((2,), angle(arc_tangent), False),
                "POT": ((1,), lambda x: x * x, True),
                "ROUND": ((1,), half_away, True),
                "TRUNC": ((1,), cut, True),
                "MINVAL": ((2,), min, True),
                "MAXVAL": ((2,), max, True),
                "BOUND": ((3,), bound, True),
            },
            [["*", "/", "DIV", "MOD"], ["+", "-"], ["B_AND"], ["B_XOR"], ["B_OR"]]
            + [["AND"], ["XOR"], ["OR"], SIGNS],
            [["*", "/", "DIV", "MOD"], ["+", "-"], ["B_AND"], ["B_XOR"], ["B_OR"]]
            + [SIGNS, ["AND"], ["XOR"], ["OR"]],
            [(f"R{n}", n) for n in range(1, 41)] + [("WIDTH", "WIDTH"), ("COUNT_1", "COUNT_1")],
        ),
    )
}

# ---------------------------------------------------------------------------------------------
# Parser: a text becomes nested tuples

NUMBER = re.compile(r"\d+\.?\d*|\.\d+")
EXPONENT = re.compile(r"EX([+-]?\d+)")
QUOTED = re.compile(r"'(?:H([0-9A-F]+)|B([01]+))'")
NAME = re.compile(r"#<([^>]+)>")
PARAMETER = re.compile(r"R(\d+)")
WORD = re.compile(r"[A-Z_$][A-Z0-9_$]*")
BLANKS = re.compile(r"[ \t]*")


class Reader:
    def __init__(self, family, reading, text):
        self.family, self.reading = family, reading
        self.ladder = family.levels["condition" if reading == "condition" else "expression"]
        self.text = re.sub(r"[ \t]", "", text) if family.blind else text
        if family.name != "hash":
            parts = self.text.split('"') if not family.blind else [self.text]
            parts[::2] = [part.upper() for part in parts[::2]]
            self.text = '"'.join(parts)
        self.at = self.depth = 0

    def take(self, pattern):
        found = pattern.match(self.text, self.at)
        if found:
            self.at = found.end()
        return found

    def takes(self, text):
        self.take(BLANKS)
        if self.text.startswith(text, self.at):
            self.at += len(text)
            return True
        return False

    def want(self, text):
        if not self.takes(text):
            raise Failure(UNREADABLE)

    def whole(self):
        tree = self.operand() if self.reading == "operand" else self.level(len(self.ladder))
        self.take(BLANKS)
        if self.at < len(self.text):
            raise Failure(UNREADABLE)
        return tree

    def level(self, loosest):
        left = self.operand()
        while True:
            start = self.at
            self.take(BLANKS)
            found = self.take(self.family.operator)
            place = next(
                (k for k, row in enumerate(self.ladder) if found and found[0] in row), None
            )
            if place is None or place >= loosest:
                self.at = start
                return left
            left = ("binary", found[0], left, self.level(place))

    def operand(self):
        signs = []
        unary = r"[-+]" if self.family.blind else r"[-+]|(?:NOT|B_NOT)(?![A-Z0-9_$])"
        while True:
            self.take(BLANKS)
            found = self.take(re.compile(unary))
            if not found:
                break
            signs.append(found[0])
        tree = self.primary()
        for spelling in reversed(signs):
            tree = ("unary", spelling, tree)
        return tree

    def bracket(self):
        self.deeper()
        tree = self.level(len(self.ladder))
        self.want(self.family.brackets[1])
        self.depth -= 1
        return tree

    def deeper(self):
        self.depth += 1
        if self.depth > 100:
            raise Failure(UNREADABLE)

    def primary(self):
        family = self.family
        if found := self.take(NUMBER):
            text = found[0]
            if not family.blind and (power := self.take(EXPONENT)):
                text += "e" + power[1]
            if math.isinf(float(text)):
                raise Failure(RANGE)
            return ("constant", float(text))
        if self.takes(family.brackets[0]):
            return self.bracket()
        if family.blind and self.text.startswith("#", self.at):
            return ("load", self.index())
        if not family.blind:
            if found := self.take(QUOTED):
                value = int(found[1], 16) if found[1] else int(found[2], 2)
                if value >= 2**63:
                    raise Failure(RANGE)
                return ("constant", value)
            if found := self.take(re.compile(r'"([^"]*)"')):
                return ("constant", found[1])
            if found := self.take(PARAMETER):
                return ("load", ("constant", float(found[1])))
            if self.take(re.compile(r"R\[")):
                self.deeper()
                tree = self.level(len(self.ladder))
                self.want("]")
                self.depth -= 1
                return ("load", tree)
        if found := self.take(family.function):
            return self.call(found[1])
        return self.word()

    def word(self):
        found = self.take(WORD if not self.family.blind else re.compile(r"[A-Z]+|[a-z]+"))
        if not found:
            raise Failure(UNREADABLE)
        if self.takes(self.family.brackets[0]):
            raise Failure(NO_FUNCTION)
        if found[0] in ("TRUE", "FALSE") and not self.family.blind:
            return ("constant", found[0] == "TRUE")
        if self.family.blind or not re.match(r"_|[A-Z$][A-Z_$]", found[0]):
            raise Failure(UNREADABLE)
        if found[0] in self.family.operators:
            raise Failure(UNREADABLE)
        return ("load", found[0])

    def index(self):
        if self.family.name == "o-word" and self.text.startswith("#<", self.at):
            found = self.take(NAME)
            if not found:
                raise Failure(UNREADABLE)
            return found[1]
        self.at += 1
        self.deeper()
        tree = self.operand()
        self.depth -= 1
        return tree

    def call(self, name):
        counts, compute, _ = self.family.functions[name]
        self.deeper()
        if compute is None:
            if not self.text.startswith("#", self.at):
                raise Failure(UNREADABLE)
            tree = ("exists", self.index())
            self.want("]")
            self.depth -= 1
            return tree
        arguments = []
        self.take(BLANKS)
        if not self.text.startswith(self.family.brackets[1], self.at):
            arguments.append(self.level(len(self.ladder)))
            while self.family.name != "o-word" and self.takes(","):
                arguments.append(self.level(len(self.ladder)))
        self.want(self.family.brackets[1])
        self.depth -= 1
        if name == "ATAN" and len(arguments) == 1 and self.takes("/["):
            arguments.append(self.bracket())
        if len(arguments) not in counts or (
            # The list form of two belongs to the family with commas.
            self.family.name == "o-word" and name != "ATAN" and len(arguments) != 1
        ):
            raise Failure(COUNT)
        return ("call", name, *arguments)


# ---------------------------------------------------------------------------------------------
# Evaluation: a value and the bound of its error


doubt = 0.0  # relative, of what a function gets that is not exact; of rs274 alone


def corners(value, error):
    return [value] if not error else [value, value - error, value + error]


def carefully(compute, exact, operands):
    """compute at the operands and at the corners of their errors."""
    results = []
    for point in itertools.product(*(corners(*operand) for operand in operands)):
        try:
            results.append(compute(*point))
        except Failure as failure:
            results.append(failure)
    first = results[0]
    for other in results[1:]:
        if isinstance(first, Failure) or isinstance(other, Failure):
            if getattr(first, "code", 0) != getattr(other, "code", 0):
                raise Unstable
        elif not isinstance(first, float) and other != first:
            raise Unstable
    if isinstance(first, Failure):
        raise first
    if not isinstance(first, float):
        return first, 0.0
    error = max(abs(other - first) for other in results)
    if error or not exact:
        error += math.ulp(first)
    return first, error


def evaluate(family, tree, condition):
    kind = tree[0]
    if kind == "constant":
        return tree[1], 0.0
    if kind == "load":
        value = family.values.get(key_of(family, tree[1], condition), KeyError)
        if value is KeyError:
            raise Failure(UNKNOWN)
        return value, 0.0
    if kind == "exists":
        key = key_of(family, tree[1], condition)
        return key in family.values, 0.0
    if kind == "unary":
        return carefully(UNARY[tree[1]], True, [evaluate(family, tree[2], condition)])
    operands = [evaluate(family, part, condition) for part in tree[2:]]
    if kind == "binary":
        compute, exact = family.compute(tree[1], condition)
        return carefully(compute, exact, operands)
    _, compute, exact = family.functions[tree[1]]
    relative = 0.0 if exact else doubt
    operands = [(x, error + relative * abs(x)) for x, error in map(numeric, operands)]
    return carefully(lambda *x: finite(lambda: float(compute(*x))), exact, operands)


def numeric(operand):
    return number(operand[0]), operand[1]


def key_of(family, index, condition):
    if isinstance(index, str):
        return index

    def whole(value):
        value = number(value)
        nearest = round(value)
        if doubt and abs(nearest) >= 2**31:
            raise Unstable
        if abs(value - nearest) > 1e-4 or not -(2**63) <= nearest < 2**63:
            raise Failure(WRONG_TYPE)
        return nearest

    return carefully(whole, True, [evaluate(family, index, condition)])[0]


def expected(family, reading, text):
    """(value, error), a code, or None for an unstable one; and the tree."""
    tree = None
    try:
        tree = Reader(family, reading, text).whole()
        value = evaluate(family, tree, reading == "condition")
        if reading == "condition":
            value = carefully(lambda x: number(x) != 0, True, [value])
        return value, tree
    except Failure as failure:
        return failure.code, tree
    except Unstable:
        return None, tree


# ---------------------------------------------------------------------------------------------
# Generator


class Writer:
    def __init__(self, family, rng):
        self.family, self.rng = family, rng
        self.open, self.close = family.brackets
        self.calls = sorted(family.functions)

    def number(self):
        rng = self.rng
        pick = rng.random()
        if pick < 0.4:
            return str(rng.randrange(0, 13))
        if pick < 0.55:
            return rng.choice([".5", "2.5", "0.5", "1.5", "30", "45.", "90", "180", "360", "1000"])
        if pick < 0.8:
            return f"{rng.uniform(0, 100):.{rng.randrange(0, 7)}f}"
        if pick < 0.9:
            return str(rng.randrange(10 ** rng.randrange(1, 22)))
        if pick < 0.95:
            return f"{rng.random():.{rng.randrange(1, 25)}f}"
        if self.family.blind:
            return f"{rng.random():.3f}"
        return rng.choice(
            [
                f"{rng.randrange(99)}EX{rng.randrange(-9, 9)}",
                f"1.5EX+{rng.randrange(400)}",
                f"'H{rng.randrange(1 << rng.randrange(1, 66)):X}'",
                f"'B{rng.randrange(64):b}'",
                "TRUE",
                "FALSE",
                '"a"',
                '"B c"',
            ]
        )

    def variable(self, depth):
        rng, mark = self.rng, self.family.variable
        pick = rng.random()
        plain = rng.randrange(1, 41)
        if pick < 0.6:
            return f"{mark}{plain}"
        if pick < 0.8:
            inner = str(plain) if rng.random() < 0.5 else self.expression(depth - 1)
            return f"{mark}[{inner}]"
        if pick < 0.9 or self.family.name == "hash":
            if mark == "#":
                return f"##{rng.choice([1, 2, 3, plain])}"
            return f"R[R{rng.choice([1, 2, 3, plain])}]"
        names = ["#<depth>", "#<_top>", "#<none>"] if mark == "#" else ["WIDTH", "Count_1", "NONE"]
        return rng.choice(names)

    def call(self, depth):
        rng = self.rng
        name = rng.choice(self.calls) if rng.random() < 0.98 else "FOO"
        counts, compute, _ = self.family.functions.get(name, ((1,), abs, True))
        if compute is None:
            return f"{name}[{self.variable(depth)}]"
        count = rng.choice(counts) if rng.random() < 0.98 else rng.randrange(4)
        arguments = [self.argument(name, depth) for _ in range(count)]
        if name == "ATAN" and count == 2 and (self.family.name == "o-word" or rng.random() < 0.5):
            return f"ATAN[{arguments[0]}]/[{arguments[1]}]"
        return f"{name}{self.open}{','.join(arguments)}{self.close}"

    def argument(self, name, depth):
        rng = self.rng
        if name in ("ASIN", "ACOS") and rng.random() < 0.6:
            return f"{rng.random():.4f}"
        if name in ("BIN", "BCD") and rng.random() < 0.6:
            return str(rng.randrange(10 ** rng.randrange(1, 15)))
        return self.expression(depth - 1)

    def operand(self, depth):
        rng = self.rng
        pick = rng.random()
        if pick < 0.15:
            signs = ["-", "-", "+"] if self.family.blind else ["-", "-", "+", "NOT ", "B_NOT "]
            return rng.choice(signs) + self.operand(depth)
        if depth <= 0 or pick < 0.45:
            return self.number()
        if pick < 0.65:
            return self.variable(depth)
        if pick < 0.85:
            return self.call(depth)
        return self.open + self.expression(depth - 1) + self.close

    def expression(self, depth):
        rng = self.rng
        parts = [self.operand(depth)]
        while depth > 0 and rng.random() < 0.5 and len(parts) < 9:
            operator = rng.choice(self.family.operators)
            if operator[0].isalpha() and not self.family.blind or rng.random() < 0.2:
                operator = f" {operator} "
            parts += [operator, self.operand(depth)]
        return "".join(parts)

    def single(self):
        """One function or operator on numbers and variables."""
        rng = self.rng
        if rng.random() < 0.5:
            return self.call(1)
        operator = rng.choice(self.family.operators)
        return f"{self.operand(0)} {operator} {self.operand(0)}"

    def damaged(self, text):
        rng = self.rng
        at = rng.randrange(len(text) + 1)
        pick = rng.random()
        if pick < 0.4:
            return text[:at] + text[at + 1 :]
        extra = rng.choice("[]()#R<>.,-+*/=0123456789 ANDSIX_'\"$;")
        return text[:at] + extra + text[at + (pick < 0.7) :]

    def line(self):
        rng = self.rng
        pick = rng.random()
        if pick < 0.3:
            return "expression", self.single(), True
        reading = rng.choice(["expression", "expression", "condition", "operand"])
        depth = rng.randrange(1, 5)
        text = self.operand(depth) if reading == "operand" else self.expression(depth)
        if rng.random() < 0.1:
            text = self.damaged(text)
        if rng.random() < 0.1 and self.family.name != "hash":
            text = text.lower() if '"' not in text else text
        if rng.random() < 0.1 and self.family.blind:
            at = rng.randrange(len(text) + 1)
            text = text[:at] + " " + text[at:]
        return reading, text, False


# ---------------------------------------------------------------------------------------------
# Comparison


def settings(family):
    """Gives the variables their values and yields the lines that tell evaluateLines."""
    rng = random.Random(family.name)
    unset = range(0, 1000) if family.name != "o-word" else range(1, 5001)
    nothing = None if family.name == "hash" else 0.0
    family.values = {n: nothing for n in unset}
    if family.name == "R-parameter":
        yield "R-parameter\tdeclare\treal\tWIDTH"
        yield "R-parameter\tdeclare\tinteger\tCOUNT_1"
    for spelling, key in family.setup:
        value = rng.choice([rng.randrange(-9, 40), rng.randrange(1, 40), rng.randrange(-80, 80) / 8])
        if key in (1, 2, 3, "COUNT_1"):
            value = rng.randrange(4, 40)
        family.values[key] = value if key == "COUNT_1" else float(value)
        yield f"{family.name}\tset\t{spelling}\t{value}"


def value_of(text):
    if text in ("TRUE", "FALSE"):
        return text == "TRUE"
    return None if text == "vacant" else float(text)


def agrees(wanted, got, single):
    if isinstance(wanted, int):
        return got.split(" @")[0] == f"!{wanted}"
    value, error = wanted
    if isinstance(value, str):
        return got == value
    if got.startswith("!"):
        return False
    result = value_of(got)
    if type(value) is int:
        return got == str(value)
    if not isinstance(value, float) or not error:
        return type(result) is type(value) and result == value
    allowed = math.ulp(value) if single else 1e-9 * abs(value)
    return isinstance(result, float) and abs(result - value) <= allowed


def chunk(task):
    """Tries some expressions; (tried, left out, codes, differences)."""
    program, name, count, seed = task
    family = FAMILIES[name]
    writer = Writer(family, random.Random(seed))
    lines = list(settings(family))
    wanted = []
    skipped = 0
    outcomes = {}
    while len(wanted) < count:
        reading, text, single = writer.line()
        want, tree = expected(family, reading, text)
        stable = want is not None and (
            isinstance(want, int) or not want[1] or want[1] <= 1e-10 * abs(want[0])
        )
        if not stable:
            skipped += 1
            continue
        flat = tree is not None and all(
            part[0] in ("constant", "load") for part in tree[1:] if isinstance(part, tuple)
        )
        wanted.append((reading, text, want, single and flat))
        key = want if isinstance(want, int) else type(want[0]).__name__
        outcomes[key] = outcomes.get(key, 0) + 1
        lines.append(f"{name}\t{reading}\t{text}")
    run = subprocess.run([program], input="\n".join(lines), capture_output=True, text=True)
    answers = run.stdout.splitlines()
    if run.returncode != 0 or len(answers) != len(wanted):
        return count, skipped, outcomes, [f"{program} ends with {run.returncode}: {run.stderr}"]
    return (
        count,
        skipped,
        outcomes,
        [
            f"{name} {reading}: {text!r} gives {got}, not {want}"
            for (reading, text, want, single), got in zip(wanted, answers)
            if not agrees(want, got, single)
        ],
    )


def judge(count, seed):
    """Tries the rules above on the interpreter of the o-word family; the differences. It prints six
    decimals and nothing below 1e-4, lets a number that is none pass a comparison, computes angles in
    more digits than a double has, and rounds, also an index, within 32 bits."""
    global doubt
    doubt = 1e-15
    family = FAMILIES["o-word"]
    family.functions["ROUND"] = ((1,), by_half_in_32_bits, True)
    names = [line.split("\t")[2:] for line in settings(family)]
    writer = Writer(family, random.Random(seed))
    values, failures = [], []
    while len(values) < count:
        reading, text, _ = writer.line()
        want, _ = expected(family, "expression", text)
        plain = not re.search(r"[();\"]|[0-9 ]{7}|5[0-9]{3}", text) and len(text) < 200
        if want in (UNREADABLE, UNKNOWN, WRONG_TYPE, COUNT) and plain and reading != "operand":
            failures.append((text, want))
        if isinstance(want, tuple) and plain and want[1] < 1e-9 and abs(want[0]) < 1e6:
            values.append((text, want[0]))

    def run(texts):
        lines = [f"{name}={value}" for name, value in names]
        for text in texts:
            lines += [f"#4999=[{text}]", "(debug,=#4999=)"]
        lines.append("M2\n")
        with tempfile.NamedTemporaryFile("w", suffix=".ngc") as program:
            program.write("\n".join(lines))
            program.flush()
            arguments = ["rs274", "-g", program.name]
            # It keeps variables in a file of the folder it runs in.
            with tempfile.TemporaryDirectory() as folder:
                answer = subprocess.run(arguments, capture_output=True, text=True, cwd=folder)
        return [float(value) for value in re.findall(r'MESSAGE\("=(.*?)="\)', answer.stdout)]

    found = []
    for first in range(0, len(values), 200):
        part = values[first : first + 200]
        got = run([text for text, _ in part])
        if len(got) < len(part):
            found.append(f"rs274 refuses {part[len(got)][0]!r}")
        for (text, value), other in zip(part, got):
            if abs(value - other) > (1e-4 if other == 0 else 1e-6 * max(1, abs(value))):
                found.append(f"{text!r} is {value}, for rs274 {other}")
    failures = failures[: count // 10]
    found += [f"{text!r} fails with {code}, not for rs274" for text, code in failures if run([text])]
    print(f"rs274: {len(values)} values and {len(failures)} failures")
    return found


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("program")
    arguments.add_argument("count", type=int)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--family", choices=FAMILIES, action="append")
    arguments.add_argument("--judge", type=int, default=0, metavar="COUNT")
    options = arguments.parse_args()
    failed = False
    if options.judge:
        with multiprocessing.Pool(1) as pool:  # where it may change the rules
            differences = pool.apply(judge, (options.judge, options.seed))
        print(f"rs274: {len(differences)} differences", *differences[:MOST_SHOWN], sep="\n  ")
        failed = bool(differences)
    with multiprocessing.Pool() as pool:
        for name in options.family or FAMILIES:
            sizes = [CHUNK] * (options.count // CHUNK) + [options.count % CHUNK]
            tasks = [
                (options.program, name, size, zlib.crc32(f"{options.seed} {name} {k}".encode()))
                for k, size in enumerate(sizes)
                if size
            ]
            tried = skipped = 0
            outcomes, differences = {}, []
            for count, left, codes, found in pool.imap_unordered(chunk, tasks):
                tried += count
                skipped += left
                differences += found
                for code, times in codes.items():
                    outcomes[code] = outcomes.get(code, 0) + times
            shares = ", ".join(f"{code} {times}" for code, times in sorted(outcomes.items(), key=str))
            print(f"{name}: {tried} expressions, {skipped} unstable ones left out ({shares})")
            print(f"{name}: {len(differences)} differences", *differences[:MOST_SHOWN], sep="\n  ")
            failed |= bool(differences)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
