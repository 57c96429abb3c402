"""Tries the rows of o-word programs on rs274: the points that stand in the file must be its own,
and it must fail where a row does. Rows whose title names rs274 are left out.

    oWordRows.py FILE"""

import os
import re
import sys
import tempfile

import motions

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
    values = motions.numbers(text)
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
            status, text, told = motions.judge(os.path.join(folder, "part.ngc"), 2)
        points, _, failure = outcome.partition("!")
        wanted = [("", point(text)) for text in points.split()]
        got = [("", movement[1]) for movement in motions.of_canon(text)][:MOST]
        if motions.first_difference(wanted, got, 1.01e-4) or (status != 0) != bool(failure):
            found.append(f"{title}: {outcome}, for rs274 {got}, status {status}\n{told}")
    print(f"{tried} rows, {len(found)} differences", *found, sep="\n  ")
    sys.exit(1 if found or not tried else 0)


if __name__ == "__main__":
    main()
