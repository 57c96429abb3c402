"""Lists what becomes of the sample programs that linuxcnc-uspace installs, those that rs274 runs
alone and that move: the same path, another one of which quillmark warns ("told"), another one without
a word, or a return code of quillmark. Programs of the same path that fail with --strict are listed, too,
with what was told of them. Of a program with
radius compensation the path is the programmed contour: rs274 gets it without the codes for it.

    samples.py QUILLMARK DIALECT

Exits with 1 when a path differs without a word, or when a program of the same path fails with
--strict."""

import collections
import multiprocessing
import os
import re
import shutil
import subprocess
import sys
import tempfile

import aptReader
import canonReader
import runs
import steps

# The machine's zero is the start's, as rs274 has it without a file of variables.
MACHINE = ("REV_MACHINE_ZERO", "0;0;0")
COMPENSATION = re.compile(r"(?<![A-Z#<\[])G4[012](\.1)?(?![\d.])( *D *[-\d.#<>\w\[\]]+)?", re.I)
TOOLS = 50
NOT_TRIED = ("not run by rs274 alone", "without movement")


def samples():
    installed = subprocess.run(["dpkg", "-L", "linuxcnc-uspace"], capture_output=True, text=True)
    return sorted(name for name in installed.stdout.splitlines() if re.search(r"\.(ngc|nc)$", name))


def without_compensation(name, folder):
    """A copy of a program and of what stands beside it; None when there is none to leave out."""
    with open(name, encoding="latin-1") as file:
        text = file.read()
    contour = COMPENSATION.sub("", text)
    if contour == text:
        return None
    for other in os.listdir(os.path.dirname(name)):
        path = os.path.join(os.path.dirname(name), other)
        if path != name and os.path.isfile(path):
            shutil.copy(path, folder)
    copy = os.path.join(folder, os.path.basename(name))
    with open(copy, "w", encoding="latin-1") as file:
        file.write(contour)
    return copy


def judged(name, options=()):
    """What rs274 makes of the programmed contour: the steps, or why there are none."""
    status, text, told = runs.judge(name, options=options)
    if status != 0:
        return None, "not run by rs274 alone"
    with tempfile.TemporaryDirectory() as folder:
        contour = without_compensation(name, folder)
        if contour:
            status, text, told = runs.judge(contour, options=options)
    if status != 0:
        return None, f"contour not run: {told[-200:]}"
    try:
        made = canonReader.read(text)
    except canonReader.BadCanon as bad:
        return [], str(bad)
    if not any(step.kind in steps.MOVEMENTS for step in made):
        return None, "without movement"
    return made, ""


def stateless(found):
    """Without what the shares of a program say about the spindle, of which M6 tells nothing."""
    return [step._replace(spindle=steps.UNKNOWN, coolant=()) for step in found]


def outcome(task):
    quillmark, dialect, name = task
    wanted, reason = judged(name)
    if wanted is None:
        return name, reason, ""
    status, apt, told, report = runs.convert(quillmark, dialect, name, options=["--strict"])
    failure = runs.failure(told)
    if failure:
        return name, f"refused with {failure[0]}", failure[2]
    if reason:
        warnings = runs.warnings(report)
        kind = "told" if warnings else "DIFFERENT"
        return name, kind, ", ".join([*warnings, f"converted, though no path has {reason}"])
    try:
        made = aptReader.read(apt)
    except (aptReader.BadApt, ValueError, KeyError) as bad:
        return name, "DIFFERENT", f"{type(bad).__name__}: {bad}"
    kind, text = compared(name, wanted, made, report)
    if kind == "same path" and (status != 0 or told):
        return name, "FAILS --strict", " ".join(told.split())
    return name, kind, text


def compared(name, wanted, made, report):
    part = steps.difference(stateless(wanted), stateless(made))
    if not part:
        return "same path", f"{len(wanted)} steps"
    if warnings := runs.warnings(report):
        return "told", f"{', '.join(warnings)}: {steps.told(part)}"
    if runs.is_counted(report, "axes_not_given") and is_of_no_length(name, made):
        return "same path", f"{len(wanted)} steps, behind a start of which the program does not tell"
    return "DIFFERENT", steps.told(part)


def is_of_no_length(name, made):
    """Whether the path is that of rs274 with tools of no length. Else it begins with its spindle at
    0 and takes the lengths that it makes up for its tools, and so the tip of a tool is elsewhere
    until a program says where it goes."""
    with tempfile.TemporaryDirectory() as folder:
        table = os.path.join(folder, "tools.tbl")
        with open(table, "w", encoding="ascii") as file:
            file.writelines(f"T{number} P{number} D0 Z0 ;\n" for number in range(1, TOOLS + 1))
        wanted, _ = judged(name, ("-t", table))
    return bool(wanted) and steps.difference(stateless(wanted), stateless(made)) is None


def main():
    quillmark, dialect = sys.argv[1:]
    counts = collections.Counter()
    with tempfile.TemporaryDirectory() as folder, multiprocessing.Pool() as pool:
        dialect = runs.with_keys(dialect, MACHINE, folder)
        tasks = [(quillmark, dialect, name) for name in samples()]
        for name, kind, text in pool.imap(outcome, tasks):
            counts[kind] += 1
            if kind not in NOT_TRIED:
                print(f"{kind:18} {name}: {text}")
    print(*(f"{count:5} {kind}" for kind, count in sorted(counts.items())), sep="\n")
    sys.exit(1 if counts["DIFFERENT"] or counts["FAILS --strict"] else 0)


if __name__ == "__main__":
    main()
