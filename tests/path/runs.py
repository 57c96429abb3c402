"""Runs of rs274 and of quillmark on a program in a file."""

import json
import os
import re
import subprocess
import tempfile

# Keys of the report of which each says that the path is not all there, or not that of the program.
WARNINGS = ("computing_blocks", "unknown_machine_places", "held_rapids")


def judge(program, seconds=20, options=()):
    """What rs274 makes of a file: its exit status (None when it does not end), output and errors.
    It runs in a folder of its own, since it keeps variables there, and its table of tools in the
    home folder, which two runs at once must not share. The subprograms that stand beside the file
    it finds through links."""
    folder = os.path.dirname(os.path.abspath(program))
    with tempfile.TemporaryDirectory() as work:
        for name in os.listdir(folder):
            os.symlink(os.path.join(folder, name), os.path.join(work, name))
        command = ["rs274", "-g", *options, os.path.basename(program)]
        home = {**os.environ, "HOME": work}
        try:
            run = subprocess.run(command, cwd=work, env=home, capture_output=True, timeout=seconds)
        except subprocess.TimeoutExpired as slow:
            return None, (slow.stdout or b"").decode("latin-1"), ""
    return run.returncode, run.stdout.decode("latin-1"), run.stderr.decode("latin-1")


def convert(quillmark, dialect, program, seconds=60, options=()):
    """What quillmark makes of a file: its exit status (None when it does not end), the APT, what it
    tells, and its report."""
    with tempfile.TemporaryDirectory() as work:
        apt, report = os.path.join(work, "part.apt"), os.path.join(work, "report.json")
        command = [quillmark, "-p", dialect, "-nc", program, "-of", apt, "--report", report]
        command += options
        try:
            run = subprocess.run(command, capture_output=True, timeout=seconds)
        except subprocess.TimeoutExpired:
            return None, "", f"no end after {seconds} seconds", {}
        text, report = read_text(apt), json.loads(read_text(report) or "{}")
    told = (run.stdout + run.stderr).decode("latin-1")
    return run.returncode, text, told, report


def read_text(path):
    try:
        with open(path, encoding="latin-1") as file:
            return file.read()
    except OSError:
        return ""


def is_counted(report, key):
    """Whether a report tells of an oddity."""
    return report.get(key, {}).get("count", 0) > 0


def warnings(report):
    """The keys of what a report warns of that concerns the path."""
    keys = [key for key in WARNINGS if is_counted(report, key)]
    if report.get("unrecognised", {}).get("blocks"):
        keys.append("unrecognised")
    return keys


def with_keys(dialect, lines, folder):
    """A copy of a dialect with further lines; its path."""
    with open(dialect, encoding="latin-1") as file:
        text = file.read()
    path = os.path.join(folder, "dialect.pp")
    with open(path, "w", encoding="latin-1") as file:
        file.write(text.rstrip("\n") + "\n" + "\n".join(lines) + "\n")
    return path


def failure(told):
    """Return code, number of the block and reason, from what quillmark tells; None without one."""
    code = re.search(r"error (\d+): (.*)", told)
    block = re.search(r"stopped at block (\d+)(.*)", told)
    if not code:
        return None
    return int(code[1]), int(block[1]) if block else None, code[2] + (block[2] if block else "")
