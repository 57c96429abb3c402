#!/usr/bin/env python3
"""reportSchema SOURCE QUILLMARK: the reports of conversions of every outcome, that of their batch, and
what check says as JSON, are as the schemas in docs say, and have no key that these do not know."""
import json
import os
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    print("skipped: no python3-jsonschema here")
    sys.exit(77)

source, quillmark = (os.path.abspath(name) for name in sys.argv[1:3])

PROGRAMS = {
    "good": "G0 X1 Y2 Z3\nG1 X5 F100\nM30\n",
    "computed": "#1 = 2\nG1 X[#1]\n",
    "refused": "G1 X1\nX[1/0]\n",
    "words": "%\nG1 X1 G54.9 (open\nG4 X2.\nQ\xe4\x01\x00\nG1 X" + 300 * "1" + "\n",
    "arc": "G1 X1\nG2 X5\n",
    "many": "".join(f"G1 X1 E{i}\n" for i in range(2500)),
    "caller": "o<drill> call\n",
    "fails_below": "o<divide> call\n",
    "empty": "",
}
BELOW = {
    "drill.ngc": "o<drill> sub\nG1 X1 E77 (x\nG99 X2\no<drill> endsub\n",
    "divide.ngc": "o<divide> sub\nG1 X[1/0]\no<divide> endsub\n",
}
# One that runs programs and refuses much, and one that does neither.
DIALECTS = {"strict": "dialects/o-word-mill.pp", "lenient": "examples/milling/dialect.pp"}

HEAD = "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section\n"
PARAMETER_FILES = {
    "wrong.pp": HEAD + "RAPDI\nG0\nRAPID\nG0 # x\nCOOLANT_ON\nM8\nCOOLANT_OFF\nM8\nFEEDRATE\nF\xe4\n1\n2\n",
    "undecodable.pp": HEAD.replace("UNCODED", "CODED") + "RAPID\nG0\n",
    "oldtext": "PARAMETERS OF MILL 3\n*VERSION 5.3\n*5XGABEL 0\n*ADRRAPI G00\n",
    "program.pp": "N1 G0 X1\nN2 G1 X2\n",
}


def checks(source, tool):
    """The names of what check says of the parameter files, with one of each format."""
    for name, text in PARAMETER_FILES.items():
        with open(name, "w", encoding="latin-1") as file:
            file.write(text)
    subprocess.run([tool, "encode", f"{source}/{DIALECTS['strict']}", "coded.pp"], check=True)
    subprocess.run([tool, "encode-old", "oldtext", "old.pp"], check=True)
    names = []
    for name in ["coded.pp", "old.pp", *(n for n in PARAMETER_FILES if n.endswith(".pp"))]:
        names.append(f"{name}.json")
        with open(names[-1], "w", encoding="utf-8") as out:
            subprocess.run([tool, "check", name, "--json"], stdout=out, stderr=subprocess.DEVNULL, check=False)
    return names


def closed(schema):
    """The schema without further keys."""
    if isinstance(schema, list):
        return [closed(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    result = {key: closed(part) for key, part in schema.items()}
    if isinstance(schema.get("properties"), dict) and "type" in schema:
        result["additionalProperties"] = False
    return result


def places(value):
    """The parents and keys of all values in a report."""
    for key in value if isinstance(value, dict) else range(len(value)):
        yield value, key
        if isinstance(value[key], (dict, list)):
            yield from places(value[key])


def stop_in_the_middle(dialect, report):
    os.mkfifo("pipe.nc")
    with subprocess.Popen([quillmark, "-p", dialect, "-nc", "pipe.nc", "-of", "o", "--report", report],
                          stderr=subprocess.DEVNULL) as process:
        with open("pipe.nc", "w", encoding="latin-1") as pipe:
            pipe.write("G1 X1\n")
            pipe.flush()
            process.terminate()
            process.wait()


def check(name, schema, report):
    validator = jsonschema.Draft202012Validator(closed(schema))
    errors = [f"{name}: {list(error.path)}: {error.message}" for error in validator.iter_errors(report)]
    # A schema that lets everything pass is none.
    for parent, key in list(places(report))[:400]:
        value, parent[key] = parent[key], False
        if validator.is_valid(report):
            errors.append(f"{name}: the schema says nothing about '{key}'")
        parent[key] = value
    return errors


def main():
    schemas = {}
    for name in ("report", "batch", "check"):
        with open(f"{source}/docs/{name}.schema.json", encoding="utf-8") as file:
            schemas[name] = json.load(file)
        jsonschema.Draft202012Validator.check_schema(schemas[name])
    errors = []
    met = set()
    with tempfile.TemporaryDirectory() as scratch:
        os.chdir(scratch)
        os.mkdir("below")
        for name, text in PROGRAMS.items():
            with open(f"{name}.nc", "w", encoding="latin-1") as file:
                file.write(text)
        for name, text in BELOW.items():
            with open(f"below/{name}", "w", encoding="latin-1") as file:
                file.write(text)
        names = [f"{name}.nc" for name in PROGRAMS] + ["missing.nc"]
        reports = {"usage.json": "report"}
        subprocess.run([quillmark, "--report", "usage.json"], stderr=subprocess.DEVNULL, check=False)
        stop_in_the_middle(f"{source}/{DIALECTS['lenient']}", "stopped.json")
        reports["stopped.json"] = "report"
        for folder, dialect in DIALECTS.items():
            command = [quillmark, "-p", f"{source}/{dialect}", "--into", folder, "--quiet",
                       "--subprograms", "below", "--report", f"{folder}.json"]
            subprocess.run([*command, *names], stderr=subprocess.DEVNULL, check=False)
            reports[f"{folder}.json"] = "batch"
            reports.update({f"{folder}/{name[:-3]}.json": "report" for name in names})
        reports.update({name: "check" for name in checks(source, quillmark + "-param")})
        for name, schema in reports.items():
            with open(name, encoding="utf-8") as file:
                report = json.load(file)
            met |= {key for parent, key in places(report) if isinstance(key, str) and parent[key]}
            errors += check(name, schemas[schema], report)
    # What only some programs have was there.
    for key in ("process_end", "failure", "file", "word", "rest", "warnings", "signal", "stopped",
                "settings", "unread_keys", "old_keys", "findings", "return_code", "machine"):
        if key not in met:
            errors.append(f"no report has '{key}'")
    print("\n".join(errors))
    sys.exit(1 if errors else 0)


main()
