"""Compares what quillmark-view measures along a path with what the movements of rs274 add up to.

    measures.py QUILLMARK QUILLMARK-VIEW DIALECT PROGRAM...

Lengths and boxes must be those of rs274 within the digits that it prints. Exits with 1 when one of
them is not, and with 77 where rs274 is not installed."""

import json
import math
import os
import shutil
import subprocess
import sys
import tempfile

import canonReader
import runs
import steps

SAMPLES = 3600  # of an arc, whose chords are shorter by less than a millionth
SIGMAS = 6  # rounded digits are as often above as below


class Sum:
    """Length and box of some movements."""

    def __init__(self):
        self.count, self.length, self.points, self.grains = 0, 0.0, [], []

    def add(self, way, grain, has_length=True):
        self.count += 1
        self.grains.append(grain)
        if has_length:
            self.length += sum(steps.away(a, b) for a, b in zip(way, way[1:]))
            self.points += way
        else:
            self.points.append(way[-1])

    def box(self):
        return [[reach(axis) for axis in zip(*self.points)] for reach in (min, max)]


def way_of(step):
    if step.kind != "arc":
        return [step.start, step.place]
    return [step.start] + [steps.on_path(step, k / SAMPLES) for k in range(1, SAMPLES + 1)]


def wanted(program):
    status, text, told = runs.judge(program, seconds=60)
    if status != 0:
        sys.exit(f"{program}: rs274 does not run it: {told[-200:]}")
    found = {"all": Sum(), "rapid": Sum(), "cutting": Sum()}
    movements = [step for step in canonReader.read(text) if step.kind in steps.MOVEMENTS]
    for number, step in enumerate(movements):
        # Where the first one begins the APT does not tell.
        for name in ("all", "rapid" if step.kind == "rapid" else "cutting"):
            found[name].add(way_of(step), step.grain, number > 0 or step.kind == "arc")
    return found


def measured(quillmark, view, dialect, program):
    with tempfile.TemporaryDirectory() as work:
        apt = os.path.join(work, "part.apt")
        subprocess.run(
            [quillmark, "-p", dialect, "-nc", program, "-of", apt, "--quiet"], check=True
        )
        run = subprocess.run([view, apt, "--measure", "--json"], check=True, capture_output=True)
    return json.loads(run.stdout)["paths"][0]


def differences(found, made):
    lengths = {
        "rapid": made["rapid"]["length"],
        "cutting": made["feed"]["length"] + made["arcs"]["length"],
    }
    for name, length in lengths.items():
        allowed = SIGMAS * math.hypot(*found[name].grains) + 1e-6 * length
        if abs(found[name].length - length) > allowed:
            yield f"{name}: {length} mm, not {found[name].length} within {allowed:.6f}"
    for name, key in (("all", "box"), ("cutting", "cutting_box")):
        ours = made[key] and [made[key]["low"], made[key]["high"]]
        if not found[name].points or not ours:
            if found[name].points or ours:
                yield f"box of {name}: {ours}"
        elif max(steps.away(a, b) for a, b in zip(ours, found[name].box())) > 2 * max(found[name].grains):
            yield f"box of {name}: {ours}, not {found[name].box()}"


def main():
    quillmark, view, dialect, *programs = sys.argv[1:]
    if not shutil.which("rs274"):
        print("skipped: no rs274 here")
        sys.exit(77)
    failed = False
    for program in programs:
        found = wanted(program)
        told = list(differences(found, measured(quillmark, view, dialect, program)))
        failed |= bool(told)
        print(f"{os.path.basename(program)}: {found['all'].count} movements, "
              f"{found['cutting'].length:.4f} mm cutting:", "; ".join(told) or "the same")  # fmt: skip
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
