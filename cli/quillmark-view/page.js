'use strict';

// What the controls of the page do.

const byId = (id) => document.getElementById(id);

class Page {
    constructor(path) {
        this.path = path;
        this.scene = new PathScene(byId('canvas'), path);
        this.list = new StatementList(byId('list'), path, (movement) => this.choose(movement));
        this.scene.onDrawn = () => this.tellDrawn();
        document.title = `${path.name} - tool path`;
        byId('name').textContent = path.name;
        byId('slider').max = String(path.count);
        this.addTools();
        this.connect();
        this.useTheme(window.matchMedia('(prefers-color-scheme: dark)').matches);
        this.choose(path.count - 1);
    }

    addTools() {
        for (const {tool, movements, colour} of this.scene.tools) {
            const label = document.createElement('label');
            const box = document.createElement('input');
            box.type = 'checkbox';
            box.checked = true;
            box.dataset.tool = String(tool);
            box.addEventListener('change', () => this.scene.showTool(tool, box.checked));
            const swatch = document.createElement('span');
            swatch.className = colour === null ? 'swatch rapid' : 'swatch';
            swatch.style.borderTopColor = colour;
            label.append(box, swatch, `${toolName(tool)}: ${movements} movements`);
            byId('tools').append(label);
        }
    }

    connect() {
        byId('slider').addEventListener('input', () => this.choose(byId('slider').value - 1));
        byId('back').addEventListener('click', () => this.step(-1));
        byId('forth').addEventListener('click', () => this.step(1));
        byId('play').addEventListener('click', () => this.run(!this.isRunning));
        for (const button of document.querySelectorAll('[data-view]')) {
            button.addEventListener('click', () => this.scene.look(button.dataset.view));
        }
        byId('theme').addEventListener('click', () => this.useTheme(!this.isDark));
        byId('showBox').addEventListener('change', (event) => {
            this.scene.boxLines.visible = event.target.checked;
            this.scene.draw();
        });
        byId('showAxes').addEventListener('change', (event) => {
            this.scene.axes.visible = event.target.checked;
            this.scene.draw();
        });
        byId('colouring').addEventListener('change', (event) => this.colourBy(event.target.value));
        byId('search').addEventListener('submit', (event) => {
            event.preventDefault();
            this.find(byId('wanted').value.trim());
        });
        byId('wantedLabel').textContent = this.path.hasBlocks ? 'Find block' : 'Find line';
        document.addEventListener('keydown', (event) => this.key(event));
        byId('canvas').addEventListener('keydown', (event) => this.keyInPicture(event));
        this.connectPicture();
        new ResizeObserver(() => this.scene.resize()).observe(byId('stage'));
        new ResizeObserver(() => this.list.show(this.chosen)).observe(byId('list'));
    }

    // A click is a press that does not move.
    connectPicture() {
        const canvas = byId('canvas');
        let pressed = null;
        canvas.addEventListener('pointerdown', (event) => {
            pressed = event.isPrimary && event.button === 0 ? event : null;
        });
        canvas.addEventListener('pointerup', (event) => {
            const isStill = pressed !== null &&
                Math.hypot(event.clientX - pressed.clientX, event.clientY - pressed.clientY) < 4;
            pressed = null;
            const movement = isStill ? this.scene.pick(event.offsetX, event.offsetY) : -1;
            if (movement >= 0) {
                this.choose(movement);
            }
        });
    }

    choose(movement) {
        this.chosen = Math.min(Math.max(movement, 0), this.path.count - 1);
        byId('slider').value = String(this.chosen + 1);
        byId('number').textContent = `${this.chosen + 1} of ${this.path.count}`;
        byId('slider').setAttribute('aria-valuetext',
            `${this.chosen + 1}: ${this.path.statementOf(this.chosen)}`);
        this.scene.moveTo(this.chosen);
        this.scene.draw();
        this.tellFacts();
        this.list.show(this.chosen);
    }

    step(count) { this.choose(this.chosen + count); }

    // The whole path takes some twenty seconds, however long it is.
    run(isRunning) {
        this.isRunning = isRunning;
        byId('play').setAttribute('aria-pressed', String(isRunning));
        if (!isRunning) {
            return;
        }
        if (this.chosen === this.path.count - 1) {
            this.choose(0);
        }
        const perSecond = Math.max(this.path.count / 20, 4);
        let begin = null;
        let from = this.chosen;
        const frame = (time) => {
            begin = begin === null ? time : begin;
            if (!this.isRunning) {
                return;
            }
            const wanted = from + Math.floor((time - begin) / 1000 * perSecond);
            if (wanted > this.chosen) {
                this.choose(wanted);
            }
            if (this.chosen === this.path.count - 1) {
                this.run(false);
            } else {
                requestAnimationFrame(frame);
            }
        };
        requestAnimationFrame(frame);
    }

    facts() {
        const {path, chosen} = this;
        const state = path.stateAt(chosen);
        const kind = ['rapid', 'straight at feed', 'arc'][path.kinds[chosen]];
        const unit = path.isInch ? 'in' : 'mm';
        const rows = [
            ['Tool', toolName(state.tool)],
            ['Position', `X ${path.numbersText(path.endOf(chosen).toArray())
                .replace(', ', '  Y ').replace(', ', '  Z ')} ${unit}`],
            ['Movement', `${kind}, ${(path.lengthOf(chosen) / path.unit).toFixed(3)} ${unit}`],
            ['Feed', path.feedText(state)],
            ['Spindle', path.spindleText(state)],
            ['Coolant', state.coolant],
            ['Statement', path.statementOf(chosen)],
            ['Line', String(path.lines[chosen])],
        ];
        if (path.isMultiAxis) {
            const axis = path.axisAt(chosen).toArray().map((value) => value.toFixed(5)).join('  ');
            rows.splice(2, 0, ['Tool axis', axis]);
        }
        if (state.side !== 'off') {
            rows.push(['Compensation', state.side]);
        }
        if (path.hasBlocks) {
            rows.push(['Block', path.blockAt(chosen)]);
        }
        return rows;
    }

    tellFacts() {
        const elements = this.facts().flatMap(([name, text]) => {
            const [term, value] = ['dt', 'dd'].map((tag) => document.createElement(tag));
            term.textContent = name;
            value.textContent = text;
            value.dataset.fact = name;
            return [term, value];
        });
        byId('facts').replaceChildren(...elements);
    }

    // Finds "70", "N70" or another part of a block behind the chosen one, and from the start again;
    // without blocks, the line of the source.
    find(text) {
        const movement = this.path.hasBlocks ? this.findBlock(text) : this.findLine(Number(text));
        byId('found').textContent = movement < 0 ? 'not found' : '';
        if (movement >= 0) {
            this.choose(movement);
        }
    }

    findBlock(text) {
        const {blockTexts, blocks, count} = this.path;
        const digits = /^[nN:]?0*(\d+)$/.exec(text);
        const number = digits && new RegExp(`^\\s*/?\\s*[nN:]0*${digits[1]}(?!\\d)`);
        const isWanted = (block) => number ? number.test(block)
            : block.toUpperCase().includes(text.toUpperCase());
        const from = blocks[this.chosen];
        for (let i = 0; text !== '' && i < blockTexts.length; ++i) {
            const block = (from + i) % blockTexts.length;
            if (isWanted(blockTexts[block])) {
                // A block that moves nothing stands for the movement behind it.
                const movement = blocks.findIndex((of) => of > block);
                return movement < 0 ? count - 1 : movement;
            }
        }
        return -1;
    }

    findLine(line) {
        return Number.isFinite(line) && line > 0 ? this.path.lines.findIndex((at) => at >= line) : -1;
    }

    key(event) {
        if (event.target.matches('input:not([type=range]):not([type=checkbox]), select') ||
            event.ctrlKey || event.altKey || event.metaKey) {
            return;
        }
        if (event.key === ',') {
            this.step(-1);
        } else if (event.key === '.') {
            this.step(1);
        } else if (event.key === ' ' && !event.target.matches('button, input, summary')) {
            this.run(!this.isRunning);
        } else {
            return;
        }
        event.preventDefault();
    }

    keyInPicture(event) {
        const {scene} = this;
        const move = event.shiftKey ? (x, y) => scene.pan(x, y)
            : (x, y) => scene.turn(-0.1 * x, -0.1 * y);
        const actions = {
            ArrowLeft: () => move(-1, 0), ArrowRight: () => move(1, 0),
            ArrowUp: () => move(0, 1), ArrowDown: () => move(0, -1),
            '+': () => scene.zoom(1.25), '=': () => scene.zoom(1.25), '-': () => scene.zoom(0.8),
            1: () => scene.look('top'), 2: () => scene.look('front'),
            3: () => scene.look('side'), 4: () => scene.look('isometric'), f: () => scene.fit(),
        };
        const action = event.ctrlKey || event.altKey || event.metaKey ? undefined
            : actions[event.key.length === 1 ? event.key.toLowerCase() : event.key];
        if (action !== undefined) {
            event.preventDefault();
            action();
        }
    }

    colourBy(colouring) {
        const {scene, path} = this;
        scene.colourBy(colouring);
        byId('colours').hidden = colouring === 'tool';
        byId('gradient').style.background = `linear-gradient(to right, ${kScaleColours})`;
        const unit = path.isInch ? 'in' : 'mm';
        const [low, high, name] = colouring === 'feed'
            ? [scene.lowestFeed, scene.highestFeed, 'feed']
            : [scene.lowest, scene.highest, unit];
        const text = (value) => `${Number((value / path.unit).toFixed(3))} ${name}`;
        byId('low').textContent = Number.isFinite(low) ? text(low) : '';
        byId('high').textContent = Number.isFinite(high) ? text(high) : '';
    }

    useTheme(isDark) {
        this.isDark = isDark;
        document.documentElement.dataset.theme = isDark ? 'dark' : 'light';
        byId('theme').setAttribute('aria-pressed', String(isDark));
        this.scene.renderer.setClearColor(isDark ? '#0d1117' : '#ffffff');
        this.scene.draw();
    }

    // The scale bar, of 1, 2 or 5 times a power of ten, and the names of the axes.
    tellScale() {
        const {scene, path} = this;
        const pixels = scene.pixelsPerMillimetre() * path.unit;
        const power = 10 ** Math.floor(Math.log10(160 / pixels));
        const length = [5, 2, 1].find((factor) => factor * power * pixels <= 160) * power;
        const text = `${Number(length.toPrecision(1))} ${path.isInch ? 'in' : 'mm'}`;
        byId('scale').style.width = `${length * pixels}px`;
        byId('scale').setAttribute('aria-label', `Scale: the bar is ${text} long`);
        byId('scaleText').textContent = text;
        for (const [name, i] of [['axisX', 0], ['axisY', 1], ['axisZ', 2]]) {
            const place = scene.project(new THREE.Vector3().setComponent(i, scene.size / 5.5));
            byId(name).style.transform = `translate(${place.x - 5}px, ${place.y - 10}px)`;
            byId(name).hidden = !scene.axes.visible;
        }
    }

    tellDrawn() {
        const {scene} = this;
        if (scene.pass === 1) {
            this.tellScale();
        }
        const part = Math.floor(100 * scene.pass / scene.passes);
        byId('drawing').hidden = scene.isWhole;
        byId('drawing').textContent = scene.isWhole ? ''
            : `Still being drawn: ${part} % of the path`;
        if (this.firstPicture === undefined) {
            this.firstPicture = this.timeOfPicture();
        }
        if (scene.isWhole && this.wholePicture === undefined) {
            this.wholePicture = this.timeOfPicture();
        }
    }

    // Behind #timed the page waits for what it asked for, which browsers may warn of.
    timeOfPicture() {
        if (location.hash === '#timed') {
            this.scene.waitForPicture();
        }
        return performance.now();
    }
}

// The data are read once and then given back. Programs find the page as quillmarkPage.
async function openPage() {
    const take = (id) => {
        const text = byId(id).textContent;
        byId(id).remove();
        return text;
    };
    const bytes = new Uint8Array(await unpack(take('path')).arrayBuffer());
    const page = new Page(new PathData(bytes, take('source').trim()));
    window.quillmarkPage = page;
    if (page.path.hasBlocks) {
        page.path.unpackBlocks(take('blocks')).then(() => page.tellFacts());
    }
}

openPage();
