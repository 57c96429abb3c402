'use strict';

// The path as PathBytes.cpp packs it. Positions are in mm, movements counted from 0.

const kRapid = 0;
const kArc = 2;
const kDigits = 1e-5;
const kRateDigits = 1e-6;
const kAxisDigits = 1e-7;
// By their code: the axes, the positive direction first.
const kAxisNormals = [[1, 0, 0], [-1, 0, 0], [0, 1, 0], [0, -1, 0], [0, 0, 1], [0, 0, -1]];
const kEventNames = ['LOADTL', 'DELAY', 'DELAY', 'STOP', 'OPSTOP', 'GOHOME', 'END'];

function bytesOf(base64) {
    const text = atob(base64);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i) {
        bytes[i] = text.charCodeAt(i);
    }
    return bytes;
}

function unpack(base64) {
    const packed = new Blob([bytesOf(base64)]).stream();
    return new Response(packed.pipeThrough(new DecompressionStream('deflate')));
}

class PackedNumbers {
    constructor(bytes) {
        this.bytes = bytes;
        this.at = 0;
    }

    // The sign comes first, so that it is kept where a value has more than 53 bits.
    next() {
        let byte = this.bytes[this.at++];
        const isNegative = (byte & 1) !== 0;
        let value = (byte & 127) >> 1;
        for (let factor = 64; byte >= 128; factor *= 128) {
            byte = this.bytes[this.at++];
            value += (byte & 127) * factor;
        }
        return isNegative ? -value - 1 : value;
    }
}

// An arc as centre, arms and angle: the point at the part p of it, 0 to 1, is
// centre + (1 + p * growth) * (cos(p * angle) * from + sin(p * angle) * across) + p * rise.
// One is filled anew for many arcs.
class Sweep {
    constructor() {
        for (const name of ['centre', 'from', 'across', 'rise', 'middle', 'normal', 'to']) {
            this[name] = new THREE.Vector3();
        }
        this.angle = 0;
        this.growth = 0;
    }

    set(path, movement) {
        const arc = path.arcOf[movement];
        const {centre, from, across, rise, middle, normal, to} = this;
        normal.fromArray(path.normals, 3 * arc).normalize();
        middle.fromArray(path.centres, 3 * arc);
        path.startOf(movement, centre);
        path.endOf(movement, to);
        rise.subVectors(to, centre).projectOnVector(normal);
        from.subVectors(centre, middle).projectOnPlane(normal);
        to.sub(middle).projectOnPlane(normal);
        across.crossVectors(normal, from);
        centre.sub(from);
        this.angle = Math.atan2(across.dot(to), from.dot(to));
        // A full turn may end a little behind its start as well.
        const isLong = path.longArcs[arc] !== 0;
        if (this.angle <= 0 || (isLong && this.angle < 1)) {
            this.angle = isLong ? this.angle + 2 * Math.PI : -this.angle;
        }
        this.growth = to.length() / from.length() - 1;
        return this;
    }

    pointAt(part, point = new THREE.Vector3()) {
        const angle = part * this.angle;
        const size = 1 + part * this.growth;
        return point.copy(this.centre)
            .addScaledVector(this.from, size * Math.cos(angle))
            .addScaledVector(this.across, size * Math.sin(angle))
            .addScaledVector(this.rise, part);
    }
}

class PathData {
    constructor(bytes, name) {
        const numbers = new PackedNumbers(bytes);
        if (numbers.next() !== 2) {
            throw new Error('the path is in a form that this page does not know');
        }
        const flags = numbers.next();
        this.unit = (flags & 1) !== 0 ? 25.4 : 1;
        this.isInch = (flags & 1) !== 0;
        this.isMultiAxis = (flags & 2) !== 0;
        this.hasBlocks = (flags & 4) !== 0;
        this.grain = numbers.next(); // of positions, in the last digit that a source has
        this.name = name;
        this.blockTexts = []; // until they are unpacked
        this.count = numbers.next();
        this.arcCount = numbers.next();
        const states = numbers.next();
        const events = numbers.next();
        this.readStates(numbers, states);
        this.readEvents(numbers, events);
        this.readMovements(numbers);
    }

    // The blocks are not needed for a picture, so they come later.
    async unpackBlocks(base64) {
        const text = await unpack(base64).text();
        this.blockTexts = text.split('\n');
    }

    readStates(numbers, count) {
        this.states = [];
        let feed = 0;
        let speed = 0;
        for (let i = 0; i < count; ++i) {
            const flags = numbers.next();
            feed += numbers.next();
            speed += numbers.next();
            this.states.push({
                feed: feed * kRateDigits,
                speed: speed * kRateDigits,
                limit: numbers.next() * kRateDigits,
                isFeedPerTurn: (flags & 1) !== 0,
                isCuttingSpeed: (flags & 2) !== 0,
                spindle: ['off', 'clockwise', 'counterclockwise'][flags >> 2 & 3],
                coolant: ['off', 'on', 'mist'][flags >> 4 & 3],
                side: ['off', 'left', 'right'][flags >> 6 & 3],
                tool: (flags & 256) !== 0 ? numbers.next() : null,
                register: (flags & 512) !== 0 ? numbers.next() : null,
            });
        }
    }

    readEvents(numbers, count) {
        this.events = [];
        let movement = 0;
        let line = 0;
        let block = 0;
        for (let i = 0; i < count; ++i) {
            const kind = numbers.next();
            const value = numbers.next() * kRateDigits;
            movement += numbers.next();
            line += numbers.next();
            block += this.hasBlocks ? numbers.next() : 0;
            this.events.push({kind, value, movement, line, block});
        }
    }

    readMovements(numbers) {
        const count = this.count;
        this.ends = new Float64Array(3 * count);
        this.kinds = new Uint8Array(count);
        this.anew = new Uint8Array(count);
        this.stateOf = new Uint32Array(count);
        this.lines = new Uint32Array(count);
        this.blocks = new Uint32Array(count); // from 1; 0: none
        this.axisOf = new Uint32Array(count);
        this.axes = [0, 0, 1];
        this.arcOf = new Uint32Array(count);
        this.centres = new Float64Array(3 * this.arcCount);
        this.normals = new Float64Array(3 * this.arcCount);
        this.radii = new Float64Array(this.arcCount);
        this.longArcs = new Uint8Array(this.arcCount); // of more than half a turn
        let arc = 0;
        const scale = this.grain * kDigits * this.unit;
        const start = [0, 0, 0];
        const end = [0, 0, 0];
        const axis = [0, 0, 0];
        let line = 0;
        let block = 0;
        let state = 0;
        for (let i = 0; i < count; ++i) {
            const bits = numbers.next();
            for (let k = 0; k < 3; ++k) {
                start[k] = end[k];
                end[k] += numbers.next();
                this.ends[3 * i + k] = end[k] * scale;
            }
            line += numbers.next();
            block += this.hasBlocks ? numbers.next() : 0;
            state += (bits & 16) !== 0 ? numbers.next() : 0;
            if ((bits & 32) !== 0) {
                for (let k = 0; k < 3; ++k) {
                    axis[k] += numbers.next();
                    this.axes.push(axis[k] * kAxisDigits);
                }
            }
            this.kinds[i] = bits & 3;
            this.anew[i] = (bits & 4) !== 0 ? 1 : 0;
            this.lines[i] = line;
            this.blocks[i] = block;
            this.stateOf[i] = state;
            this.axisOf[i] = this.axes.length / 3 - 1;
            if ((bits & 3) === kArc) {
                this.arcOf[i] = arc;
                this.longArcs[arc] = (bits & 8) !== 0 ? 1 : 0;
                this.readArc(numbers, start, end, arc++);
            }
        }
    }

    readArc(numbers, start, end, arc) {
        const scale = this.grain * kDigits * this.unit;
        let square = 0;
        for (let k = 0; k < 3; ++k) {
            const centre = start[k] + numbers.next();
            square += (end[k] - centre) ** 2;
            this.centres[3 * arc + k] = centre * scale;
        }
        const arm = Math.round(Math.sqrt(square) * this.grain);
        this.radii[arc] = (arm + numbers.next()) * kDigits * this.unit;
        this.normals.set(this.readNormal(numbers), 3 * arc);
    }

    readNormal(numbers) {
        const code = numbers.next();
        if (code < 6) {
            return kAxisNormals[code];
        }
        if (code === 8) {
            this.normal = [0, 0, 0].map(() => numbers.next() * kAxisDigits);
        } else if (code === 7) {
            this.normal = this.normal.map((value) => -value);
        }
        return this.normal;
    }

    // Points go into a vector that may be given.
    endOf(movement, point = new THREE.Vector3()) {
        return point.fromArray(this.ends, 3 * movement);
    }

    startOf(movement, point = new THREE.Vector3()) {
        if (this.anew[movement] !== 0) {
            return this.endOf(movement, point);
        }
        return movement === 0 ? point.set(0, 0, 0) : this.endOf(movement - 1, point);
    }

    axisAt(movement) { return new THREE.Vector3().fromArray(this.axes, 3 * this.axisOf[movement]); }

    stateAt(movement) { return this.states[this.stateOf[movement]]; }

    blockAt(movement) { return this.textOfBlock(this.blocks[movement]); }

    textOfBlock(block) { return this.blockTexts[block - 1] || ''; }

    sweepOf(movement) { return new Sweep().set(this, movement); }

    lengthOf(movement) {
        if (this.kinds[movement] !== kArc) {
            return this.endOf(movement).distanceTo(this.startOf(movement));
        }
        const sweep = this.sweepOf(movement);
        return Math.hypot(sweep.from.length() * (1 + sweep.growth / 2) * sweep.angle,
            sweep.rise.length());
    }

    numbersText(values) {
        return values.map((value) => (value / this.unit).toFixed(5)).join(', ');
    }

    // The statement as it stands in the source, but for its blanks.
    statementOf(movement) {
        const end = this.endOf(movement).toArray();
        if (this.kinds[movement] === kArc) {
            const arc = this.arcOf[movement];
            const centre = this.centres.slice(3 * arc, 3 * arc + 3);
            return `TLON,GOFWD/(CIRCLE/${this.numbersText([...centre, this.radii[arc]])}),` +
                `ON,(LINE/${this.numbersText([...centre, ...end])})`;
        }
        let text = `GOTO/${this.numbersText(end)}`;
        if (this.isMultiAxis) {
            const axis = this.axisAt(movement).toArray();
            text += `, ${axis.map((value) => value.toFixed(5)).join(', ')}`;
        }
        return this.kinds[movement] === kRapid ? `RAPID ${text}` : text;
    }

    eventText(event) {
        const name = kEventNames[event.kind];
        const unit = event.kind === 2 ? ',REV' : '';
        return event.kind < 3 ? `${name}/${Number(event.value.toFixed(4))}${unit}` : name;
    }

    feedText(state) {
        const unit = this.isInch ? 'in' : 'mm';
        const feed = state.feed / this.unit;
        return `${Number(feed.toFixed(4))} ${unit}/${state.isFeedPerTurn ? 'rev' : 'min'}`;
    }

    spindleText(state) {
        if (state.spindle === 'off') {
            return 'off';
        }
        const unit = state.isCuttingSpeed ? 'm/min' : 'rev/min';
        return `${Number(state.speed.toFixed(4))} ${unit}, ${state.spindle}`;
    }
}

const toolName = (tool) => tool === null ? 'no tool' : `T${tool}`;
