"""Lists what becomes of the sample programs that linuxcnc-uspace installs, those that rs274 runs
alone and that move: the same movements, others, or a return code of quillmark.

    samples.py QUILLMARK DIALECT

Exits with 1 when movements differ."""

import collections
import multiprocessing
import re
import subprocess
import sys

import motions

PRINTED = 6e-5  # half a unit of the last digit of rs274, and of that of an APT source


def samples():
    installed = subprocess.run(["dpkg", "-L", "linuxcnc-uspace"], capture_output=True, text=True)
    return sorted(name for name in installed.stdout.splitlines() if re.search(r"\.(ngc|nc)$", name))


def going_on(movements):
    """Without the straight ones of no length, which a code without words makes in rs274."""
    place, kept = (0.0, 0.0, 0.0), []
    for movement in movements:
        if len(movement) > 2 or movement[1] != place:
            kept.append(movement)
        place = movement[1]
    return kept


def outcome(task):
    quillmark, dialect, name = task
    status, text, _ = motions.judge(name)
    wanted = going_on(motions.of_canon(text))
    if status != 0 or not wanted:
        return name, "not run by rs274 alone" if status != 0 else "without movement", ""
    _, apt, told = motions.convert(quillmark, dialect, name)
    failure = re.search(r"error (\d+): (.*)", told)
    if failure:
        block = re.search(r"stopped at block (.*)", told)
        return name, f"refused with {failure[1]}", block[1] if block else failure[2]
    made = going_on(motions.of_apt(apt))
    part = motions.first_difference(wanted, made, PRINTED)
    if part:
        return name, "differs", f"movement %d of {len(wanted)} is to be %s and is %s" % part
    return name, "same", f"{len(wanted)} movements"


def main():
    tasks = [(*sys.argv[1:], name) for name in samples()]
    counts = collections.Counter()
    with multiprocessing.Pool() as pool:
        for name, kind, text in pool.imap(outcome, tasks):
            counts[kind] += 1
            if kind not in ("not run by rs274 alone", "without movement"):
                print(f"{kind:18} {name}: {text}")
    print(*(f"{count:5} {kind}" for kind, count in sorted(counts.items())), sep="\n")
    sys.exit(1 if counts["differs"] else 0)


if __name__ == "__main__":
    main()
