"""Faults planted into APT sources, to see that a comparison finds them."""

import re

import aptReader
import canonReader
import steps

NUMBER = re.compile(r"-?\d+\.\d+|(?<=/)\d+")
ONE_BY_ONE = re.compile(r"(GOTO|FEDRAT|DELAY|LOADTL|SPINDL|TLON,GOFWD|TLAXIS)/")
SOME = 9
CODES = {"stop": "STOP", "optional stop": "OPSTOP", "end": "END"}


class Writer:
    """Writes steps as an APT source, nothing twice."""

    def __init__(self, unit):
        self.unit, self.lines = unit, ["TLAXIS/0.00000,0.00000,1.00000"]
        self.state = {"FEDRAT": None, "SPINDL": "OFF", "COOLNT": ()}
        if unit != 1:
            self.lines.insert(0, "UNITS/INCHES")

    def put(self, name, text):
        if self.state[name] != text:
            self.state[name] = text
            self.lines.append(f"{name}/{text}")

    def lengths(self, *vectors):
        return ",".join(f"{x / self.unit:.5f}" for vector in vectors for x in vector)

    def source(self, wanted):
        for step in wanted:
            for part in steps.written(step)[0]:
                self.one(part)
        return self.lines

    def one(self, step):
        if step.kind in CODES:
            self.lines.append(CODES[step.kind])
        elif step.kind == "dwell":
            self.lines.append(f"DELAY/{step.place:.4f}")
        elif step.kind == "tool":
            self.lines.append(f"LOADTL/{step.place}")
        else:
            self.conditions(step)
            self.movement(step)

    def conditions(self, step):
        if step.feed:
            value, per, _ = step.feed
            unit = {"minute": "MMPM", "turn": "MMPR"} if self.unit == 1 else {"minute": "IPM", "turn": "IPR"}
            self.put("FEDRAT", f"{value / self.unit:.6f},{unit[per]}")
        if step.spindle != steps.UNKNOWN:
            direction, speed, _ = step.spindle or (None, 0, "")
            self.put("SPINDL", f"{speed:.4f},RPM,{direction}" if direction else "OFF")
        if step.coolant != self.state["COOLNT"]:
            if not set(self.state["COOLNT"]) <= set(step.coolant):
                self.lines.append("COOLNT/OFF")
            self.state["COOLNT"] = step.coolant
            self.lines += [f"COOLNT/{'ON' if name == 'flood' else 'MIST'}" for name in step.coolant]

    def movement(self, step):
        if step.kind == "rapid":
            self.lines.append("RAPID")
        if step.kind != "arc":
            self.lines.append(f"GOTO/{self.lengths(step.place)}")
            return
        centre = step.arc.centre
        arm = steps.minus(step.start, centre)
        along = steps.cross(step.arc.normal, arm)
        radius = steps.away(step.place, centre)
        self.lines.append("INDIRV/" + ",".join(f"{x / steps.length(arm):.5f}" for x in along))
        self.lines.append(
            f"TLON,GOFWD/(CIRCLE/{self.lengths(centre, (radius,))}),ON,"
            f"(LINE/{self.lengths(centre, step.place)})"
        )


def faults(lines):
    """Sources with one fault each, and what the fault is."""
    for at, line in enumerate(lines):
        # Of the many points of an arc, some.
        if at % SOME and all(part.startswith("GOTO") for part in lines[at - 1 : at + 2]):
            continue

        def changed(*others):
            return "\n".join([*lines[:at], *others, *lines[at + 1 :]]) + "\n"

        yield changed(), f"without {line}"
        if line.startswith("INDIRV/"):
            turned = re.sub(r"[-\d.]+", lambda number: str(-float(number[0])), line)
            yield changed(turned), f"turned round: {line}"
        for place in NUMBER.finditer(line) if ONE_BY_ONE.match(line) else ():
            number = float(place[0])
            other = f"{number + 1:.0f}" if line.startswith("LOADTL") else f"{number + 0.02:.5f}"
            yield changed(line[: place.start()] + other + line[place.end() :]), f"{other} in {line}"
        if line.startswith("FEDRAT"):
            factor = re.sub(r"[\d.]+", lambda number: f"{float(number[0]) * 25.4:.6f}", line)
            yield changed(factor), f"25.4 times {line}"
            yield changed(line[:-1] + ("R" if line[-1] == "M" else "M")), f"other mode of {line}"
        if line.startswith("GOTO/"):
            x, y, z = line[5:].split(",")
            if y != z:
                yield changed(f"GOTO/{x},{z},{y}"), f"axes of another plane in {line}"
            yield changed(line, f"GOTO/{x},{y},{float(z) + 9:.5f}", line), f"a way more at {line}"
            if lines[at - 1] != "RAPID":
                yield changed("RAPID", line), f"RAPID in front of {line}"
    yield "\n".join(["UNITS/INCHES", *lines]) + "\n", "inches"


def missed(canon):
    """Planted faults that are not found in sources made of what rs274 prints."""
    wanted = canonReader.read(canon)
    found = []
    for unit in (1.0, 25.4):
        lines = Writer(unit).source(wanted)
        whole = "\n".join(lines) + "\n"
        part = steps.difference(wanted, aptReader.read(whole))
        if part:
            found.append(f"a difference without a fault: {steps.told(part)}")
        count = 0
        for source, name in faults(lines):
            if source in (whole, "UNITS/INCHES\n" + whole) and unit != 1:
                continue
            count += 1
            try:
                seen = steps.difference(wanted, aptReader.read(source))
            except (aptReader.BadApt, ValueError, KeyError):
                seen = True
            if not seen:
                found.append(name)
    return found


PROGRAM = """N1 G21 G90 G17 G94 G40
N2 T2 M6
N3 S1000 M3 M8
N4 G0 X10 Y5 Z20
N5 G1 Z-3 F300
N6 G2 X20 Y15 I10 J0
N7 G3 X40 R-14
N8 G2 I-7.5 P2
N9 G3 X50 Y20 Z-9 R18 P2 F250
N10 G18 G2 X40 Z-1 I-5 K4 
N11 G19 G3 J8 K3 X5
N12 M4 S750
N13 G4 P1.25
N14 M9
N24 M7
N15 G95 F0.6
N16 G2 Y7 Z7 R30
N17 G17 G98 G82 X3 Y4 R4 Z-5 P0.75
N18 X9
N19 G80 M5
N20 M0
N21 G0 Z50
N22 M1
N23 M2
"""
