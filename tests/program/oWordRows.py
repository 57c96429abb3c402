"""Tries the rows of o-word programs on rs274: the points that stand in the file must be its own,
and it must fail where a row does. Rows whose title names rs274 are left out.

    oWordRows.py FILE"""

import os
import re
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "path"))

import canonReader  # noqa: E402
import runs  # noqa: E402
import steps  # noqa: E402

PRINTED = 1.01e-4  # one unit of the last digit of rs274
MOST = 20  # a program without end is cut there


def rows(path):
    """Title, files by name and outcome; ProgramRows.h tells the form."""
    part = None
    with open(path, encoding="utf-8") as file:
        for line in file.read().splitlines():
            if line.startswith("== "):
                title, files, part = line[3:], {"part.ngc": []}, "part.ngc"
            elif line.startswith("-- "):
                part = line[3:]
                files[part] = []
            elif line.startswith("=> "):
                yield title, files, line[3:]
                part = None
            elif part:
                files[part].append(line)


def point(text):
    values = tuple(float(part) for part in text.split(","))
    return values + (0.0,) * (3 - len(values))


def main():
    tried, found = 0, []
    for title, files, outcome in rows(sys.argv[1]):
        if "rs274" in title or "dialect" in files:
            continue
        tried += 1
        if not any(re.search(r"\bm2$|^%", line) for line in files["part.ngc"]):
            files["part.ngc"].append("m2")
        with tempfile.TemporaryDirectory() as folder:
            for name, lines in files.items():
                with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                    file.write("\n".join(lines) + "\n")
            status, text, told = runs.judge(os.path.join(folder, "part.ngc"), 2)
        points, _, failure = outcome.partition("!")
        wanted = [point(text) for text in points.split()]
        made = [step.place for step in canonReader.read(text) if step.kind in steps.MOVEMENTS]
        got = made[:MOST]
        apart = any(
            abs(a - b) > PRINTED for one, other in zip(wanted, got) for a, b in zip(one, other)
        )
        if apart or len(wanted) != len(got) or (status != 0) != bool(failure):
            found.append(f"{title}: {outcome}, for rs274 {got}, status {status}\n{told}")
    print(f"{tried} rows, {len(found)} differences", *found, sep="\n  ")
    sys.exit(1 if found or not tried else 0)


if __name__ == "__main__":
    main()
