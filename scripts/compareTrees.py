"""Runs two builds of quillmark and quillmark-param over the same inputs and compares what they do:
every file that they leave, standard output and error, and the exit status. scripts/compareTrees
builds the programs and starts this; see there for the arguments.

A case is a set of files and a few runs over them. Both builds run it in the same folder, one after
the other, so that every name in a message is the same. Only three things may differ: the seconds of
a report, those of a summary, and the source position in an assertion report, which is told."""

import argparse
import collections
import hashlib
import json
import multiprocessing
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TREE = pathlib.Path(__file__).resolve().parent.parent
SECONDS_PER_RUN = 20  # a run takes milliseconds; what takes longer hangs
MOST_BYTES = 1 << 29  # of a file that a run writes
MOST_KEPT = 200  # differences whose files are kept
MOST_SHOWN = 20

# ---------------------------------------------------------------------------------------------
# Cases

Run = collections.namedtuple("Run", "program arguments stdin", defaults=(None,))
Damage = collections.namedtuple("Damage", "file seed")  # changes a file between two runs
Case = collections.namedtuple("Case", "kind name sort files steps")

REPORT = "part.json"


def conversion(parameters="dialect.pp", options=("-l", "part.log", "--report", REPORT)):
    return Run("quillmark", ("-p", parameters, "-nc", "part.nc", "-of", "part.apt", *options))


def tool(*arguments, stdin=None):
    return Run("quillmark-param", arguments, stdin)


EVERY_TOOL_RUN = (
    tool("check", "dialect.pp"),
    tool("check", "-", stdin="dialect.pp"),
    tool("decode", "dialect.pp", "plain.pp"),
    tool("encode", "dialect.pp", "coded.pp"),
    tool("encode-old", "dialect.pp", "codedOld.pp"),
    tool("update", "dialect.pp", "updated.pp"),
    tool("check", "coded.pp"),
    tool("check", "codedOld.pp"),
    tool("check", "updated.pp"),
    tool("decode", "coded.pp", "-"),
    tool("decode", "codedOld.pp", "-"),
    tool("update", "codedOld.pp", "-"),
    tool("encode", "plain.pp", "plain.pp"),
    tool("decode", "plain.pp", "plain.pp"),
)


def parameter_file(data):
    """The files and the runs that give dialect.pp, where a mark in front asks for coding."""
    for mark, command in ((b"CODE OLD\n", "encode-old"), (b"CODE NEW\n", "encode")):
        if data.startswith(mark):
            text = data[len(mark) :]
            if command == "encode":  # which codes only what says that it is plain
                lines = [line for line in text.split(b"\n") if not line.startswith(b"#FILE:")]
                text = b"\n".join([lines[0], b"#FILE:       UNCODED", *lines[1:]])
            return {"text.pp": text}, [tool(command, "text.pp", "dialect.pp")]
    return {"dialect.pp": data}, []


def conversion_case(kind, name, parameters, program, sort="", options=None):
    files, steps = parameter_file(parameters)
    files["part.nc"] = program
    run = conversion() if options is None else conversion(options=options)
    return Case(kind, name, sort, files, [*steps, run])


def tool_case(kind, name, parameters):
    files, steps = parameter_file(parameters)
    return Case(kind, name, "", files, [*steps, *EVERY_TOOL_RUN])


# ---------------------------------------------------------------------------------------------
# Inputs that lie in the tree or come with another package


def cpp_text(path, name):
    """The text of the string constant `name` of a source file."""
    source = (TREE / path).read_text()
    found = re.search(re.escape(name) + r"(?:\[\])?\s*=\s*((?:\"(?:[^\"\\]|\\.)*\"\s*)+);", source)
    if found is None:
        sys.exit(f"compareTrees: no text {name} in {path}")
    parts = re.findall(r"\"((?:[^\"\\]|\\.)*)\"", found.group(1))
    return "".join(parts).encode().decode("unicode_escape").encode("latin-1")


def dialect_of(entries):
    lines = ["##### Header", "#FILE:       UNCODED", "##### Toolmachine Section", *entries]
    return "\n".join(lines).encode("latin-1") + b"\n"


def parameter_word_case(name, data):
    """Word, separator and places of the target as a dialect, its block as a program."""
    words, places, block = (data.decode("latin-1").split("\n", 2) + ["", ""])[:3]
    word, _, separator = words.partition(" ")
    entries = [
        "DECIMAL_POINT_REPRESENTATION",
        separator,
        "1ST_COORDINATE",
        word,
        "1",
        "M5." + places,
    ]
    return conversion_case("corpus", name, dialect_of(entries), block.encode("latin-1"))


def strings_case(name, data):
    """The comment delimiters of the target as a dialect, the text as a program."""
    argument, _, text = data.decode("latin-1").partition("\n")
    start, _, end = argument[1:].partition(" ")
    entries = [
        "COMMENT_START",
        start,
        "COMMENT_END",
        end,
        "RAPID",
        "G1",
        "1ST_COORDINATE",
        "X",
        "1",
        "",
    ]
    return conversion_case("corpus", name, dialect_of(entries), text.encode("latin-1"))


# What random inputs hardly meet: entries of a dialect, and a program.
POINT = ["DECIMAL_POINT_REPRESENTATION", ".", "1ST_COORDINATE", "X", "1", "M5.3"]
CORNERS = {
    # The word that the longer code takes stands between the shorter one and its number.
    "cut open": (["RAPID", "G10", "COOLANT_ON", "-7", *POINT], "-X=AC(5)7 G10\n"),
    # A digit as the separator, and a word of which the letters end in a digit.
    "digits": (["DECIMAL_POINT_REPRESENTATION", "1", "RAPID", "G0", *POINT[2:]], "G0X212 X1\n"),
    "codes of codes": (
        ["RAPID", "M", "COOLANT_ON", "MM1", "COOLANT_OFF", "M1", *POINT],
        "MMM11 X1\n",
    ),
}


class Inputs:
    """The files that the fixed cases are made of."""

    def __init__(self):
        self.mill = cpp_text("fuzz/parameterFiles.cpp", "kMill")
        self.lathe = cpp_text("fuzz/parameterFiles.cpp", "kLathe")
        self.every_word = cpp_text("fuzz/paramFile.cpp", "kProgram")
        self.corpus = self.folders(TREE / "fuzz/corpus")
        self.found = self.folders(TREE / "build/fuzz/corpus")
        self.examples = {
            path.parent.name: (path.read_bytes(), (path.parent / "part.nc").read_bytes())
            for path in sorted((TREE / "examples").glob("*/dialect.pp"))
        }
        self.bench = (TREE / "bench/mill.pp").read_bytes()
        self.old = {
            path.name: path.read_bytes() for path in sorted((TREE / "tests/update/data").iterdir())
        }
        if len(self.corpus) < 20 or len(self.examples) < 4:
            sys.exit("compareTrees: fuzz/corpus or examples has been moved: adapt the class Inputs")

    @staticmethod
    def folders(root):
        return {
            f"{path.parent.name}/{path.name}": path.read_bytes()
            for path in sorted(root.glob("*/*"))
        }

    def dialects(self):
        """Every parameter file by name."""
        yield "kMill", self.mill
        yield "kLathe", self.lathe
        yield "bench", self.bench
        for name, (dialect, _) in self.examples.items():
            yield "examples/" + name, dialect
        for name, data in self.corpus.items():
            if name.startswith("paramFile/"):
                yield name, data
            elif name.startswith("both/"):
                yield name, data.partition(b"\n====\n")[0]
        for name, data in self.old.items():
            yield name, b"CODE OLD\n" + data if name.endswith(".old") else data

    def target_case(self, name, data):
        """The input as its target reads it."""
        target = name.partition("/")[0]
        if target in ("ncMill", "ncLathe"):
            dialect = self.mill if target == "ncMill" else self.lathe
            return conversion_case("corpus", name, dialect, data)
        if target == "both":
            parameters, _, program = data.partition(b"\n====\n")
            return conversion_case("corpus", name, parameters, program)
        if target == "parameterWord":
            return parameter_word_case(name, data)
        if target == "strings":
            return strings_case(name, data)
        return conversion_case("corpus", name, data, self.every_word)

    def corpus_cases(self):
        programs = {"every": self.every_word}
        programs |= {name: self.examples[name][1] for name in ("milling", "lathe")}
        for name, data in self.corpus.items():
            yield self.target_case(name, data)
            for dialect_name, dialect in self.dialects():
                case_name = f"{name} with {dialect_name}"
                yield conversion_case("corpus", case_name, dialect, data.rpartition(b"\n====\n")[2])
            parameters = data.partition(b"\n====\n")[0]
            for program_name, program in programs.items():
                case_name = f"{name} for {program_name}"
                yield conversion_case("corpus", case_name, parameters, program)
        for name, data in self.found.items():
            yield self.target_case(name, data)
        for name, (entries, program) in CORNERS.items():
            yield conversion_case("corpus", name, dialect_of(entries), program.encode())

    def example_cases(self):
        for name, (_, program) in self.examples.items():
            for dialect_name, dialect in self.dialects():
                case_name = f"{name} with {dialect_name}"
                yield conversion_case("examples", case_name, dialect, program)

    def sample_cases(self):
        dialects = {name: dialect for name, (dialect, _) in self.examples.items()}
        dialects["bench"] = self.bench
        seen = set()
        for path in sample_programs():
            program = path.read_bytes()
            if program in seen:
                continue
            seen.add(program)
            for name, dialect in dialects.items():
                yield conversion_case("samples", f"{path} with {name}", dialect, program, name)

    def tool_cases(self):
        for name, data in self.dialects():
            yield tool_case("tool", name, data)
        for name, data in (self.corpus | self.found).items():
            if name in self.corpus or name.startswith("paramFile/"):
                yield tool_case("tool", name, data.partition(b"\n====\n")[0])


def sample_programs():
    listing = subprocess.run(
        ["dpkg", "-L", "linuxcnc-uspace"], capture_output=True, text=True, check=False
    )
    paths = [pathlib.Path(line) for line in listing.stdout.splitlines()]
    return [path for path in paths if path.suffix in (".ngc", ".nc") and path.is_file()]


# ---------------------------------------------------------------------------------------------
# Random dialects


def chance(rng, percent):
    return rng.random() * 100 < percent


# role: key, whether the scanner wants it exactly, usual codes
COMMANDS = {
    "rapid": ("RAPID", True, ("G0", "G00", "G0", "GO", "RAP")),
    "linear": ("LINEAR_INTERPOLATION", True, ("G1", "G01", "G1", "LI")),
    "cw": ("CIRCULAR_INTERPOLATION_RIGHT", True, ("G2", "G02", "G2", "CW")),
    "ccw": ("CIRCULAR_INTERPOLATION_LEFT", False, ("G3", "G03", "G3", "CC")),
    "abs": ("ABSOLUTE_ON", False, ("G90", "G90", "ABSO", "G990")),
    "inc": ("INCREMENTAL_ON", False, ("G91", "G91", "INCR", "G991")),
    "mmpm": ("FEEDRAT_MMPM", False, ("G94", "G98", "G094")),
    "mmpr": ("FEEDRAT_MMPR", False, ("G95", "G99", "G0095")),
    "cws": ("SPINDLE_CLOCKWISE", False, ("M3", "M03", "M13")),
    "ccws": ("SPINDLE_COUNTER_CLOCKWISE", False, ("M4", "M04", "M14")),
    "stop": ("SPINDLE_STOP", False, ("M5", "M05", "M19")),
    "on": ("COOLANT_ON", False, ("M8", "M08", "M7", "KUEHL")),
    "off": ("COOLANT_OFF", False, ("M9", "M09")),
    "change": ("REV_TLCHG_COM", False, ("M6", "M06", "M16", "TC", "T")),
    "end": ("PROGRAM_END", False, ("M30", "M2", "M02", "END")),
    "halt": ("PROGRAM_STOP", False, ("M0", "M00", "M1")),
}
ODD_CODES = (
    "5", "03", "G", "M", "g1", "G91.1", "G1X", "G 1", "GG1", "M=3", "\xc4\x31", "X", "-1", "(", "N",
    "-7", "H=7", "", "G4294967297", "G99999999999999999999", "M\x01", "G1 ", "G-1", "G1.",
    "LANGERBEFEHL12",
)  # fmt: skip

# role: key, whether the scanner wants it exactly, usual letters, presence on mill and lathe
ADDRESSES = {
    "f": ("FEEDRATE", False, ("F", "F", "FE"), 96, 96),
    "s": ("SPINDLE_SPEED", False, ("S", "S", "SP"), 96, 96),
    "u": ("1ST_COORDINATE_INCR", True, ("U", "U", "DX"), 25, 60),
    "v": ("2ND_COORDINATE_INCR", True, ("V", "V", "DY"), 25, 15),
    "w": ("3RD_COORDINATE_INCR", True, ("W", "W", "DZ"), 25, 60),
    "x": ("1ST_COORDINATE", True, ("X", "X", "X", "X1=", "XA"), 99, 99),
    "y": ("2ND_COORDINATE", True, ("Y", "Y", "Y", "Y1=", "x"), 98, 30),
    "z": ("3RD_COORDINATE", True, ("Z", "Z", "Z", "Z1=", "ZZ"), 98, 99),
    "i": ("1ST_CIRCLE_CENTER_COORDINATE", False, ("I", "I", "I", "CX"), 97, 97),
    "j": ("2ND_CIRCLE_CENTER_COORDINATE", False, ("J", "J", "J", "CY"), 97, 30),
    "k": ("3RD_CIRCLE_CENTER_COORDINATE", False, ("K", "K", "K", "CZ"), 80, 97),
}
FORMATS = ("M5.3", "M5.3", "M3.3", "B5.4", "Y4.2", "Z7.0", "M5.1", "M5.5")
ODD_FORMATS = (
    "A5.3", "5.3", "M53", "M5.", "", "M5.-2", "M5.400", "M5.2147483647", "M5.3.4", "M5.3X", "m5.3",
    "Z.2", "B.99999999999", "M5. 3", "M5.+3", "M5.0x3",
)  # fmt: skip
COMMENTS = (
    ("(", ")"), ("(", ")"), ("(", ")"), (";", ""), (";", ""), ("*", "*/"), ("{", "}"), ("(*", "*)"),
    ("//", ""), ('"', '"'), ("", ""), ("(", "("), ("MSG(", ")"), ("", ")"), ("REM", ""), ("N", "X"),
)  # fmt: skip
UNREAD_KEYS = (
    "SPLIT_CIRCLE", "STRT_PROC_CHARACTER", "REC_NUM_INCR", "REC_NUM_FIRST", "MAX_COM_LENGTH",
    "MFG_MAX_FEEDRATE", "5X_TYPE_1ST_AXIS", "POLAR_MODE_ANGLE_TYPE", "MIRROR_X_ON", "PLANE_XY",
    "RAPID_2", "RADIUS", "CYCLE_DRILL", "KEEP_FEED",
)  # fmt: skip
ASSIGNMENTS = (
    "+1", "-1", "+2", "-2", "2", "+2*Z", "-1*Z", "+1*Y", "+1*X", "-2*x", "+0.5", "-", "+", "", "*Z",
    "+1*", "-2.5*y", "+3*Q", "+0", "-1e3", "+1*XY",
)  # fmt: skip
AXES = (
    "0;0;1", "0.0;0.0;1.0", "1;0;0", "0;0.6;0.8", "0;1", ";;", "1;;2", "x;y;z", "-0;-0;-1",
    "1e9;2;3",
)  # fmt: skip


class Dialect:
    """A random dialect: the text of its parameter file and what its programs are written with."""

    def __init__(self, rng):
        self.rng = rng
        self.is_lathe = chance(rng, 35)
        self.codes = {}
        self.words = {"t": "T"}
        self.comment = rng.choice(COMMENTS)
        self.record = rng.choice(("N", "N", "N", "N", "NR", ":", "O", "", "%", "n"))
        self.separator = rng.choices(
            (".", ",", "", rng.choice(("1", "-", "X", "AB", ")", "=", "\xb7"))), (72, 10, 15, 3)
        )[0]
        self.entries = []
        self.make_entries()
        self.text = self.make_text()

    def key(self, key, is_exact):
        """The key as the machine's class wants it, seldom another of its forms."""
        rng = self.rng
        if chance(rng, 3):
            return key + rng.choice(("_2ND", "_2ND_LATHE", "_LATHE", "", "_2", " ", "X", "_LATHEX"))
        if is_exact:
            return key + "_LATHE" if self.is_lathe else key
        return key + rng.choice(("", "", "", "_LATHE", "_2ND")) if chance(rng, 20) else key

    def add_command(self, role):
        rng = self.rng
        key, is_exact, usual = COMMANDS[role]
        if chance(rng, 4):
            return
        code = rng.choice(usual)
        if chance(rng, 2):
            code = rng.choice(ODD_CODES)
        elif chance(rng, 3):
            code = rng.choice("GMXHL") + str(rng.choice((0, 1, 7, 10, 12, 100, 101, 999)))
        if role == "rapid" and chance(rng, 0.7):
            code = "FMAX"
        if role == "stop" and self.is_lathe and chance(rng, 60):
            key = "SPINDLE_OFF_LATHE"
        self.entries.append([self.key(key, is_exact), code])
        if code.strip():
            self.codes.setdefault(role, []).append(code.strip())

    def add_address(self, role):
        rng = self.rng
        key, is_exact, usual, on_mill, on_lathe = ADDRESSES[role]
        if not chance(rng, on_lathe if self.is_lathe else on_mill):
            return
        letters = rng.choice(usual)
        if chance(rng, 2):
            letters = rng.choice(
                ("X", "Y", "G", "", "x", "X Y", "=", "1", "AXIS", "+", "\xd8", "N")
            )
        passed = "1" if chance(rng, 95) else rng.choice(("", "RAPID", "0", "FEEDRATE"))
        form = rng.choice(FORMATS) if chance(rng, 92) else rng.choice(ODD_FORMATS)
        self.entries.append([self.key(key, is_exact), letters, passed, form])
        if letters.strip():
            self.words[role] = letters.strip()

    def add_text(self, key, value, percent=95):
        if chance(self.rng, percent):
            self.entries.append([key, value])

    def make_entries(self):
        rng = self.rng
        machine = rng.choice(
            ("NC_LATHE_MACHINE", "LATHE_MACHINE", "NC_STANDARD_LATHE_MACHINES")
            if self.is_lathe
            else ("MILLING_MACHINE", "NC_STANDARD_MACHINES", "", "NC_FIVE_AXIS_MACHINES")
        )
        self.add_text("MFG_CLASS_NAME", machine, 98 if self.is_lathe else 90)
        self.add_text("MFG_INIT_SPINDLE", rng.choice(AXES), 40)
        for axis in "XYZ":
            percent = 40 if self.is_lathe else 8
            usual = (
                rng.choice(("+1", "+2", "-1", "-2")) if chance(rng, 70) else rng.choice(ASSIGNMENTS)
            )
            self.add_text(f"ZX_LATHE_{axis}_ASSIGNMENT", usual, percent)
        self.add_text("COMMENT_START", self.comment[0])
        self.add_text("COMMENT_END", self.comment[1])
        self.add_text("RECORD_NUMBER", self.record)
        self.add_text("DECIMAL_POINT_REPRESENTATION", self.separator, 100)
        for role in COMMANDS:
            self.add_command(role)
            if role in ("end", "halt"):
                while chance(rng, 25):
                    self.add_command(role)
        if chance(rng, 3):  # more commands than a machine word has bits
            for _ in range(rng.choice((40, 50, 51, 52, 120))):
                code = rng.choice("MGMMHX") + str(
                    rng.choice((rng.randint(40, 99), rng.randint(100, 9999)))
                )
                self.entries.append([rng.choice(("PROGRAM_STOP", "PROGRAM_END")), code])
                self.codes.setdefault("halt", []).append(code)
        for role in ADDRESSES:
            self.add_address(role)
        self.centre_is_position = chance(rng, 30)
        flag = rng.choice(("1", "1", "1 ", "12")) if self.centre_is_position else rng.choice("002 ")
        self.add_text("CIRCLE_CENTER_ABS", flag, 97)
        if chance(rng, 50):
            self.words["t"] = rng.choice(("T", "D", "TOOL", "t", "T="))
            self.entries.append(["REV_TLCHG_TLADR", self.words["t"]])
        if chance(rng, 8):
            self.entries.append(list(rng.choice(self.entries)))  # repeated as it is
        if chance(rng, 6):
            self.add_command(rng.choice(list(COMMANDS)))
        if chance(rng, 6):
            self.add_address(rng.choice(list(ADDRESSES)))
        if chance(rng, 12):
            head = self.entries[:1]
            rest = self.entries[1:] if chance(rng, 80) else self.entries
            rng.shuffle(rest)
            self.entries = (head if len(rest) < len(self.entries) else []) + rest
        for _ in range(rng.choice((0, 0, 0, 1, 3))):
            place = rng.randint(0, len(self.entries))
            self.entries.insert(place, [rng.choice(UNREAD_KEYS), str(rng.randint(-5, 99))])

    def make_text(self):
        rng = self.rng
        lines = ["##### Header" if chance(rng, 97) else rng.choice(("Header", "a Header of mine"))]
        if chance(rng, 98):
            lines.append(
                rng.choice(("#FILE:       UNCODED",) * 8 + ("#FILE: uncoded", "#FILE:UNCODED"))
            )
        if chance(rng, 85):
            lines.append("#VERSION:    V1R" + str(rng.choice((5, 5, 5, 7, 8, 6, 10))))
        if chance(rng, 98):
            lines.append("##### Toolmachine Section")
        for number, entry in enumerate(self.entries):
            if chance(rng, 6):
                lines.append(
                    rng.choice(("##### Block Section", "##### Address Section", "# a remark", ""))
                )
            if chance(rng, 2):
                lines.append("# " + "remark " * rng.choice((1, 35, 36, 37, 80)))
            lines += entry
            if chance(rng, 0.3) and number > 3:
                lines.append("x" * rng.choice((253, 254, 255, 256, 257, 510, 511)))
        if chance(rng, 8):
            lines = [
                rng.choice((" ", "\t", "")) + line + rng.choice((" ", "", "\t")) for line in lines
            ]
        end = "\n" if chance(rng, 85) else "\r\n"
        return end.join(lines) + (end if chance(rng, 95) else "")


# ---------------------------------------------------------------------------------------------
# Random programs

EDGES = (254, 255, 256, 257, 509, 510, 511, 512, 765, 1023, 1024, 4096, 65535, 65536, 65791, 131072)
UNKNOWN = (
    "G54", "G17", "G4 P2", "G28", "G92", "M98 P100", "H5", "D1", "%", "O1234", "/", "A90.", "Q1",
    "R5", "G43", "G54.1", "#100=5", "IF", "[#1+2]", "G1.5", "L2", "\xfc\xdf", "E", ",C2", "M=3",
    "GOTO 10", "$",
)  # fmt: skip
ODD_BYTES = "\x00\x01\x07\x08\x0b\x0c\x0d\x1a\x1b\x7f\x80\xa0\xc4\xff\t"


class Program:
    """A random program that fits its dialect most of the time."""

    def __init__(self, rng, dialect):
        self.rng = rng
        self.dialect = dialect
        self.is_arc = False  # an arc is the active movement: words alone would be an arc, too
        plane = ("i", "k") if dialect.is_lathe else ("i", "j")
        self.centres = [role for role in plane if role in dialect.words]
        self.wildness = rng.choice((0, 0, 1, 1, 3, 10))  # percent of odd words

    def number(self, limit=300.0):
        rng, separator = self.rng, self.dialect.separator
        if chance(rng, self.wildness):
            return self.odd_number()
        decimals = rng.choice((0, 1, 2, 3, 3, 3, 4, 6))
        if decimals == 6:  # a tie where five decimals are printed
            text = f"{rng.randint(-int(limit), int(limit))}.{rng.randint(0, 99999):05d}5"
        else:
            text = f"{rng.uniform(-limit, limit):.{decimals}f}"
        if decimals == 0 and chance(rng, 50):
            text += "."
        return text.replace(".", separator)

    def odd_number(self):
        rng, separator = self.rng, self.dialect.separator
        digits = "".join(rng.choices("0123456789", k=rng.choice((1, 8, 10, 18, 19, 20, 24, 60))))
        edge = rng.choice(
            (2**31, 2**32, 2**63, 2**64, 10**9, 10**16, 2**53)
        ) + rng.randint(-2, 2)
        return rng.choice((
            "." + digits, "5.", "-.5", "+5", "+-5", "-+5", "--5", "-", "", ".", "-0", "-0.0",
            "000012.500", digits, "-" + digits, digits + "." + digits, "0." + digits, f"{edge}",
            f"-{edge}.{edge}", "1e5", "1E-3", "0x10", " 5", "- 5", "1.2.3", "1,5", "1.5", "5mm",
            "12.5ABC", "5-3", "1 000.5", "=5", "=AC(5)", "=IC(-3.5)", "=AC(5", "=IC()",
            "=AC(IC(2)", "=AC(5)1", "=+5", "(5)", "[5]", "#1", "0.0000051", "0.000005",
            "-0.000004", "99999.999995", "-1234567.5", "1e", "00000000000000000000005",
        )).replace(".", separator)  # fmt: skip

    def word(self, role, limit=300.0):
        rng = self.rng
        letters = self.dialect.words.get(role)
        if letters is None:
            if not chance(rng, 5):
                return ""
            letters = role.upper()
        number = self.number(limit)
        if role in "xyzijk" and chance(rng, 1.5):
            number = f"={rng.choice(('AC', 'IC'))}({number})"
        if chance(rng, self.wildness / 2):
            return letters * 2 + number
        if chance(rng, self.wildness / 2):  # of which the sign holds for the next one as well
            return f"{letters}- {letters}{number}"
        blank = " " if chance(rng, 2) else ""
        return letters + blank + number

    def code(self, role):
        rng = self.rng
        codes = self.dialect.codes.get(role)
        if not codes:
            return ""
        code = rng.choice(codes)
        split = re.fullmatch(r"(\D+)(\d+)", code)
        if split and not split.group(1)[-1].isalpha() and chance(rng, 50):
            # A word that another command takes stands between the letters and their number.
            return f"{split.group(1)}{self.dialect.words.get('x', 'X')}=AC(5){split.group(2)}"
        if split and chance(rng, 40):
            code = split.group(1) + "0" * rng.choice((0, 0, 1, 2)) + str(int(split.group(2)))
        if chance(rng, self.wildness):
            code = rng.choice((
                code[0] + code, code + ".1", code + ".", code[0] + " " + code[1:], code.lower(),
                code * 2, code + "0", "A" + code, "5" + code, code[0] + "+" + code[1:], code + "=1",
            ))  # fmt: skip
        return code

    def axes(self, least=1):
        names = (
            ("x", "z", "y", "u", "w") if self.dialect.is_lathe else ("x", "y", "z", "u", "v", "w")
        )
        count = self.rng.randint(least, 3)
        roles = (
            self.rng.sample(names[:3], count)
            if chance(self.rng, 88)
            else self.rng.sample(names, count)
        )
        return [self.word(role) for role in roles]

    def movement(self):
        """The words of a movement that is no arc."""
        rng = self.rng
        role = rng.choice(("rapid", "linear", "linear"))
        code = self.code(role)
        needs_code = self.is_arc or chance(rng, 40)
        if self.is_arc and not code and not chance(rng, 5):
            return []
        if needs_code:
            self.is_arc = False
        words = self.axes()
        if chance(rng, 25):
            words.append(self.word("f", 2000.0).replace("-", ""))
        return ([code] if needs_code else []) + words

    def arc(self):
        rng = self.rng
        can_leave = self.dialect.codes.get("rapid") or self.dialect.codes.get("linear")
        if (len(self.centres) < 2 or not can_leave) and not chance(rng, 2):
            return []
        code = self.code(rng.choice(("cw", "ccw")))
        if not code:
            return []
        centres = [self.word(role, 60.0) for role in self.centres]
        if chance(rng, 10):  # the third one, which need not lie in the plane
            centres.append(self.word("j" if self.dialect.is_lathe else "k", 20.0))
        if chance(rng, 0.6):
            centres = [f"R{self.number(50.0)}"]
        ends = self.axes(2) if chance(rng, 92) else []
        if chance(rng, 3) and not self.dialect.centre_is_position:
            letters = [self.dialect.words.get(role, "") for role in self.centres]
            ends, centres = [], [letter + "0" for letter in letters]  # of radius 0
        needs_code = not self.is_arc or chance(rng, 60)
        self.is_arc = True
        return ([code] if needs_code else []) + ends + centres

    def tool_number(self):
        return self.odd_number() if chance(self.rng, 4) else str(self.rng.randint(0, 9999))

    def technology(self):
        rng = self.rng
        return rng.choice((
            lambda: [self.code("cws"), self.word("s", 9000.0)],
            lambda: [self.code("ccws"), self.word("s", 9000.0)],
            lambda: [self.word("s", 9000.0)],
            lambda: [self.code("stop")],
            lambda: [self.code(rng.choice(("on", "off")))],
            lambda: [self.code(rng.choice(("mmpm", "mmpr"))), self.word("f", 2000.0)],
            lambda: [self.word("f", 2000.0)],
            lambda: [self.code("change") or "M6", self.dialect.words["t"] + self.tool_number()],
            lambda: [self.dialect.words["t"] + self.tool_number()],
            lambda: [self.code(rng.choice(("abs", "inc", "abs")))],
            lambda: [self.code(rng.choice(("on", "off", "halt")))],
        ))()  # fmt: skip

    def remark(self):
        start, end = self.dialect.comment
        text = self.rng.choice(
            ("part", "X5 Y6", "G1", "a (b", "", "x" * 40, "\xe4", "(" + end, "R2 \t")
        )
        return start + text + (end if chance(self.rng, 92) else "")

    def block(self):
        rng = self.rng
        words = rng.choices(
            (self.movement, self.arc, self.technology, lambda: [rng.choice(UNKNOWN)], lambda: []),
            (50, 22, 18, 3, 4),
        )[0]()
        while chance(rng, 12):
            words += self.technology()
        if words and chance(rng, 3):
            words += [rng.choice(UNKNOWN)]
        if chance(rng, 20):
            rng.shuffle(words)
        if chance(rng, 2):
            words += [self.code(rng.choice(list(COMMANDS)))]
        if self.dialect.comment[0] and chance(rng, 6):
            words.insert(rng.randint(0, len(words)), self.remark())
        text = rng.choice((" ", " ", " ", "", "", "  ", "\t")).join(words)
        if self.dialect.record and chance(rng, 30):
            text = (
                f"{self.dialect.record}{rng.randint(0, 99999)}{rng.choice((' ', '', '  '))}{text}"
            )
        if chance(rng, 2):
            text = " " * rng.randint(1, 3) + text + " " * rng.randint(0, 3)
        if chance(rng, self.wildness / 3):
            place = rng.randint(0, len(text))
            text = text[:place] + rng.choice(ODD_BYTES) + text[place:]
        return text

    def long_line(self):
        """A line around one of the limits, with a word at it."""
        rng = self.rng
        length = rng.choice(EDGES[:10] * 8 + EDGES) + rng.randint(-4, 4)
        fill = rng.choice(
            (" ", "0", "9", "X1 ", "Q7 ", "x", self.block() + " ", self.remark() + " ", "\x00")
        )
        start = self.block()
        fill = fill or " "
        text = start + (fill * (length // len(fill) + 1))[: max(0, length - len(start))]
        return text + rng.choice(("", "", self.block(), " " + self.block()))

    def make(self):
        rng = self.rng
        count = int(min(400, 3 + rng.expovariate(1 / 22)))
        has_long = chance(rng, 8)
        blocks = ["%"] if chance(rng, 10) else []
        for _ in range(count):
            blocks.append(self.long_line() if has_long and chance(rng, 8) else self.block())
        if chance(rng, 0.4):  # more than a buffer of output, more words than are told apart
            blocks *= 3000 // len(blocks) + 1
        if chance(rng, 0.3):
            blocks += [f"Q{n} {'XYZ'[n % 3]}7W{n}" for n in range(rng.choice((90, 1990, 2200)))]
        if chance(rng, 60):
            blocks.append(self.code(rng.choice(("end", "halt"))))
        end = rng.choice(("\n",) * 8 + ("\r\n", "\r\n", "\r", "\n\r"))
        text = end.join(blocks) + rng.choice(
            ("\n", "\n", "\n", "", "\r\n", "\n\n", "\x1a", "\x00\n")
        )
        return text


def damaged(rng, data):
    """The bytes with a few changes."""
    data = bytearray(data)
    for _ in range(rng.choice((1, 1, 2, 5))):
        place = rng.randint(0, len(data))
        length = rng.choice((1, 1, 1, 2, 8, 40))
        change = rng.randrange(7)
        if change == 0:
            data[place : place + length] = b""
        elif change == 1:
            data[place:place] = rng.randbytes(length)
        elif change == 2:
            data[place : place + 1] = bytes(
                [rng.choice((0, 10, 13, 32, 48, 65, 255, rng.randrange(256)))]
            )
        elif change == 3:
            del data[place:]
        elif change == 4:
            other = rng.randint(0, len(data))
            data[place:place] = data[other : other + 30]
        else:  # whole lines
            lines = bytes(data).split(b"\n")
            at = rng.randrange(len(lines))
            if change == 5:
                del lines[at]
            else:
                lines.insert(rng.randint(0, len(lines)), lines[at] * rng.choice((1, 1, 40)))
            data = bytearray(b"\n".join(lines))
    return bytes(data)


# ---------------------------------------------------------------------------------------------
# Random cases


def old_keys():
    lines = (TREE / "tests/update/data/allKeys.old").read_text().splitlines()
    return sorted({line[:8] for line in lines if re.match(r"\*[A-Z0-9_]{7}( |$)", line)})


OLD_KEYS = old_keys()
SHAPING_KEYS = {
    "*5XGABEL": tuple(range(0, 13)) + (77, -1, ""),
    "*MACHTYP": ("LATHE 3", "MILL", ""),
    "*5XKRDAA": (1, 2, 3, 4, ""),
    "*5XKRDUA": (1, 2, 3, 0, ""),
    "*MITTANF": ("(", ";", "(MSG, ", ""),
    "*MITTEND": (")", "", "*/"),
    "*DEZKOMM": (".", ",", ""),
    "*VERSION": ("5.3", "7.0", ""),
}


def old_file(rng):
    """The plain lines of a file of the older generation."""
    lines = ["PARAMETERS"] if chance(rng, 50) else []
    lines += ["*VERSION 5.3"] if chance(rng, 80) else []
    keys = [key for key in SHAPING_KEYS if chance(rng, 60)]
    keys += rng.sample(OLD_KEYS, min(len(OLD_KEYS), rng.choice((0, 3, 20, 60))))
    keys += rng.choices(
        ("*CYCPL01", "*CYCAP07", "*CYCPK36", "*MAKRO01", "*ADRRAPI", "*ZZZZZZZ"),
        k=rng.randint(0, 4),
    )
    rng.shuffle(keys)
    for key in keys:
        value = rng.choice((
            str(rng.randint(-9, 9)), f"{rng.uniform(-900, 900):.3f}", "ABC DEF", "", "G00",
            str(rng.randint(-(10**10), 10**10)), "1.23456789", "-" * 20, "99999999999999999999",
            "x" * rng.choice((8, 9, 60, 70, 71)),
        ))  # fmt: skip
        if chance(rng, 0.3):
            value = "x" * rng.choice((72, 73, 80, 255))  # of which the line is too long to be coded
        if key in SHAPING_KEYS:
            value = str(rng.choice(SHAPING_KEYS[key]))
        lines.append(key + rng.choice((" ", " ", " ", "  ", "")) + value)
        while chance(rng, 12):
            lines.append(rng.choice(("a line of a block", "X5", "", " 7.5", "*no key")))
    return "\n".join(lines).encode("latin-1") + b"\n"


def random_options(rng):
    options = ["-l", "part.log"] if chance(rng, 93) else []
    options += ["--report", REPORT] if chance(rng, 96) else []
    if chance(rng, 15):
        options += rng.choice(
            (["--strict"], ["--summary"], ["--quiet"], ["--quiet", "--strict"], ["-ot", "APT"])
        )
    return options


def random_case(seed, number):
    """A dialect of one of several sorts and a program for it."""
    rng = random.Random(f"{seed}:random:{number}")
    dialect = Dialect(rng)
    parameters = dialect.text.encode("latin-1")
    program = Program(rng, dialect).make().encode("latin-1")
    sort = rng.choices(
        ("plain", "program damaged", "other program", "coded", "coded damaged", "broken", "old"),
        (72, 7, 3, 6, 2, 6, 4),
    )[0]
    files = {"dialect.pp": parameters, "part.nc": program}
    steps = []
    if sort == "program damaged":
        files["part.nc"] = damaged(rng, program)
    elif sort == "other program":
        files["part.nc"] = Program(rng, Dialect(rng)).make().encode("latin-1")
    elif sort == "broken":
        files["dialect.pp"] = damaged(rng, parameters)
    elif sort in ("coded", "coded damaged", "old"):
        del files["dialect.pp"]
        files["text.pp"] = old_file(rng) if sort == "old" else parameters
        steps.append(tool("encode-old" if sort == "old" else "encode", "text.pp", "dialect.pp"))
        if sort == "coded damaged" or sort == "old" and chance(rng, 20):
            steps.append(Damage("dialect.pp", rng.random()))
    steps.append(conversion(options=random_options(rng)))
    return Case("random", str(number), sort, files, steps)


def random_tool_case(seed, number):
    """Some commands of the parameter tool over a file of one of several sorts."""
    rng = random.Random(f"{seed}:tool:{number}")
    sort = rng.choice(("current", "current", "broken", "old", "old", "coded", "codedOld"))
    if sort in ("old", "codedOld"):
        data = old_file(rng)
    else:
        data = Dialect(rng).text.encode("latin-1")
    steps = []
    files = {"dialect.pp": damaged(rng, data) if sort == "broken" else data}
    if sort in ("coded", "codedOld"):
        files = {"text.pp": data}
        steps = [tool("encode" if sort == "coded" else "encode-old", "text.pp", "dialect.pp")]
        if chance(rng, 50):
            steps.append(Damage("dialect.pp", rng.random()))
    first = rng.choice(EVERY_TOOL_RUN[:6])
    steps += [first, *rng.sample(EVERY_TOOL_RUN, 2)]
    return Case("tool", str(number), sort, files, steps)


def random_call_case(seed, number):
    """A command line that may be wrong, over files that are not."""
    rng = random.Random(f"{seed}:call:{number}")
    files = {
        "dialect.pp": INPUTS.examples["milling"][0],
        "part.nc": INPUTS.examples["milling"][1],
        "old.pp": b"*5XGABEL 0\n",
    }
    names = "dialect.pp part.nc part.apt missing none/there . old.pp -".split() + ["", "a\nb"]
    if chance(rng, 25):
        commands = "check encode decode update encode-old --help --version -h x".split()
        arguments = [rng.choice(commands), *rng.choices(names, k=rng.choice((0, 1, 2, 2, 2, 3)))]
        return Case("call", str(number), "", files, [tool(*arguments, stdin="dialect.pp")])
    arguments = []
    for option, name in (
        ("-p", "dialect.pp"),
        ("-nc", "part.nc"),
        ("-of", "part.apt"),
        ("-l", "part.log"),
    ):
        if chance(rng, 90):
            spelled = option.upper() if chance(rng, 10) else option
            arguments.append([spelled, name if chance(rng, 85) else rng.choice(names)])
    extra = (
        ["--report", REPORT], ["--report", REPORT], ["--report", "part.apt"], ["--report"],
        ["--report=x"], ["--report", "none/there"], ["--strict"], ["--summary"], ["--quiet"],
        ["--quiet=1"], ["-ot", "APT"], ["-ot", "TOOLPATH"], ["-ot"], ["--help"], ["--version"],
        ["-x"], ["-l", "part.log"], ["-p"], [""],
    )  # fmt: skip
    arguments += rng.sample(extra, rng.choice((0, 1, 1, 2, 3)))
    rng.shuffle(arguments)
    return Case("call", str(number), "", files, [Run("quillmark", tuple(sum(arguments, [])))])


# ---------------------------------------------------------------------------------------------
# Running and comparing

REPORT_SECONDS = re.compile(rb'^(  "seconds": )[0-9.]+', re.MULTILINE)
SUMMARY_SECONDS = re.compile(rb"^(quillmark: seconds: )[0-9]+\.[0-9]{3}$", re.MULTILINE)
ASSERTION = re.compile(rb"^(quillmark[a-z-]*: )([^\n]*)(: Assertion `)", re.MULTILINE)


class Runner:
    """Runs cases in a folder of its own, where nothing is left of the case before."""

    def __init__(self, root):
        self.folder = tempfile.mkdtemp(dir=root)
        os.chdir(self.folder)
        self.streams = [os.memfd_create(name) for name in ("stdout", "stderr")]
        self.child = None
        self.is_late = False
        signal.signal(signal.SIGALRM, self.kill_child)
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_FSIZE, (MOST_BYTES, MOST_BYTES))

    def kill_child(self, _signal, _frame):
        if self.child is not None:
            self.is_late = True
            os.kill(self.child, signal.SIGKILL)

    def run(self, step, programs):
        for stream in self.streams:
            os.ftruncate(stream, 0)
            os.lseek(stream, 0, os.SEEK_SET)
        stdin = step.stdin if step.stdin and os.path.isfile(step.stdin) else "/dev/null"
        actions = [(os.POSIX_SPAWN_OPEN, 0, stdin, os.O_RDONLY, 0)]
        actions += [(os.POSIX_SPAWN_DUP2, stream, i + 1) for i, stream in enumerate(self.streams)]
        self.is_late = False
        self.child = os.posix_spawn(
            f"{programs}/{step.program}",
            [step.program, *step.arguments],
            {"LC_ALL": "C", "PATH": "/usr/bin:/bin"},
            file_actions=actions,
            setsigdef=[signal.SIGPIPE, signal.SIGXFSZ],
        )
        signal.setitimer(signal.ITIMER_REAL, SECONDS_PER_RUN)
        _, status = os.waitpid(self.child, 0)
        self.child = None
        signal.setitimer(signal.ITIMER_REAL, 0)
        code = os.waitstatus_to_exitcode(status)
        text = f"exit {code}" if code >= 0 else f"signal {-code}"
        text = f"ended after {SECONDS_PER_RUN} seconds" if self.is_late else text
        return [text, *(os.pread(s, os.fstat(s).st_size, 0) for s in self.streams)]

    def clear(self):
        with os.scandir(self.folder) as entries:
            for entry in entries:
                if entry.is_dir(follow_symlinks=False):
                    shutil.rmtree(entry.path)
                else:
                    os.unlink(entry.path)

    def run_case(self, case, programs):
        """What the case left: a dict of byte strings, statuses and streams among them."""
        self.clear()
        for name, data in case.files.items():
            with open(name, "wb") as file:
                file.write(data)
        left = {}
        for number, step in enumerate(case.steps):
            if isinstance(step, Damage):
                if os.path.isfile(step.file):
                    with open(step.file, "r+b") as file:
                        data = damaged(random.Random(step.seed), file.read())
                        file.seek(0)
                        file.truncate()
                        file.write(data)
                continue
            status, out, err = self.run(step, programs)
            left |= {
                f"{number} status": status.encode(),
                f"{number} stdout": out,
                f"{number} stderr": err,
            }
        for name in sorted(os.listdir(self.folder)):
            try:
                with open(name, "rb") as file:
                    left["file " + name] = file.read()
            except IsADirectoryError:
                left["file " + name] = b"a folder"
        return left


def comparable(left):
    """Without what may differ, and the source positions of assertions."""
    texts, places = {}, []
    for name, data in left.items():
        if OPTIONS.outputs_alone and (name.endswith((" stderr", " stdout"))
                                      or data.startswith(b"{\n")):
            continue
        if name.startswith("file ") and data.startswith(b"{\n"):  # a report, whatever its name
            data = REPORT_SECONDS.sub(rb"\1-", data, count=1)
        if name.endswith(" stderr"):
            data = SUMMARY_SECONDS.sub(rb"\1-", data, count=1)
            places += [found.group(2).decode("latin-1") for found in ASSERTION.finditer(data)]
            data = ASSERTION.sub(rb"\1-\3", data)
        texts[name] = data
    return texts, tuple(places)


def first_difference(old, new):
    for name in sorted(old.keys() | new.keys()):
        if name not in new or name not in old:
            return f"{name}: of the {'old' if name in old else 'new'} program only"
        if old[name] != new[name]:
            before, after = old[name].split(b"\n"), new[name].split(b"\n")
            for line, pair in enumerate(zip(before + [b""], after + [b""]), 1):
                if pair[0] != pair[1]:
                    return f"{name}, line {line}: {pair[0][:90]!r} -> {pair[1][:90]!r}"
            return f"{name}: one has more lines"
    return None


def figures(case, left):
    """What the case gave, as counts to be added up: only of conversions with a report."""
    counts = collections.Counter()
    group = case.sort
    counts["cases", group] += 1
    last = max(int(name.split()[0]) for name in left if name.endswith(" status"))
    counts["end", group, left[f"{last} status"].decode()] += 1
    try:
        report = json.loads(left["file " + REPORT])
    except (KeyError, ValueError):
        return counts
    counts["reports", group] += 1
    counts[
        "code", "ends the process" if report["return_code"] is None else report["return_code"]
    ] += 1
    statements = report["statements"]
    for name, count in statements.items():
        counts["statements", name] += count
        counts["cases with", name] += count > 0
    counts["moves", group] += (
        statements["rapid_moves"] + statements["feed_moves"] + statements["arcs"] > 0
    )
    counts["arcs", group] += statements["arcs"] > 0
    counts["any", group] += any(statements.values())
    for name in ("dropped_arcs", "long_blocks", "nul_bytes", "unterminated_comments"):
        counts["cases with", name] += report[name]["count"] > 0
        counts["statements", name] += report[name]["count"]
    counts["cases with", "unrecognised"] += report["unrecognised"]["blocks"] > 0
    counts["statements", "unrecognised"] += report["unrecognised"]["word_count"]
    for warning in report["warnings"]:
        counts["statements", warning["kind"]] += 1
    for kind in {warning["kind"] for warning in report["warnings"]}:
        counts["cases with", kind] += 1
    return counts


def keep(folder, case, old, new):
    shutil.rmtree(folder, ignore_errors=True)
    for side, data in (("inputs", case.files), ("old", old), ("new", new)):
        (folder / side).mkdir(parents=True)
        for name, content in data.items():
            (folder / side / name.removeprefix("file ").replace("/", "_")).write_bytes(content)
    runs = [
        f"(damage {step.file} with random number generator {step.seed!r})"
        if isinstance(step, Damage)
        else " ".join(
            [step.program, *map(repr, step.arguments), *(["<", step.stdin] if step.stdin else [])]
        )
        for step in case.steps
    ]
    (folder / "runs").write_text(f"{case.kind}: {case.name}\n" + "\n".join(runs) + "\n")


def start_worker(root, options, kept):
    global RUNNER, OPTIONS, KEPT
    signal.signal(signal.SIGINT, signal.SIG_IGN)
    RUNNER, OPTIONS, KEPT = Runner(root), options, kept


def kept_folder(job, what):
    """Where the files of this case go, or None when there are enough."""
    with KEPT.get_lock():
        KEPT.value += 1
        enough = KEPT.value > MOST_KEPT
    return None if enough else OPTIONS.keep / f"{what}-{job[0].replace(' ', '-')}-{job[1]}"


TROUBLE = re.compile(rb"Sanitizer|runtime error:|terminate called|stack smashing|free\(\)|malloc")


def trouble_of(left):
    """What no run should do, the same in both builds or not: a crash, a hang, a finding of a
    sanitizer. An assertion report before an abort is deliberate."""
    for name, data in left.items():
        if name.endswith(" stderr") and TROUBLE.search(data):
            return data[TROUBLE.search(data).start() :].split(b"\n")[0][:120].decode("latin-1")
        if name.endswith(" status") and not data.startswith(b"exit "):
            if data != b"signal 6" or not ASSERTION.search(left[name[:-6] + "stderr"]):
                return data.decode()
    return None


Outcome = collections.namedtuple("Outcome", "runs difference places trouble ends figures")


def compare_case(job):
    kind, number = job
    makers = {"random": random_case, "random tool": random_tool_case, "call": random_call_case}
    case = makers[kind](OPTIONS.seed, number) if kind in makers else FIXED[kind][number]
    old_left = RUNNER.run_case(case, OPTIONS.old)
    new_left = RUNNER.run_case(case, OPTIONS.new)
    (old, old_places), (new, new_places) = comparable(old_left), comparable(new_left)
    difference = None
    if old != new or OPTIONS.exact and old_places != new_places:
        text = (
            first_difference(old, new) or f"position of an assertion: {old_places} -> {new_places}"
        )
        again = comparable(RUNNER.run_case(case, OPTIONS.old))[0]
        if again != old:
            text = "the old program differs from itself: " + str(first_difference(old, again))
        folder = kept_folder(job, "difference")
        if folder is not None:
            keep(folder, case, old_left, new_left)
        difference = (f"{kind} {case.name}", text, folder)
    trouble = trouble_of(old_left)
    if trouble is not None:
        folder = kept_folder(job, "trouble")
        if folder is not None:
            keep(folder, case, old_left, new_left)
        trouble = (f"{kind} {case.name}", trouble, folder)
    places = (old_places, new_places) if old_places != new_places else None
    runs = sum(isinstance(step, Run) for step in case.steps)
    ends = [data.decode() for name, data in old_left.items() if name.endswith(" status")]
    return Outcome(runs, difference, places, trouble, ends, figures(case, old_left))


# ---------------------------------------------------------------------------------------------
# The whole comparison


def percent(part, whole):
    return f"{100.0 * part / whole:5.1f} %" if whole else "    - "


def tell_figures(counts):
    """What the random programs gave, so that a reader sees that they are worth comparing."""
    print("\n== what the random programs gave with the old program ==")
    print(f"{'sort':<18}{'programs':>9}{'a statement':>13}{'a movement':>13}{'an arc':>13}   end")
    groups = [key[1] for key in counts if key[0] == "cases"]
    for group in sorted(groups, key=lambda group: -counts["cases", group]):
        reports = counts["reports", group]
        shares = [percent(counts[name, group], reports) for name in ("any", "moves", "arcs")]
        ends = collections.Counter(
            {key[2]: n for key, n in counts.items() if key[0] == "end" and key[1] == group}
        )
        text = ", ".join(f"{name} {n}" for name, n in ends.most_common(6))
        columns = "".join(f"{share:>13}" for share in shares)
        print(f"{group:<18}{counts['cases', group]:>9}{columns}   {text}")
    codes = sorted(
        (key[1] for key in counts if key[0] == "code"), key=lambda code: -counts["code", code]
    )
    print("return codes: " + ", ".join(f"{code} {counts['code', code]}" for code in codes))
    reports = sum(n for key, n in counts.items() if key[0] == "reports")
    print(f"\n{'of the reports':<24}{'programs':>10}{'share':>9}{'in all':>12}")
    for key in sorted(k for k in counts if k[0] == "cases with"):
        share, in_all = percent(counts[key], reports), counts["statements", key[1]]
        print(f"{key[1]:<24}{counts[key]:>10}{share:>9}{in_all:>12}")


def is_worth_it(counts):
    reports = sum(n for key, n in counts.items() if key[0] == "reports")
    moves = sum(n for key, n in counts.items() if key[0] == "moves")
    arcs = sum(n for key, n in counts.items() if key[0] == "arcs")
    return reports < 200 or moves > reports / 2 and arcs > reports / 5


def digest(folder):
    names = ("quillmark", "quillmark-param")
    return hashlib.sha256(b"".join((folder / name).read_bytes() for name in names)).hexdigest()[:12]


def read_options():
    parser = argparse.ArgumentParser(prog="compareTrees", allow_abbrev=False)
    parser.add_argument("--old", type=pathlib.Path, required=True)
    parser.add_argument("--new", type=pathlib.Path, required=True)
    parser.add_argument("--keep", type=pathlib.Path, required=True)
    parser.add_argument("--seed", type=int, required=True)
    parser.add_argument("--programs", type=int, required=True)
    parser.add_argument("--exact", action="store_true")
    parser.add_argument("--outputs-alone", action="store_true")
    options = parser.parse_args()
    options.old, options.new, options.keep = (
        path.resolve() for path in (options.old, options.new, options.keep)
    )
    return options


def main():
    options = read_options()
    digests = digest(options.old), digest(options.new)
    same = "; the programs are the same, byte for byte" if digests[0] == digests[1] else ""
    print(f"old {digests[0]}, new {digests[1]}{same}\nseed {options.seed}")
    shutil.rmtree(options.keep, ignore_errors=True)
    jobs = [(kind, number) for kind, cases in FIXED.items() for number in range(len(cases))]
    jobs += [("random", number) for number in range(options.programs)]
    jobs += [("random tool", number) for number in range(options.programs // 5)]
    jobs += [("call", number) for number in range(options.programs // 20)]
    if not FIXED["samples"]:
        print("no sample programs: linuxcnc-uspace is not installed (skipped)")

    root = tempfile.mkdtemp(dir="/dev/shm" if os.access("/dev/shm", os.W_OK) else None)
    kept = multiprocessing.Value("i", 0)
    cases, runs, differing = collections.Counter(), collections.Counter(), collections.Counter()
    counts, places, ends = (collections.Counter() for _ in range(3))
    shown, troubles = 0, 0
    begin = time.monotonic()
    try:
        with multiprocessing.Pool(None, start_worker, (root, options, kept)) as pool:
            outcomes = pool.imap(compare_case, jobs, chunksize=16)
            for (kind, _), outcome in zip(jobs, outcomes):
                cases[kind] += 1
                runs[kind] += outcome.runs
                ends.update(outcome.ends)
                places[outcome.places] += 1
                if kind == "random":
                    counts += outcome.figures
                if outcome.trouble is not None:
                    name, text, folder = outcome.trouble
                    troubles += 1
                    if troubles <= MOST_SHOWN:
                        print(f"TROUBLE in {name}, with the old program\n  {text}\n  {folder}")
                if outcome.difference is not None:
                    differing[kind] += 1
                    name, text, folder = outcome.difference
                    shown += 1
                    if shown <= MOST_SHOWN:
                        print(f"DIFFERENCE in {name}\n  {text}\n  {folder}", flush=True)
    finally:
        shutil.rmtree(root, ignore_errors=True)
    seconds = time.monotonic() - begin

    if shown > MOST_SHOWN:
        print(f"and {shown - MOST_SHOWN} more differences")
    if shown > 0:
        first = min(shown, MOST_KEPT)
        print(f"the files of the first {first} of {shown} differences are in {options.keep}")
    tell_figures(counts)
    print("\nends of all runs: " + ", ".join(f"{end} {n}" for end, n in ends.most_common()))
    if troubles > 0:
        print(f"crashes, hangs or findings of sanitizers in the old program: {troubles}")
    del places[None]
    for (old, new), count in places.most_common(5):
        print(f"\nassertions at another position, {count} times:")
        print(f"  {' '.join(old)}\n  {' '.join(new)}")
    failed = shown > 0
    if not is_worth_it(counts):
        print("too few of the random programs move the tool: this comparison says little")
        failed = True
    print(
        f"\n{sum(runs.values())} runs of each program in {seconds:.0f} seconds, seed {options.seed}"
    )
    print("; ".join(f"{kind}: {n} cases, {differing[kind]} differ" for kind, n in cases.items()))
    return 1 if failed else 0


INPUTS = Inputs()
FIXED = {
    "corpus": list(INPUTS.corpus_cases()),
    "examples": list(INPUTS.example_cases()),
    "samples": list(INPUTS.sample_cases()),
    "tool": list(INPUTS.tool_cases()),
}

if __name__ == "__main__":
    sys.exit(main())
