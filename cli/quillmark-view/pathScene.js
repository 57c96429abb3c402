'use strict';

// The path in 3D. All feeds are one set of lines and all rapids another, each drawn once as far as
// the tool has come and once, faint, for what lies ahead. A large path is drawn in passes, each of
// them pieces from everywhere along it: the first shows the whole form, the others come one in a
// frame once the view is at rest.

const kToolColours = ['#0072b3', '#d65e00', '#009e73', '#cc78a6', '#57b5e8', '#e69e00', '#6b6b6b',
    '#8c592b'];
const kScaleColours = ['#3b4cc0', '#1fa187', '#c8a400', '#e8590c', '#b40426'];
const kViews = {
    top: [[0, 0, 1], [0, 1, 0]],
    front: [[0, -1, 0], [0, 0, 1]],
    side: [[1, 0, 0], [0, 0, 1]],
    isometric: [[1, -1, 1], [0, 0, 1]],
};
const kPickPixels = 7;
const kManyMovements = 200000; // whose lines are drawn several times as fast without smooth edges
const kPassPieces = 100000;
const kPassLength = 5000; // of its pieces, in diagonals of the box: long ones take their pixels
const kFlat = 1e-6; // in diagonals of the box
const kRest = 150; // milliseconds without a change of the view

// Lines of a fixed number of pieces, each with the movement that it belongs to.
class PieceLines {
    constructor(material, faint, pieces, isDashed) {
        this.isDashed = isDashed;
        this.done = new THREE.LineSegments(new THREE.BufferGeometry(), material);
        this.ahead = new THREE.LineSegments(new THREE.BufferGeometry(), faint);
        this.done.frustumCulled = false;
        this.ahead.frustumCulled = false;
        this.positions = new Float32Array(6 * pieces);
        this.colours = isDashed ? null : new Uint8Array(6 * pieces);
        this.distances = isDashed ? new Float32Array(2 * pieces) : null;
        this.owners = new Uint32Array(pieces);
        this.whole = new THREE.LineSegments(); // all pieces in their order, never drawn
        this.ofPasses = [];
        this.passes = 1;
        this.clear();
    }

    clear() {
        this.pieces = 0;
        this.length = 0;
    }

    add(x, y, z, nextX, nextY, nextZ, owner) {
        const at = 6 * this.pieces;
        this.positions[at] = x;
        this.positions[at + 1] = y;
        this.positions[at + 2] = z;
        this.positions[at + 3] = nextX;
        this.positions[at + 4] = nextY;
        this.positions[at + 5] = nextZ;
        // Several times as fast as Math.hypot.
        const length = Math.sqrt((nextX - x) ** 2 + (nextY - y) ** 2 + (nextZ - z) ** 2);
        if (this.isDashed) {
            this.distances[2 * this.pieces + 1] = length;
        }
        this.length += length;
        this.owners[this.pieces++] = owner;
    }

    // Pass p of n has the pieces p, p + n, p + 2n ... Its lines are made when it is drawn first, so
    // that the first picture waits for its own alone.
    finish(passes) {
        this.drop();
        this.passes = passes;
        this.whole.geometry = new THREE.BufferGeometry();
        this.whole.geometry.setAttribute('position', new THREE.BufferAttribute(
            this.positions.subarray(0, 6 * this.pieces), 3));
    }

    drop() {
        for (const {done, ahead} of this.ofPasses) {
            done.dispose();
            ahead.dispose();
        }
        this.ofPasses = [];
    }

    linesOf(pass) {
        if (this.ofPasses[pass] === undefined) {
            const attributes = {position: this.part(this.positions, 3, pass)};
            if (this.isDashed) {
                attributes.lineDistance = this.part(this.distances, 1, pass);
            } else {
                attributes.color = this.part(this.colours, 3, pass);
            }
            const geometry = () => {
                const lines = new THREE.BufferGeometry();
                for (const [name, attribute] of Object.entries(attributes)) {
                    lines.setAttribute(name, attribute);
                }
                return lines;
            };
            this.ofPasses[pass] = {done: geometry(), ahead: geometry()};
        }
        return this.ofPasses[pass];
    }

    // What the pieces of a pass have of an array with `size` numbers for each end.
    part(array, size, pass) {
        const each = 2 * size;
        let values = array.subarray(0, each * this.pieces);
        if (this.passes > 1) {
            values = new array.constructor(each * this.inPass(pass, this.pieces));
            for (let at = 0, from = each * pass; at < values.length; from += each * this.passes) {
                for (let k = 0; k < each; ++k) {
                    values[at++] = array[from + k];
                }
            }
        }
        return new THREE.BufferAttribute(values, size, array instanceof Uint8Array);
    }

    // The number of pieces of the movements up to one.
    piecesUpTo(movement) {
        let low = 0;
        let high = this.pieces;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.owners[middle] <= movement) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    showUpTo(movement) { this.reached = this.piecesUpTo(movement); }

    // How many of the first `pieces` are in a pass.
    inPass(pass, pieces) {
        return Math.floor(pieces / this.passes) + (pass < pieces % this.passes ? 1 : 0);
    }

    // In a pass, what is done lies in front of what is ahead.
    usePass(pass) {
        const all = this.inPass(pass, this.pieces);
        const done = this.inPass(pass, this.reached);
        const lines = this.linesOf(pass);
        this.done.geometry = lines.done;
        this.ahead.geometry = lines.ahead;
        this.done.geometry.setDrawRange(0, 2 * done);
        this.ahead.geometry.setDrawRange(2 * done, 2 * (all - done));
        this.done.visible = done > 0;
        this.ahead.visible = done < all;
    }
}

class PathScene {
    constructor(canvas, path) {
        this.path = path;
        this.canvas = canvas;
        this.hiddenTools = new Set();
        this.colouring = 'tool';
        this.position = path.count - 1;
        const isLarge = path.count >= kManyMovements;
        // Passes are drawn onto each other.
        this.renderer = new THREE.WebGLRenderer(
            {canvas, antialias: !isLarge, preserveDrawingBuffer: true});
        this.pass = 0;
        this.scene = new THREE.Scene();
        this.camera = new THREE.OrthographicCamera(-1, 1, 1, -1, 0.1, 10);
        this.camera.up.set(0, 0, 1);
        this.controls = new THREE.OrbitControls(this.camera, canvas);
        this.controls.enableKeys = false;
        this.controls.screenSpacePanning = true;
        this.controls.addEventListener('change', () => this.draw());
        this.findTools();
        this.cutArcs();
        this.findRanges();
        this.addLines();
        this.addHelpers();
        this.fillLines();
        // All before the first line is drawn: to look for a program's errors waits for what is drawn.
        this.renderer.compile(this.scene, this.camera);
        this.resize();
        this.look('isometric');
    }

    // Tools in the order of their first use, with what they do.
    findTools() {
        const tools = new Map();
        const places = this.path.states.map((state) => {
            if (!tools.has(state.tool)) {
                tools.set(state.tool, {tool: state.tool, movements: 0, cutting: 0});
            }
            return tools.get(state.tool);
        });
        for (let i = 0; i < this.path.count; ++i) {
            const tool = places[this.path.stateOf[i]];
            ++tool.movements;
            tool.cutting += this.path.kinds[i] === kRapid ? 0 : 1;
        }
        this.tools = [...tools.values()].filter((tool) => tool.movements > 0);
        let next = 0;
        for (const tool of this.tools) {
            tool.colour = tool.cutting > 0 ? kToolColours[next++ % kToolColours.length] : null;
        }
    }

    // Points on the arcs, few enough for all of them to be drawn, and where those of each begin.
    cutArcs() {
        const most = Math.max(4, Math.min(180, Math.floor(3e6 / (this.path.arcCount + 1))));
        const points = new Float64Array(3 * (most - 1) * this.path.arcCount);
        let size = 0;
        this.arcBegins = new Uint32Array(this.path.arcCount + 1);
        const sweep = new Sweep();
        const point = new THREE.Vector3();
        for (let i = 0; i < this.path.count; ++i) {
            if (this.path.kinds[i] !== kArc) {
                continue;
            }
            sweep.set(this.path, i);
            const steps = Math.max(2, Math.ceil(most * sweep.angle / (2 * Math.PI)));
            for (let k = 1; k < steps; ++k) {
                sweep.pointAt(k / steps, point).toArray(points, size);
                size += 3;
            }
            this.arcBegins[this.path.arcOf[i] + 1] = size;
        }
        this.arcPoints = points.slice(0, size);
    }

    // The points between the ends of an arc.
    pointsBetween(movement) {
        const arc = this.path.arcOf[movement];
        return this.arcPoints.subarray(this.arcBegins[arc], this.arcBegins[arc + 1]);
    }

    findRanges() {
        const low = this.path.startOf(0).toArray(); // of an arc, that no end tells
        const high = [...low];
        for (const points of [this.path.ends, this.arcPoints]) {
            for (let i = 0; i < points.length; ++i) {
                const axis = i % 3;
                low[axis] = Math.min(low[axis], points[i]);
                high[axis] = Math.max(high[axis], points[i]);
            }
        }
        const box = new THREE.Box3(new THREE.Vector3(...low), new THREE.Vector3(...high));
        this.box = box;
        this.middle = box.getCenter(new THREE.Vector3());
        this.size = box.getSize(new THREE.Vector3()).length() || 1;
        const feeds = [];
        this.cuttingPieces = this.arcPoints.length / 3;
        this.rapidPieces = 0;
        this.lowest = Infinity;
        this.highest = -Infinity;
        for (let i = 0; i < this.path.count; ++i) {
            if (this.path.kinds[i] === kRapid) {
                ++this.rapidPieces;
                continue;
            }
            ++this.cuttingPieces;
            this.lowest = Math.min(this.lowest, this.path.ends[3 * i + 2]);
            this.highest = Math.max(this.highest, this.path.ends[3 * i + 2]);
            feeds[this.path.stateOf[i]] = true;
        }
        const used = this.path.states.filter((state, i) => feeds[i]).map((state) => state.feed);
        this.lowestFeed = used.reduce((a, b) => Math.min(a, b), Infinity);
        this.highestFeed = used.reduce((a, b) => Math.max(a, b), -Infinity);
    }

    addLines() {
        const faint = {transparent: true, opacity: 0.18, depthWrite: false};
        const dashes = {color: '#808080', dashSize: 6, gapSize: 5};
        this.dashes = [new THREE.LineDashedMaterial(dashes),
            new THREE.LineDashedMaterial({...dashes, ...faint})];
        this.rapids = new PieceLines(...this.dashes, this.rapidPieces, true);
        const solid = {vertexColors: THREE.VertexColors};
        this.cuts = new PieceLines(new THREE.LineBasicMaterial(solid),
            new THREE.LineBasicMaterial({...solid, ...faint}), this.cuttingPieces, false);
        this.scene.add(this.rapids.done, this.rapids.ahead, this.cuts.done, this.cuts.ahead);
    }

    // Drawn around the middle of the box, where numbers of 32 bits are finest. A flat box gets a
    // little height, because nothing can be scaled by 0.
    addHelpers() {
        const box = this.box.clone().translate(this.middle.clone().negate())
            .expandByScalar(kFlat * this.size);
        this.boxLines = new THREE.Box3Helper(box, '#8a8a8a');
        // What runs along its edges is seen on it.
        this.boxLines.renderOrder = -1;
        this.boxLines.material.depthWrite = false;
        this.boxLines.material.depthFunc = THREE.LessDepth;
        this.axes = new THREE.AxesHelper(this.size / 6);
        this.axes.position.copy(this.middle).negate();
        this.chosen = new THREE.Line(new THREE.BufferGeometry(),
            new THREE.LineBasicMaterial({color: '#e6007e', depthTest: false}));
        this.chosen.renderOrder = 2;
        this.chosen.frustumCulled = false;
        const cone = new THREE.ConeBufferGeometry(7, 26, 20);
        cone.rotateX(-Math.PI / 2);
        cone.translate(0, 0, 13);
        this.tool = new THREE.Mesh(cone, new THREE.MeshBasicMaterial(
            {color: '#e6007e', transparent: true, opacity: 0.55, depthTest: false}));
        this.tool.renderOrder = 1;
        this.scene.add(this.boxLines, this.axes, this.chosen, this.tool);
    }

    isShown(movement) { return !this.hiddenTools.has(this.path.stateAt(movement).tool); }

    fillLines() {
        const {path, middle} = this;
        const {ends} = path;
        const hidden = path.states.map((state) => this.hiddenTools.has(state.tool));
        this.rapids.clear();
        this.cuts.clear();
        this.shownMovements = 0;
        let {x, y, z} = path.startOf(0).sub(middle);
        for (let i = 0; i < path.count; ++i) {
            const nextX = ends[3 * i] - middle.x;
            const nextY = ends[3 * i + 1] - middle.y;
            const nextZ = ends[3 * i + 2] - middle.z;
            if (path.anew[i] !== 0) {
                [x, y, z] = [nextX, nextY, nextZ];
            }
            if (!hidden[path.stateOf[i]]) {
                ++this.shownMovements;
                const lines = path.kinds[i] === kRapid ? this.rapids : this.cuts;
                const arc = path.arcOf[i];
                const last = path.kinds[i] === kArc ? this.arcBegins[arc + 1] : 0;
                for (let k = last > 0 ? this.arcBegins[arc] : 0; k < last; k += 3) {
                    const atX = this.arcPoints[k] - middle.x;
                    const atY = this.arcPoints[k + 1] - middle.y;
                    const atZ = this.arcPoints[k + 2] - middle.z;
                    lines.add(x, y, z, atX, atY, atZ, i);
                    x = atX;
                    y = atY;
                    z = atZ;
                }
                lines.add(x, y, z, nextX, nextY, nextZ, i);
            }
            x = nextX;
            y = nextY;
            z = nextZ;
        }
        this.fillColours();
        const pieces = this.rapids.pieces + this.cuts.pieces;
        const length = (this.rapids.length + this.cuts.length) / this.size;
        this.passes = Math.max(1, Math.ceil(pieces / kPassPieces), Math.ceil(length / kPassLength));
        this.rapids.finish(this.passes);
        this.cuts.finish(this.passes);
        // Every pass draws it over what is there, so it must hide that.
        this.tool.material.opacity = this.passes > 1 ? 1 : 0.55;
        this.moveTo(this.position);
    }

    colourAt(part) {
        const place = Math.min(Math.max(part, 0), 1) * (kScaleColours.length - 1);
        const low = Math.min(Math.floor(place), kScaleColours.length - 2);
        return new THREE.Color(kScaleColours[low])
            .lerp(new THREE.Color(kScaleColours[low + 1]), place - low);
    }

    fillColours() {
        const bytes = (colour) => colour.toArray().map((part) => Math.round(255 * part));
        const scale = [];
        for (let i = 0; i < 256; ++i) {
            scale.push(bytes(this.colourAt(i / 255)));
        }
        const inScale = (value, low, high) =>
            scale[high > low ? Math.round(255 * (value - low) / (high - low)) : 128];
        const toolColours = new Map(this.tools.map(
            (tool) => [tool.tool, bytes(new THREE.Color(tool.colour || '#808080'))]));
        const ofState = this.path.states.map((state) => this.colouring === 'tool'
            ? toolColours.get(state.tool)
            : inScale(Math.min(Math.max(state.feed, this.lowestFeed), this.highestFeed),
                this.lowestFeed, this.highestFeed));
        const {colours, owners, pieces, positions} = this.cuts;
        const height = (vertex) => Math.min(Math.max(positions[3 * vertex + 2] + this.middle.z,
            this.lowest), this.highest);
        for (let vertex = 0; vertex < 2 * pieces; ++vertex) {
            const colour = this.colouring === 'height'
                ? inScale(height(vertex), this.lowest, this.highest)
                : ofState[this.path.stateOf[owners[vertex >> 1]]];
            colours[3 * vertex] = colour[0];
            colours[3 * vertex + 1] = colour[1];
            colours[3 * vertex + 2] = colour[2];
        }
    }

    colourBy(colouring) {
        this.colouring = colouring;
        this.fillColours();
        this.cuts.drop();
        this.draw();
    }

    showTool(tool, isShown) {
        if (isShown) {
            this.hiddenTools.delete(tool);
        } else {
            this.hiddenTools.add(tool);
        }
        this.fillLines();
        this.draw();
    }

    // The points of a movement, around the middle.
    pointsOf(movement) {
        const points = [this.path.startOf(movement)];
        if (this.path.kinds[movement] === kArc) {
            const between = this.pointsBetween(movement);
            for (let k = 0; k < between.length; k += 3) {
                points.push(new THREE.Vector3().fromArray(between, k));
            }
        }
        points.push(this.path.endOf(movement));
        return points.map((point) => point.sub(this.middle));
    }

    moveTo(movement) {
        this.position = movement;
        this.rapids.showUpTo(movement);
        this.cuts.showUpTo(movement);
        this.chosen.geometry.dispose();
        this.chosen.geometry = new THREE.BufferGeometry().setFromPoints(this.pointsOf(movement));
        this.tool.position.copy(this.path.endOf(movement)).sub(this.middle);
        this.tool.quaternion.setFromUnitVectors(new THREE.Vector3(0, 0, 1),
            this.path.axisAt(movement).normalize());
    }

    // Views

    resize() {
        const {clientWidth, clientHeight} = this.canvas;
        if (clientWidth === 0 || clientHeight === 0) {
            return;
        }
        this.renderer.setPixelRatio(window.devicePixelRatio);
        this.renderer.setSize(clientWidth, clientHeight, false);
        const half = this.size / 2;
        const width = Math.max(1, clientWidth / clientHeight) * half;
        this.camera.right = width;
        this.camera.left = -width;
        this.camera.top = width * clientHeight / clientWidth;
        this.camera.bottom = -this.camera.top;
        this.camera.near = 0;
        this.camera.far = 40 * this.size;
        this.camera.updateProjectionMatrix();
        this.draw();
    }

    look(name) {
        const [direction, up] = kViews[name].map((part) => new THREE.Vector3().fromArray(part));
        this.controls.target.set(0, 0, 0);
        this.camera.position.copy(direction).setLength(20 * this.size);
        if (up.z === 0) {
            this.camera.position.y -= 1e-5 * this.size; // its upper side is that of Y
        }
        this.controls.update();
        this.fit();
    }

    // The box fills nine tenths of the canvas, or would from another side where it is a point.
    fit() {
        this.camera.position.sub(this.controls.target);
        this.controls.target.set(0, 0, 0);
        this.camera.lookAt(this.controls.target);
        this.camera.zoom = 1;
        this.camera.updateProjectionMatrix();
        this.camera.updateMatrixWorld();
        const box = new THREE.Box3();
        const {min, max} = this.boxLines.box;
        for (let i = 0; i < 8; ++i) {
            box.expandByPoint(new THREE.Vector3(i & 1 ? min.x : max.x, i & 2 ? min.y : max.y,
                i & 4 ? min.z : max.z).project(this.camera));
        }
        const reach = Math.max(-box.min.x, box.max.x, -box.min.y, box.max.y);
        this.camera.zoom = 0.9 / (reach > 10 * kFlat ? reach : 1);
        this.camera.updateProjectionMatrix();
        this.controls.update();
        this.draw();
    }

    turn(right, up) {
        const offset = this.camera.position.clone().sub(this.controls.target);
        const sideways = this.camera.up.clone().cross(offset).normalize();
        const between = offset.angleTo(this.camera.up);
        const limited = Math.min(Math.max(between - up, 1e-5), Math.PI - 1e-5);
        offset.applyAxisAngle(sideways, limited - between).applyAxisAngle(this.camera.up, right);
        this.camera.position.copy(this.controls.target).add(offset);
        this.controls.update();
        this.draw();
    }

    pan(right, up) {
        const step = 0.1 * this.canvas.clientHeight / this.pixelsPerMillimetre();
        const move = new THREE.Vector3(right * step, up * step, 0)
            .applyQuaternion(this.camera.quaternion);
        this.camera.position.add(move);
        this.controls.target.add(move);
        this.controls.update();
        this.draw();
    }

    zoom(factor) {
        this.camera.zoom *= factor;
        this.camera.updateProjectionMatrix();
        this.draw();
    }

    pixelsPerMillimetre() {
        return this.canvas.clientWidth * this.camera.zoom / (this.camera.right - this.camera.left);
    }

    // The place on the canvas, in its pixels, of a point of the part.
    project(point) {
        const place = point.clone().sub(this.middle).project(this.camera);
        return {
            x: (place.x + 1) / 2 * this.canvas.clientWidth,
            y: (1 - place.y) / 2 * this.canvas.clientHeight,
        };
    }

    // The movement next to a place on the canvas, -1 where there is none.
    pick(x, y) {
        const caster = new THREE.Raycaster();
        caster.linePrecision = kPickPixels / this.pixelsPerMillimetre();
        caster.setFromCamera({x: 2 * x / this.canvas.clientWidth - 1,
            y: 1 - 2 * y / this.canvas.clientHeight}, this.camera);
        let nearest = Infinity;
        let found = -1;
        for (const lines of [this.cuts, this.rapids]) {
            const hits = [];
            lines.whole.raycast(caster, hits);
            for (const hit of hits) {
                const distance = caster.ray.distanceToPoint(hit.point);
                if (distance < nearest - 1e-6 * this.size) {
                    nearest = distance;
                    found = lines.owners[hit.index >> 1];
                }
            }
        }
        return found;
    }

    // Anew, once in a frame, however often it is asked for.
    draw() {
        clearTimeout(this.waiting);
        this.pass = 0;
        this.ask();
    }

    ask() {
        if (!this.isAsked) {
            this.isAsked = true;
            requestAnimationFrame(() => this.drawNow());
        }
    }

    get isWhole() { return this.pass === this.passes; }

    // One pass, and asks for the next.
    drawNow() {
        this.isAsked = false;
        if (this.isWhole) {
            this.pass = 0;
        }
        const scale = this.pixelsPerMillimetre();
        for (const material of this.dashes) {
            material.scale = scale;
        }
        this.tool.scale.setScalar(1 / scale);
        this.rapids.usePass(this.pass);
        this.cuts.usePass(this.pass);
        this.renderer.autoClear = this.pass === 0;
        this.renderer.render(this.scene, this.camera);
        ++this.pass;
        if (!this.isWhole) {
            clearTimeout(this.waiting);
            if (this.pass === 1) {
                this.waiting = setTimeout(() => this.ask(), kRest);
            } else {
                this.ask();
            }
        }
        if (this.onDrawn) {
            this.onDrawn();
        }
    }

    // Returns when all that was asked for is on the canvas, which takes longer than asking.
    waitForPicture() {
        const gl = this.renderer.getContext();
        gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, new Uint8Array(4));
    }
}
