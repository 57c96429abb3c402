"""Random o-word programs over what moves a tool: the steps that quillmark writes must be those of
rs274, and what rs274 refuses must end in the same block with a code for blocks that are refused.

    randomPaths.py QUILLMARK DIALECT COUNT [--seed N] [--keep FOLDER] [--shown N]
        [--only SUBJECT...]

Before the programs, faults planted into APT sources have to be found. A program that differs is
printed without the blocks and words that do not matter. Exits with 1 at differences."""

import argparse
import collections
import multiprocessing
import os
import sys
import tempfile
import zlib

import aptReader
import canonReader
import pathPrograms
import plants
import runs
import steps

REFUSALS = (509, 510)
HOME = (-5.0, -6.5, 100.0)  # where the reference points lie
MOST_TRIALS = 250  # while a program is made smaller
# What the tests add to the dialect: where machine zero and the reference point lie.
MACHINE = ["REV_MACHINE_ZERO", "0;0;0"]
MACHINE += [part for axis, at in zip("XYZ", HOME) for part in (f"MFG_{axis}_HOME_POS", str(at))]
# Parameters of rs274 for the reference points of G28 and G30, in inches.
PARAMETERS = [(first + at, HOME[at] / 25.4) for first in (5161, 5181) for at in range(3)]

# What is wrong with a program: kind for grouping, text for people. A Fault of kind None is none.
Fault = collections.namedtuple("Fault", "kind text")
NONE = Fault(None, "")


def put(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="ascii") as file:
        file.write(text)
    return path


def refused(errors):
    """The block that rs274 refuses, by its number, and why."""
    *_, reason, block = errors.strip().splitlines()
    return int(block.split()[0][1:]), f"{reason} ({block})"


def path_fault(wanted, apt, ends):
    try:
        made = aptReader.read(apt)
    except (aptReader.BadApt, ValueError, KeyError) as bad:
        return Fault("path: unreadable", f"{type(bad).__name__}: {bad}")
    part = steps.difference(wanted, made, ends)
    if not part:
        return NONE
    return Fault(f"path: {part.reason}", steps.told(part))


def compared(judged, converted):
    """The fault of what quillmark made, given what rs274 made."""
    status, canon, errors = judged
    code, apt, told, report = converted
    failure = runs.failure(told)
    if code is None or (code != 0 and failure is None):
        return Fault("crash", f"ends with {code}: {told[:300]}")
    if warnings := runs.warnings(report):
        return Fault(f"warned: {warnings[0]}", f"nothing is to be unknown or left over: {told[:300]}")
    wanted = canonReader.read(canon)
    if status == 0:
        if failure:
            return Fault(f"refused {failure[0]}", f"runs in rs274, refused: {failure}")
        return path_fault(wanted, apt, True)
    block, reason = refused(errors)
    if not failure:
        return Fault(f"accepted: {reason.partition(' (')[0][:40]}", f"rs274: {reason}")
    if failure[1] != block:
        return Fault("other block", f"rs274: {reason}; quillmark: {failure}")
    if failure[0] not in REFUSALS:
        return Fault(f"code {failure[0]}", f"rs274: {reason}; quillmark: {failure}")
    before = [step for step in wanted if step.block != f"N{block}"]
    return path_fault(before, apt, False)


def trial(options, blocks):
    with tempfile.TemporaryDirectory() as folder:
        judged = pathPrograms.printed([pathPrograms.for_judge(block) for block in blocks])
        put(folder, "judge.var", "".join(f"{at}\t{value:.8f}\n" for at, value in PARAMETERS))
        path = put(folder, "judged.ngc", judged)
        status, canon, errors = runs.judge(path, options=("-v", "judge.var"))
        part = put(folder, "part.ngc", pathPrograms.printed(blocks))
        try:
            return compared(
                (status, canon, errors), runs.convert(options.quillmark, options.machine, part)
            )
        except canonReader.BadCanon as bad:
            return Fault("rs274", str(bad))


def smaller(options, blocks, kind):
    """The program without what its fault does not need."""
    left = MOST_TRIALS

    def still(candidate):
        nonlocal left
        left -= 1
        return left > 0 and trial(options, candidate).kind == kind

    size = max(1, len(blocks) // 2)
    while size:
        at = 0
        while at < len(blocks):
            candidate = blocks[:at] + blocks[at + size :]
            if candidate and still(candidate):
                blocks = candidate
            else:
                at += size
        size //= 2
    for at, block in enumerate(blocks):
        for word in list(block):
            candidate = [*blocks[:at], [other for other in blocks[at] if other != word], *blocks[at + 1 :]]
            if len(blocks[at]) > 1 and still(candidate):
                blocks = candidate
    return blocks


def one(task):
    options, seed = task
    return seed, trial(options, pathPrograms.program(seed, options.only))


def shrunk(task):
    options, seed, kind = task
    return seed, smaller(options, pathPrograms.program(seed, options.only), kind)


def planted():
    """What is wrong with the search for faults."""
    with tempfile.TemporaryDirectory() as folder:
        status, canon, errors = runs.judge(put(folder, "plants.ngc", plants.PROGRAM))
    if status != 0:
        return [f"rs274 refuses the program: {errors}"]
    ends = "error 510: arc\nquillmark: stopped at block 3: G2"
    lines = plants.Writer(1.0).source(canonReader.read(canon))
    whole = "\n".join(lines) + "\n"
    short = "\n".join(lines[:8]) + "\n"
    wrong = "Arc radius\nN3 G2 X9 R0.2"
    rows = [  # rs274, quillmark, kind of the fault
        ((0, canon, ""), (0, whole, "", {}), None),
        ((0, canon, ""), (0, whole, "", {"held_rapids": {"count": 1}}), "warned: held_rapids"),
        ((0, canon, ""), (255, whole, ends, {}), "refused 510"),
        ((0, canon, ""), (255, whole, "", {}), "crash"),
        ((0, canon, ""), (None, whole, "", {}), "crash"),
        ((1, "", wrong), (255, "", ends, {}), None),
        ((1, "", wrong), (255, "", ends.replace("510", "500"), {}), "code 500"),
        ((1, "", wrong), (255, "", ends.replace("3", "4"), {}), "other block"),
        ((1, "", wrong), (0, "", "", {}), "accepted: Arc radius"),
        ((1, canon.replace("N7 ", "N.."), wrong), (255, short, ends, {}), None),
        ((1, canon, wrong), (255, short.replace("5.", "6."), ends, {}), "path: end"),
    ]
    found = [str(row[2]) for row in rows if compared(*row[:2]).kind != row[2]]
    return found + plants.missed(canon)


def parsed():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("quillmark")
    arguments.add_argument("dialect")
    arguments.add_argument("count", type=int)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--keep", metavar="FOLDER", help="of programs that differ")
    arguments.add_argument("--only", metavar="SUBJECT", nargs="+", default=pathPrograms.SUBJECTS)
    arguments.add_argument("--shown", type=int, default=8, help="programs to print")
    return arguments.parse_args()


def show(options, pool, faults):
    """Prints one small program of each kind of fault."""
    kinds = {}
    for seed, fault in sorted(faults):
        kinds.setdefault(fault.kind, seed)
    tasks = [(options, seed, kind) for kind, seed in list(kinds.items())[: options.shown]]
    for (_, seed, kind), (_, blocks) in zip(tasks, pool.imap(shrunk, tasks)):
        fault = trial(options, blocks)
        print(f"\n  {kind} (program {seed}): {fault.text}")
        print("    " + pathPrograms.printed(blocks).replace("\n", "\n    ").rstrip())


def main():
    options = parsed()
    wrong = planted()
    if wrong:
        sys.exit("not found, or found without a reason:\n  " + "\n  ".join(wrong[:20]))
    with tempfile.TemporaryDirectory() as folder:
        options.machine = runs.with_keys(options.dialect, MACHINE, folder)
        seeds = [zlib.crc32(f"{options.seed} {k}".encode()) for k in range(options.count)]
        faults, kinds = [], collections.Counter()
        with multiprocessing.Pool() as pool:
            tasks = [(options, seed) for seed in seeds]
            for seed, fault in pool.imap_unordered(one, tasks, chunksize=8):
                if fault.kind:
                    faults.append((seed, fault))
                    kinds[fault.kind] += 1
            print(f"{options.count} programs, {len(faults)} that differ")
            for kind, count in kinds.most_common():
                print(f"{count:7} {kind}")
            show(options, pool, faults)
    for seed, _ in faults if options.keep else ():
        os.makedirs(options.keep, exist_ok=True)
        put(options.keep, f"{seed}.ngc", pathPrograms.printed(pathPrograms.program(seed, options.only)))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
