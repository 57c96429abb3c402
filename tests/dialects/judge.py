"""Compares the expected APT of the programs under dialects/programs with what rs274 makes of them, for
the dialects whose programs it reads.

    judge.py DIALECTS

Exits with 1 when they differ, or when there is no program for a dialect."""

import functools
import glob
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "path"))
import aptReader
import canonReader
import runs
import steps

NORMALS = {
    "o-word-mill": aptReader.MILL,
    "o-word-lathe": aptReader.LATHE,
    "router": aptReader.MILL,
}


def fault(program, normal):
    """What rs274 does otherwise than the APT beside a program says; empty when nothing."""
    status, text, told = runs.judge(program)
    if status != 0:
        return f"rs274 does not run it: {told[-200:]}"
    expected = runs.read_text(os.path.splitext(program)[0] + ".apt")
    try:
        made = aptReader.read(expected, normal)
    except aptReader.BadApt as bad:
        return str(bad)
    ways = functools.partial(steps.written, axis=normal)
    part = steps.difference(canonReader.read(text), made, ways=ways)
    return steps.told(part) if part else ""


def main():
    (dialects,) = sys.argv[1:]
    faults = 0
    for name, normal in NORMALS.items():
        pattern = os.path.join(dialects, "programs", name, "*.n*c")
        programs = sorted(glob.glob(pattern))
        faults += not programs
        for program in programs:
            reason = fault(program, normal)
            faults += bool(reason)
            print(f"{name} {os.path.basename(program)}: {reason or 'agrees'}")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
