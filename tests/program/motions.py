"""The movements of an APT source and of what rs274 -g prints: tuples of a kind ("rapid", "feed",
"clockwise", "counter-clockwise"), the end point, and for an arc its centre in the plane."""

import os
import re
import subprocess
import tempfile

CANON = re.compile(r"(STRAIGHT_TRAVERSE|STRAIGHT_FEED|ARC_FEED)\(([^)]*)\)")


def numbers(text):
    return tuple(float(part) for part in text.split(","))


def of_apt(text):
    found, place, direction, rapid = [], (0.0, 0.0, 0.0), (), False
    for line in text.replace("$\n", "").splitlines():
        if line == "RAPID":
            rapid = True
        elif line.startswith("INDIRV/"):
            direction = numbers(line[7:])
        elif line.startswith("GOTO/"):
            place = numbers(line[5:])
            found.append(("rapid" if rapid else "feed", place))
            rapid = False
        elif line.startswith("TLON,"):
            centre = numbers(line[line.index("(CIRCLE/") + 8 : line.index("),ON")])
            turn = (place[0] - centre[0]) * direction[1] - (place[1] - centre[1]) * direction[0]
            place = numbers(line[line.index("(LINE/") + 6 : -1])[3:]
            found.append(("counter-clockwise" if turn > 0 else "clockwise", place, centre[:2]))
    return found


def of_canon(text):
    found = []
    for name, arguments in CANON.findall(text):
        values = numbers(arguments)
        if name == "ARC_FEED":
            x, y, i, j, turns, z = values[:6]
            kind = "counter-clockwise" if turns > 0 else "clockwise"
            found.append((kind, (x, y, z), (i, j)))
        else:
            found.append(("rapid" if name == "STRAIGHT_TRAVERSE" else "feed", values[:3]))
    return found


def same(left, right, tolerance):
    """Whether two movements are the same within a tolerance per coordinate."""
    return (
        left[0] == right[0]
        and len(left) == len(right)
        and all(
            abs(a - b) <= tolerance + 1e-12 * abs(a)
            for one, other in zip(left[1:], right[1:])
            for a, b in zip(one, other)
        )
    )


def first_difference(left, right, tolerance):
    """Where two lists of movements part, and what stands there; None when they do not."""
    for at, (one, other) in enumerate(zip(left, right)):
        if not same(one, other, tolerance):
            return at, one, other
    if len(left) != len(right):
        at = min(len(left), len(right))
        return at, *((rows[at] if at < len(rows) else None) for rows in (left, right))
    return None


def judge(program, seconds=20):
    """What rs274 makes of a file: its exit status (None when it does not end), output and errors.
    It runs in a folder of its own, since it keeps variables there, and finds the subprograms that
    stand beside the file through links."""
    folder = os.path.dirname(os.path.abspath(program))
    with tempfile.TemporaryDirectory() as work:
        for name in os.listdir(folder):
            os.symlink(os.path.join(folder, name), os.path.join(work, name))
        command = ["rs274", "-g", os.path.basename(program)]
        try:
            for _ in range(5):  # now and then a signal ends one of two that run at once
                run = subprocess.run(command, cwd=work, capture_output=True, timeout=seconds)
                if run.returncode >= 0:
                    break
        except subprocess.TimeoutExpired as slow:
            return None, (slow.stdout or b"").decode("latin-1"), ""
    return run.returncode, run.stdout.decode("latin-1"), run.stderr.decode("latin-1")


def convert(quillmark, dialect, program):
    """What quillmark makes of a file: its exit status, the APT and what it tells."""
    with tempfile.TemporaryDirectory() as work:
        apt = os.path.join(work, "part.apt")
        run = subprocess.run(
            [quillmark, "-p", dialect, "-nc", program, "-of", apt], capture_output=True
        )
        try:
            with open(apt, encoding="latin-1") as file:
                text = file.read()
        except OSError:
            text = ""
    told = (run.stdout + run.stderr).decode("latin-1")
    return run.returncode, text, told
