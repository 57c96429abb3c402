"""Converts the programs under dialects/programs and compares, and has every word that a dialect passes
over or refuses tried in a block of its own.

    programs.py QUILLMARK QUILLMARK-PARAM DIALECTS

Exits with 1 when something differs."""

import glob
import os
import re
import subprocess
import sys
import tempfile

FOLDER = "programs"
# A dialect that is another one with some further lines.
LIKE = {"hash-mill-inch": ("hash-mill", ["REV_START", "G20"])}


class Trial:
    """Runs of a dialect, and what was wrong with them."""

    def __init__(self, quillmark, check, dialect):
        self.quillmark, self.check, self.dialect = quillmark, check, dialect
        self.name = os.path.splitext(os.path.basename(dialect))[0]
        with open(dialect, encoding="ascii") as file:
            self.lines = file.read().splitlines()
        self.faults, self.tried = [], 0

    def expect(self, holds, told):
        self.tried += 1
        if not holds:
            self.faults.append(f"{self.name}: {told}")

    def run(self, program):
        """Exit status, what was told, and the APT."""
        with tempfile.TemporaryDirectory() as folder:
            apt = os.path.join(folder, "part.apt")
            command = [self.quillmark, "--strict", "-p", self.dialect, "-nc", program, "-of", apt]
            run = subprocess.run(command, capture_output=True, timeout=60)
            made = read_bytes(apt)
        return run.returncode, (run.stdout + run.stderr).decode("latin-1"), made

    def block(self, text):
        with tempfile.TemporaryDirectory() as folder:
            program = os.path.join(folder, "part.nc")
            with open(program, "w", encoding="ascii") as file:
                file.write(f"G0 X10 Z10\nG1 X11 F100\n{text}\nG0 X10\n")
            return self.run(program)

    def values(self, key):
        """The values of a key that stands on a line of its own."""
        return [value for line, value in zip(self.lines, self.lines[1:]) if line == key]

    # Steps

    def try_file(self):
        comments = [line for line in self.lines if line.startswith("# ")]
        self.expect(comments[0].startswith(f"# {self.name}: "), f"its first comment is {comments[0]}")
        check = subprocess.run([self.check, "check", self.dialect], capture_output=True, timeout=60)
        found = re.search(r"Findings: .*", check.stdout.decode("latin-1"))
        clean = check.returncode == 0 and found and "0 errors, 0 warnings" in found[0]
        self.expect(clean, found[0] if found else "check finds nothing")

    def try_likeness(self):
        if self.name not in LIKE:
            return
        other, more = LIKE[self.name]
        with open(os.path.join(os.path.dirname(self.dialect), other + ".pp"), encoding="ascii") as file:
            wanted = [line for line in file.read().splitlines() if not line.startswith("# ")]
        mine = [line for line in self.lines if not line.startswith("# ")]
        at = next((i for i, (a, b) in enumerate(zip(wanted, mine)) if a != b), len(wanted))
        self.expect(mine == wanted[:at] + more + wanted[at:], f"it is not {other} with {more}")

    def try_programs(self):
        pattern = os.path.join(os.path.dirname(self.dialect), FOLDER, self.name, "*")
        programs = [name for name in sorted(glob.glob(pattern)) if not name.endswith(".apt")]
        self.expect(programs, "no program shows it")
        for program in programs:
            status, told, made = self.run(program)
            self.expect(status == 0 and told == "", f"{program}: status {status}\n{told}")
            wanted = read_bytes(os.path.splitext(program)[0] + ".apt")
            self.expect(made == wanted != b"", f"{program}: the APT differs")

    def try_words(self):
        for word in self.values("REV_NOT_CONVERTED"):
            self.expect_refusal(word, word)
        for letters in self.values("REV_NOT_CONVERTED_WORD"):
            word = letters + ("=2" if re.match("[A-Z]{2}", letters) else "2")
            self.expect_refusal(letters, word)
        letters = self.values("REV_NO_EFFECT_WORD")
        harmless = [word + ("=2" if len(word) > 1 else "2") for word in letters]
        harmless += self.values("REV_NO_EFFECT") + self.values("REV_OWN_WORDS")
        status, told, made = self.block("\n".join(harmless))
        self.expect(status == 0 and told == "", f"what is harmless is told: {told}")
        self.expect(made == self.block("")[2], "what is harmless changes the APT")

    def expect_refusal(self, word, text):
        status, told, _ = self.block(text)
        self.expect(status == 511 % 256 and "error 511" in told, f"{word} is not refused: {told}")


def read_bytes(name):
    try:
        with open(name, "rb") as file:
            return file.read()
    except OSError:
        return b""


def main():
    quillmark, check, folder = sys.argv[1:]
    dialects = sorted(glob.glob(os.path.join(folder, "*.pp")))
    faults = [] if dialects else ["there are no dialects"]
    tried = 0
    for dialect in dialects:
        trial = Trial(quillmark, check, dialect)
        for step in (trial.try_file, trial.try_likeness, trial.try_programs, trial.try_words):
            step()
        faults += trial.faults
        tried += trial.tried
    shown = sorted(os.listdir(os.path.join(folder, FOLDER)))
    names = [os.path.splitext(os.path.basename(name))[0] for name in dialects]
    if shown != sorted(names):
        faults.append(f"there are programs of {shown}, but dialects {names}")
    print(*faults, f"{len(dialects)} dialects, {tried} checks, {len(faults)} faults", sep="\n")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
