"""Counts what quillmark warns of in the sample programs that linuxcnc-uspace installs, cause by cause:
in how many programs and blocks, and how many of these programs rs274 runs alone and finds without a
movement, on the same path, or otherwise.

    warnings.py QUILLMARK DIALECT"""

import collections
import multiprocessing
import sys
import tempfile

import runs
import samples

ODDITIES = ("dropped_arcs", "long_blocks", "nul_bytes", "unterminated_comments", "computing_blocks",
            "unknown_machine_places", "held_rapids", "rotary_limits", "head_lengths", "cycles_aside",
            "rotary_feeds")
KINDS = {"without movement": "still", "same path": "same", "not run by rs274 alone": "not run"}


def causes_of(report):
    """Kind and count of each cause."""
    found = [(key, report[key]["count"]) for key in ODDITIES if runs.is_counted(report, key)]
    if report.get("no_movement") not in (None, "only_subprograms"):
        found.append(("no_movement", 1))
    return found + [(cause["kind"], cause["count"]) for cause in report.get("warning_causes", [])]


def judged(task):
    """The causes of a program, and what rs274 makes of it."""
    causes = causes_of(runs.convert(*task)[3])
    return causes, KINDS.get(samples.outcome(task)[1], "otherwise") if causes else ""


def main():
    quillmark, dialect = sys.argv[1:]
    programs, blocks, kinds = (collections.Counter() for _ in range(3))
    names = samples.samples()
    warned = 0
    with tempfile.TemporaryDirectory() as folder, multiprocessing.Pool() as pool:
        dialect = runs.with_keys(dialect, samples.MACHINE, folder)
        for causes, kind in pool.imap(judged, [(quillmark, dialect, name) for name in names]):
            warned += bool(causes)
            for cause in {cause for cause, _ in causes}:
                programs[cause] += 1
                kinds[cause, kind] += 1
            for cause, count in causes:
                blocks[cause] += count
    columns = [*KINDS.values(), "otherwise"]
    print(f"{'cause':24}{'programs':>10}{'blocks':>10}", *(f"{kind:>10}" for kind in columns))
    for cause, count in programs.most_common():
        print(f"{cause:24}{count:10}{blocks[cause]:10}",
              *(f"{kinds[cause, kind]:10}" for kind in columns))
    print(f"{warned} of {len(names)} programs are warned of")


if __name__ == "__main__":
    main()
