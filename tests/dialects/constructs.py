"""Tries the constructs of constructs.txt in every dialect, and compares the table of a document with
them.

    constructs.py QUILLMARK DIALECTS DOCUMENT       tries and compares
    constructs.py --table DIALECTS                  prints the table

Exits with 1 when something differs."""

import fnmatch
import glob
import os
import re
import subprocess
import sys
import tempfile

START = "G0 X40 Z10\nG1 Z9 F100\n"
ROWS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "constructs.txt")
MADE_FROM = {"five-axis-table": "hash-mill", "five-axis-head": "r-parameter-mill"}
CELLS = {"converted": "converted", "told": "told", "refused": "refused", "-": "–"}


def read_rows():
    """Titles, each with its lines: patterns, program, outcome and what belongs to it."""
    rows = {}
    with open(ROWS, encoding="ascii") as file:
        for line in file.read().splitlines():
            if line.startswith("== "):
                lines = rows.setdefault(line[3:], [])
            elif line and not line.startswith("#"):
                patterns, program, outcome, argument = re.fullmatch(
                    r"(.*?) \| (.*) => (\S+) ?(.*)", line
                ).groups()
                program = program.replace(" \\ ", "\n") + "\n"
                lines.append((patterns.split(), program, outcome, argument))
    return rows


def line_for(name, lines):
    """The line that names a dialect, or else the one it is made from."""
    own = [line for line in lines if name in line[0]]
    name = MADE_FROM.get(name, name)
    return own[0] if own else next(
        line for line in lines if any(fnmatch.fnmatchcase(name, pattern) for pattern in line[0])
    )


def dialects_of(folder):
    paths = glob.glob(os.path.join(folder, "*.pp"))
    return dict(sorted((os.path.basename(path)[:-3], path) for path in paths))


def run(quillmark, dialect, text):
    """Exit status, what was told, and the statements."""
    with tempfile.TemporaryDirectory() as folder:
        program, apt = os.path.join(folder, "part.nc"), os.path.join(folder, "part.apt")
        with open(program, "w", encoding="ascii") as file:
            file.write(START + text)
        command = [quillmark, "--strict", "-p", dialect, "-nc", program, "-of", apt]
        done = subprocess.run(command, capture_output=True, timeout=60)
        with open(apt, encoding="ascii") as file:
            made = file.read().replace(" ", "").splitlines()
    return done.returncode, (done.stdout + done.stderr).decode("latin-1"), made


def outcome_of(status, told):
    error = re.search(r"error (\d+)", told)
    if error:
        return "refused", error[1]
    return ("converted" if status == 0 and told == "" else "told"), ""


def fault(quillmark, dialect, line, before):
    """What is otherwise than a line says; empty when nothing."""
    _, program, outcome, argument = line
    if outcome == "-":
        return ""
    status, told, made = run(quillmark, dialect, program)
    found, code = outcome_of(status, told)
    if found != outcome or (outcome == "refused" and code != argument):
        return f"{found} {code}: {told.strip().splitlines()[:3]}"
    more = made[len(before) :]
    if outcome == "converted" and argument and not fnmatch.filter(more, argument):
        return f"no {argument} in {more[:9]}"
    return ""


def table(rows, names):
    lines = ["| construct | " + " | ".join(f"`{name}`" for name in names) + " |"]
    lines.append("|---|" + "---|" * len(names))
    for title, row in rows.items():
        cells = [CELLS[line_for(name, row)[2]] for name in names]
        lines.append(f"| {title} | " + " | ".join(cells) + " |")
    return "\n".join(lines) + "\n"


def main():
    rows = read_rows()
    if sys.argv[1] == "--table":
        print(table(rows, dialects_of(sys.argv[2])), end="")
        return
    quillmark, folder, document = sys.argv[1:]
    dialects, faults = dialects_of(folder), 0
    for name, dialect in dialects.items():
        before = run(quillmark, dialect, "")[2]
        for title, row in rows.items():
            reason = fault(quillmark, dialect, line_for(name, row), before)
            faults += bool(reason)
            if reason:
                print(f"{name}: {title}: {reason}")
    with open(document, encoding="utf-8") as file:
        if table(rows, dialects) not in file.read():
            faults += 1
            print(f"{document} has another table; constructs.py --table {folder} prints it")
    print(f"{len(rows)} constructs, {len(dialects)} dialects, {faults} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
