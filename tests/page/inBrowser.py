"""Looks at pages of quillmark-view in a browser: movements, positions, choices, tools, views."""

import json
import math
import os
import random
import re
import subprocess
import sys
import tempfile

from browser import Browser

PROGRAMS, EXAMPLE = sys.argv[1:]
HALF, SIXTH = math.sqrt(1 / 2), math.sqrt(1 / 6)
VIEWS = {  # directions of the part to the right and up
    "top": ((1, 0, 0), (0, 1, 0)),
    "front": ((1, 0, 0), (0, 0, 1)),
    "side": ((0, 1, 0), (0, 0, 1)),
    "isometric": ((HALF, HALF, 0), (-SIXTH, SIXTH, 2 * SIXTH)),
}
faults = []


def check(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r} instead of {wanted!r}")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def tool(name, *arguments):
    return run(os.path.join(PROGRAMS, name), *arguments)


def convert(program):
    tool("quillmark", "-p", EXAMPLE + "/dialect.pp", "-nc", program, "-of", "part.apt",
         "-l", "part.log", "--quiet")
    tool("quillmark-view", "part.apt", "-l", "part.log", "-o", "part.html")
    return json.loads(tool("quillmark-view", "part.apt", "--measure", "--json"))["paths"][0]


def statements():
    """The statements of the source that move the tool, each with its line, without blanks."""
    found, begin, text = [], 0, ""
    for number, line in enumerate(open("part.apt", encoding="ascii"), 1):
        begin = begin or number
        text += line.strip()
        if text.endswith("$"):
            text = text[:-1]
            continue
        if text.startswith(("GOTO", "TLON")):
            found.append((begin, text.replace(" ", "")))
        begin, text = 0, ""
    return found


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def projection(box, view, width, height):
    """Where a point of the part lies: the box fills nine tenths of the canvas."""
    right, up = VIEWS[view]
    middle = [(a + b) / 2 for a, b in zip(box["low"], box["high"])]
    half = [(b - a) / 2 for a, b in zip(box["low"], box["high"])]
    reach = max(sum(abs(r) * h for r, h in zip(right, half)) / (width / 2),
                sum(abs(u) * h for u, h in zip(up, half)) / (height / 2))

    def place(point):
        off = [p - m for p, m in zip(point, middle)]
        return (width / 2 + dot(off, right) * 0.9 / reach,
                height / 2 - dot(off, up) * 0.9 / reach)
    return place


def facts(browser):
    return browser.value("Object.fromEntries([...document.querySelectorAll('dd')]"
                         ".map(dd => [dd.dataset.fact, dd.textContent]))")


def look_at_figures(browser, measure):
    page = "quillmarkPage."
    check("movements", browser.value(page + "path.count"), measure["movements"])
    check("in the scene", browser.value(
        "new Set([...quillmarkPage.scene.cuts.owners.subarray(0, quillmarkPage.scene.cuts.pieces),"
        "...quillmarkPage.scene.rapids.owners.subarray(0, quillmarkPage.scene.rapids.pieces)]).size"),
          measure["movements"])
    for kind, name in enumerate(("rapid", "feed", "arcs")):
        count, length = browser.value(
            f"(p => {{ let n = 0, l = 0; for (let i = 0; i < p.count; ++i) if (p.kinds[i] === {kind})"
            "{ ++n; l += p.lengthOf(i); } return [n, l]; })(quillmarkPage.path)")
        check(name, count, measure[name]["movements"])
        check(name + " length", abs(length - measure[name]["length"]) < 1e-4, True)


def look_at_statements(browser, blocks):
    wanted = statements()
    for i, (line, text) in enumerate(wanted):
        browser.value(f"document.getElementById('slider').value = {i + 1};"
                      "document.getElementById('slider').dispatchEvent(new Event('input'))")
        shown = facts(browser)
        statement = shown["Statement"].replace(" ", "").replace("RAPID", "")
        check(f"statement {i}", statement, text.replace("-0.00000", "0.00000"))
        check(f"line {i}", shown["Line"], str(line))
        if i in blocks:
            check(f"block {i}", shown["Block"], blocks[i])
        calls = browser.value("quillmarkPage.scene.drawNow(),"
                              "quillmarkPage.scene.renderer.info.render.calls")
        check(f"draw calls {calls} at {i}", calls <= 10, True)


def look_at_views(browser, measure):
    width, height = browser.value("[canvas.clientWidth, canvas.clientHeight]")
    ends = browser.value("Array.from(quillmarkPage.path.ends)")
    for view in VIEWS:
        browser.value(f"document.querySelector('[data-view={view}]').click()")
        browser.frame()
        place = projection(measure["box"], view, width, height)
        for i in range(0, len(ends), 3):
            x, y = place(ends[i:i + 3])
            shown = browser.value("quillmarkPage.scene.project(quillmarkPage.path.endOf(%d))"
                                  % (i // 3))
            if math.hypot(shown["x"] - x, shown["y"] - y) > 0.5:
                faults.append(f"{view}: movement {i // 3} at {shown} instead of {x}, {y}")


def ink(browser, x, y):
    """Whether something is drawn at a place, or close to it."""
    return browser.value(
        "(() => { quillmarkPage.scene.drawNow(); const copy = document.createElement('canvas');"
        "copy.width = copy.height = 5; const context = copy.getContext('2d');"
        f"context.drawImage(canvas, {round(x) - 2}, {round(y) - 2}, 5, 5, 0, 0, 5, 5);"
        "return context.getImageData(0, 0, 5, 5).data.some(part => part < 200); })()")


def look_at_choices(browser, measure):
    """Clicks on points of movements from above, where the outline lies alone."""
    browser.value("document.querySelector('[data-view=top]').click();"
                  "for (const id of ['showBox', 'showAxes']) document.getElementById(id).click()")
    browser.frame()
    width, height = browser.value("[canvas.clientWidth, canvas.clientHeight]")
    place = projection(measure["box"], "top", width, height)
    corner = 5 * HALF
    for movement, point in ((8, (0, 20, -8)), (9, None), (10, (50, 60, -8))):
        if point is None:  # the arc about 10, 50 from 0, 50 to 10, 60
            point = (10 - 2 * corner, 50 + 2 * corner, -8)
        x, y = place(point)
        browser.value("quillmarkPage.choose(22)")
        check(f"drawn at {point}", ink(browser, x, y), True)
        browser.value("quillmarkPage.choose(0)")
        browser.click(x, y)
        check(f"chosen at {point}", browser.value("quillmarkPage.chosen"), movement)
    x, y = place((20, 40, 0))
    check("drawn beside the path", ink(browser, x, y), False)
    browser.click(x, y)
    check("chosen beside the path", browser.value("quillmarkPage.chosen"), 10)
    row = browser.value("(row => [row.dataset.row, row.getBoundingClientRect().x + 20,"
                        "row.getBoundingClientRect().y + 8])(document.querySelector('.row'))")
    browser.click(row[1], row[2])
    wanted = browser.value(f"quillmarkPage.list.at({row[0]}).movement")
    check("chosen in the list", browser.value("quillmarkPage.chosen"), wanted)
    browser.key(".")
    check("next by key", browser.value("quillmarkPage.chosen"), wanted + 1)


def look_at_tools(browser, measure):
    of_tool = {tool["tool"]: tool["rapid"]["movements"] + tool["cutting"]["movements"]
               for tool in measure["tools"]}
    for number, count in of_tool.items():
        box = f"document.querySelector('[data-tool=\"{number}\"]')"
        browser.value(box + ".click()")
        check(f"without T{number}", browser.value("quillmarkPage.scene.shownMovements"),
              measure["movements"] - count)
        browser.value(box + ".click()")
    check("all tools", browser.value("quillmarkPage.scene.shownMovements"), measure["movements"])


def look_at_search(browser):
    browser.value("document.getElementById('wanted').value = 'N70';"
                  "document.querySelector('#search button').click()")
    check("found", facts(browser)["Block"].startswith("N70 "), True)
    browser.value("document.getElementById('wanted').value = 'N71';"
                  "document.querySelector('#search button').click()")
    check("not found", browser.value("document.getElementById('found').textContent"), "not found")


def look_at_controls(browser):
    place = "quillmarkPage.scene.camera.position.toArray().map(x => x.toFixed(3)).join()"
    before = browser.value(place)
    browser.drag((300, 300), (380, 340))
    check("turned by mouse", browser.value(place) != before, True)
    before = browser.value(place)
    browser.value("canvas.focus()")
    browser.key("ArrowLeft", 37)
    check("turned by key", browser.value(place) != before, True)
    check("names of controls", browser.value(
        "[...document.querySelectorAll('button, input, select, [tabindex]')].filter(element =>"
        "!(element.ariaLabel || element.textContent.trim() || element.labels?.length))"
        ".map(element => element.id)"), [])
    before = browser.value("document.documentElement.dataset.theme")
    browser.value("document.getElementById('theme').click()")
    check("theme", browser.value("document.documentElement.dataset.theme") != before, True)
    for colouring in ("feed", "height", "tool"):
        colours = "Array.from(quillmarkPage.scene.cuts.colours).join()"
        before = browser.value(colours)
        browser.value(f"quillmarkPage.colourBy('{colouring}')")
        check(f"colours by {colouring}", browser.value(colours) != before, True)


def colour(browser, x, y):
    """The colour most unlike white around a place."""
    return browser.value(
        "(() => { quillmarkPage.scene.drawNow(); const copy = document.createElement('canvas');"
        "copy.width = copy.height = 3; const context = copy.getContext('2d');"
        f"context.drawImage(canvas, {round(x) - 1}, {round(y) - 1}, 3, 3, 0, 0, 3, 3);"
        "const data = context.getImageData(0, 0, 3, 3).data;"
        "const all = [...Array(9).keys()].map(i => [...data.slice(4 * i, 4 * i + 3)]);"
        "const sum = part => part[0] + part[1] + part[2];"
        "return all.sort((a, b) => sum(a) - sum(b))[0]; })()")


def show_apt(browser, text):
    """Opens the page of an APT source and returns its measure."""
    with open("part.apt", "w", encoding="ascii") as file:
        file.write(text)
    tool("quillmark-view", "part.apt", "-o", "part.html")
    browser.open("part.html")
    return json.loads(tool("quillmark-view", "part.apt", "--measure", "--json"))["paths"][0]


def look_at_flat_paths(browser):
    """Boxes without a height, a width, or both; an arc that begins in the origin."""
    arc = ("TLAXIS/0,0,1\nINDIRV/0,1,0\n"
           "TLON,GOFWD/(CIRCLE/-5,0,0,5),ON,(LINE/-5,0,0,-10,0,0)\n")
    rows = (("GOTO/3,4,5\n", (3, 4, 5), 1),
            ("GOTO/0,0,0\nGOTO/0,0,9\nGOTO/0,0,0\nGOTO/0,0,9\n", (0, 0, 4.5), 9),
            ("GOTO/0,0,0\nGOTO/9,0,0\nGOTO/9,9,0\nGOTO/0,0,0\nGOTO/9,0,0\nRAPID\nGOTO/9,0,0\n",
             (4.5, 0, 0), 9 * math.sqrt(2)),
            (arc, None, math.hypot(10, 5)))
    for text, point, size in rows:
        measure = show_apt(browser, text)
        for side in ("low", "high"):
            shown = browser.value(
                f"quillmarkPage.scene.box.{'min' if side == 'low' else 'max'}.toArray()")
            off = max(abs(a - b) for a, b in zip(shown, measure["box"][side]))
            check(f"{side} corner of {text!r}, off by {off}", off < 0.001, True)
        check(f"size of {text!r}", abs(browser.value("quillmarkPage.scene.size") - size) < 0.01, True)
        for view in VIEWS:
            browser.value(f"document.querySelector('[data-view={view}]').click()")
            browser.frame()
            bar = browser.value("parseFloat(document.getElementById('scaleText').textContent)")
            check(f"bar of {bar} {view} of {text!r}", 0.02 * size < bar < size, True)
        if point and size > 1:  # the box lies on the path and hides none of it
            browser.value("quillmarkPage.scene.tool.visible = false; quillmarkPage.scene.chosen.visible = false;"
                          "document.getElementById('showAxes').click();"
                          "document.querySelector('[data-view=front]').click()")
            place = browser.value("quillmarkPage.scene.project(new THREE.Vector3(%g, %g, %g))" % point)
            red, _, blue = colour(browser, place["x"], place["y"])
            check(f"colour {red}, {blue} of {text!r}", blue > red + 60, True)
    browser.value("quillmarkPage.scene.pan(5, 3); quillmarkPage.scene.zoom(7); quillmarkPage.scene.fit()")
    browser.frame()
    middle = browser.value("quillmarkPage.scene.project(quillmarkPage.scene.middle)")
    width, height = browser.value("[canvas.clientWidth, canvas.clientHeight]")
    check("middle of what fits", math.hypot(middle["x"] - width / 2, middle["y"] - height / 2) < 1, True)


def write_arcs(name, count):
    """Arcs that have nothing in common, in a box."""
    random.seed(7)
    x = y = 0
    with open(name, "w", encoding="ascii") as program:
        for number in range(count):
            radius, angle = random.uniform(0.5, 20), random.uniform(0, 2 * math.pi)
            i, j = round(radius * math.cos(angle), 3), round(radius * math.sin(angle), 3)
            angle += random.uniform(0.2, 6)
            end = (x + i - radius * math.cos(angle), y + j - radius * math.sin(angle))
            if max(map(abs, end)) < 300:
                x, y = (round(value, 3) for value in end)
            program.write(f"N{number} G{random.choice((2, 3))} X{x:.3f} Y{y:.3f} I{i:.3f} J{j:.3f}\n")


def look_at_size(browser):
    """Many movements, with their blocks: bytes of the page, and rows of the list."""
    count = 20000
    with open("short.nc", "w", encoding="ascii") as program:
        program.write("G01 X1. F100.\n")
    convert("short.nc")
    bare = os.path.getsize("part.html")
    write_arcs("arcs.nc", count)
    check("arcs of the page", convert("arcs.nc")["arcs"]["movements"], count)
    each = (os.path.getsize("part.html") - bare) / count
    check(f"{each} bytes an arc", each <= 40, True)
    with open("long.nc", "w", encoding="ascii") as program:
        for i in range(count):
            program.write(f"N{i} G01 X{i % 977}.{i % 1000:03} Y{i % 83}.5 Z-{i % 7}.25 F{100 + i % 9}.\n")
    measure = convert("long.nc")
    each = (os.path.getsize("part.html") - bare) / count
    check(f"{each} bytes a movement", each <= 40, True)
    browser.open("part.html")
    check("movements of the long path", browser.value("quillmarkPage.path.count"),
          measure["movements"])
    browser.value(f"quillmarkPage.choose({count - 2})")
    check("rows", browser.value("document.querySelectorAll('.row').length < 100"), True)
    check("chosen row", browser.value("document.querySelector('.row.chosen .line').textContent"),
          str(statements()[count - 2][0]))


def look_at_digits(browser):
    """Positions of no, of few and of all decimals, in inches, too; a radius always has all."""
    for unit, scale in (("MM", 1), ("INCHES", 25.4)):
        for x, y in ((30, 40), (-0.25, 12.5), (0.00001, -7.12345), (99999.99999, 1e9)):
            radius = math.hypot(x, y)
            measure = show_apt(browser, f"UNITS/{unit}\nTLAXIS/0,0,1\nGOTO/{x:.5f},{y:.5f},2\n"
                               f"INDIRV/{-y / radius:.5f},{x / radius:.5f},0\nTLON,GOFWD/(CIRCLE/0,0,2,"
                               f"{radius:.5f}),ON,(LINE/0,0,2,{-x:.5f},{-y:.5f},2)\nGOTO/0,0,0\n")
            ends = browser.value("Array.from(quillmarkPage.path.ends)")
            wanted = [scale * value for value in (x, y, 2, -x, -y, 2, 0, 0, 0)]
            off = max(abs(a - b) / max(1, abs(b)) for a, b in zip(ends, wanted))
            check(f"ends of {x}, {y} {unit}, off by {off}", off < 1e-12, True)
            found = browser.value("quillmarkPage.path.radii[0]")
            check(f"radius {found} of {x}, {y} {unit}",
                  abs(found - scale * round(radius, 5)) <= 1e-9 * radius, True)
            length = browser.value("quillmarkPage.path.lengthOf(1)")
            check(f"arc of {x}, {y} {unit}", abs(length / measure["arcs"]["length"] - 1) < 1e-6, True)


def look_at_passes(browser):
    """A path of more pieces than are drawn at once, half of it done and half of it ahead."""
    count = 120000
    with open("large.nc", "w", encoding="ascii") as program:
        for i in range(count):
            program.write(f"G0{i % 7 != 0:d} X{i % 977}.{i % 1000:03} Y{i % 83}.5 Z-{i % 7}.25\n")
    movements = convert("large.nc")["movements"]
    browser.open("part.html")
    scene = "quillmarkPage.scene."
    browser.value(f"quillmarkPage.choose({movements // 2})")
    browser.value("""(scene => { window.seen = []; const told = scene.onDrawn;
        const endsOf = (of, line) => {
            const {start, count} = line.geometry.drawRange;
            const piece = at => scene.pass - 1 + (at >> 1) * of.passes;
            return !line.visible ? [] : Array.from({length: count}, (_, i) => {
                const at = start + i, end = 2 * piece(at) + (at & 1);
                return [0, 1, 2].every(k => line.geometry.attributes.position.array[3 * at + k]
                    === of.positions[3 * end + k]) ? end : -1; });
        };
        scene.onDrawn = () => { told(); seen.push({calls: scene.renderer.info.render.calls,
            text: document.getElementById('drawing').textContent,
            isHidden: document.getElementById('drawing').hidden,
            lines: [scene.cuts, scene.rapids].map(of => [endsOf(of, of.done), endsOf(of, of.ahead)])}); };
        scene.draw(); })(quillmarkPage.scene)""")
    browser.value("new Promise(done => { const look = () => quillmarkPage.scene.isWhole"
                  "&& seen.length > 1 ? done(0) : setTimeout(look, 20); look(); })")
    passes = browser.value(scene + "passes")
    check("several passes", passes > 1, True)
    seen = browser.value("""seen.map(({calls, text, isHidden, lines}) => ({calls, text, isHidden,
        pieces: lines.flat(2).length / 2}))""")
    check("a frame each", len(seen), passes)
    check("pieces at once", max(one["pieces"] for one in seen) <= 100000, True)
    check("draw calls of passes", max(one["calls"] for one in seen) <= 10, True)
    check("told while drawn", [one["text"].startswith("Still being drawn") for one in seen],
          [True] * (passes - 1) + [False])
    check("hidden when drawn", [one["isHidden"] for one in seen], [False] * (passes - 1) + [True])
    check("coarse", 0 < seen[0]["pieces"] <= movements / passes + 2, True)
    drawn = browser.value("""[0, 1].map(side => { const found = new Set(); let ends = 0;
        let least = Infinity, most = -1;
        for (const {lines} of seen) [quillmarkPage.scene.cuts, quillmarkPage.scene.rapids].forEach(
            (of, kind) => { for (const end of lines[kind][side]) { ++ends;
                const owner = of.owners[end >> 1]; found.add(owner);
                least = Math.min(least, owner); most = Math.max(most, owner); } });
        return [found.size, ends, least, most]; })""")
    half = movements // 2
    check("drawn as done", drawn[0], [half + 1, 2 * (half + 1), 0, half])
    check("drawn as ahead", drawn[1],
          [movements - half - 1, 2 * (movements - half - 1), half + 1, movements - 1])
    check("first before whole", browser.value(
        "quillmarkPage.firstPicture < quillmarkPage.wholePicture"), True)
    x, y = browser.value("(at => [at.x, at.y])(quillmarkPage.scene.project("
                         f"quillmarkPage.path.endOf({movements - 1})))")
    distance = browser.value(f"""(scene => {{ const of = scene.pick({x}, {y});
        const [from, to] = scene.pointsOf(of).map(point => {{
            const at = scene.project(point.add(scene.middle));
            return new THREE.Vector3(at.x, at.y, 0); }});
        const place = new THREE.Vector3({x}, {y}, 0);
        return new THREE.Line3(from, to).closestPointToPoint(place, true, new THREE.Vector3())
            .distanceTo(place); }})(quillmarkPage.scene)""")
    check(f"picked {distance} pixels away", distance < 0.1, True)



with tempfile.TemporaryDirectory() as folder, Browser() as browser:
    os.chdir(folder)
    measure = convert(EXAMPLE + "/part.nc")
    browser.open("part.html")
    blocks = {3: "N70 X140. F400."}
    look_at_figures(browser, measure)
    look_at_statements(browser, blocks)
    look_at_views(browser, measure)
    look_at_choices(browser, measure)
    look_at_tools(browser, measure)
    look_at_search(browser)
    look_at_controls(browser)
    look_at_flat_paths(browser)
    look_at_digits(browser)
    look_at_size(browser)
    look_at_passes(browser)
    check("console", browser.messages, [])
    os.chdir("/")

print("\n".join(faults) or "the page shows what is measured")
sys.exit(1 if faults else 0)
