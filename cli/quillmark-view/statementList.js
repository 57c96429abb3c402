'use strict';

const kRowHeight = 22;
const kTallest = 8e6; // pixels, that every browser can scroll

// The statements that move the tool, and what happens between them. Only the rows in sight are
// elements of the page.
class StatementList {
    constructor(element, path, onChoose) {
        this.element = element;
        this.path = path;
        this.onChoose = onChoose;
        this.rows = path.count + path.events.length;
        this.chosen = -1;
        this.height = Math.min(this.rows * kRowHeight, kTallest);
        this.inner = document.createElement('div');
        this.inner.className = 'rows';
        this.inner.style.height = `${this.height}px`;
        this.inner.setAttribute('role', 'presentation');
        element.append(this.inner);
        element.addEventListener('scroll', () => this.fill());
        element.addEventListener('click', (event) => this.click(event));
        element.addEventListener('keydown', (event) => this.key(event));
    }

    // How many events stand in front of a movement.
    eventsBefore(movement) {
        let low = 0;
        let high = this.path.events.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.path.events[middle].movement <= movement) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    rowOf(movement) { return movement + this.eventsBefore(movement); }

    // A movement, or an event with the movement behind it.
    at(row) {
        let low = 0;
        let high = this.path.count;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.rowOf(middle) < row) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        if (low < this.path.count && this.rowOf(low) === row) {
            return {movement: low, event: null};
        }
        return {movement: Math.min(low, this.path.count - 1), event: this.path.events[row - low]};
    }

    // What the first row in sight is, and how the scroll bar stands for it.
    visibleRows() { return Math.max(1, Math.floor(this.element.clientHeight / kRowHeight)); }

    firstRow() {
        const way = this.height - this.element.clientHeight;
        const part = way > 0 ? this.element.scrollTop / way : 0;
        return Math.round(Math.min(part, 1) * Math.max(0, this.rows - this.visibleRows()));
    }

    show(movement) {
        this.chosen = this.rowOf(movement);
        const first = this.firstRow();
        if (this.chosen < first || this.chosen >= first + this.visibleRows()) {
            const most = Math.max(1, this.rows - this.visibleRows());
            const wanted = Math.min(Math.max(this.chosen - (this.visibleRows() >> 1), 0), most);
            this.element.scrollTop = wanted / most * (this.height - this.element.clientHeight);
        }
        this.fill();
    }

    fill() {
        const first = this.firstRow();
        const rows = document.createDocumentFragment();
        for (let k = 0; k <= this.visibleRows() && first + k < this.rows; ++k) {
            rows.append(this.rowElement(first + k, k));
        }
        this.inner.replaceChildren(rows);
        const isVisible = this.inner.querySelector('.chosen') !== null;
        if (isVisible) {
            this.element.setAttribute('aria-activedescendant', `row${this.chosen}`);
        } else {
            this.element.removeAttribute('aria-activedescendant');
        }
    }

    rowElement(row, place) {
        const {movement, event} = this.at(row);
        const element = document.createElement('div');
        element.id = `row${row}`;
        element.className = row === this.chosen ? 'row chosen' : 'row';
        element.style.top = `${this.element.scrollTop + place * kRowHeight}px`;
        element.setAttribute('role', 'option');
        element.setAttribute('aria-selected', String(row === this.chosen));
        element.setAttribute('aria-setsize', String(this.rows));
        element.setAttribute('aria-posinset', String(row + 1));
        element.dataset.row = String(row);
        const line = document.createElement('span');
        line.className = 'line';
        line.textContent = String(event ? event.line : this.path.lines[movement]);
        const text = event ? this.path.eventText(event) : this.path.statementOf(movement);
        element.append(line, text);
        return element;
    }

    click(event) {
        const row = event.target.closest('.row');
        if (row !== null) {
            this.onChoose(this.at(Number(row.dataset.row)).movement);
        }
    }

    key(event) {
        const steps = {ArrowDown: 1, ArrowUp: -1, PageDown: this.visibleRows(),
            PageUp: -this.visibleRows(), Home: -this.rows, End: this.rows};
        const step = steps[event.key];
        if (step === undefined) {
            return;
        }
        event.preventDefault();
        event.stopPropagation();
        let row = Math.min(Math.max(this.chosen + step, 0), this.rows - 1);
        while (row > 0 && row < this.rows - 1 && this.at(row).event !== null) {
            row += Math.sign(step);
        }
        this.onChoose(this.at(row).movement);
    }
}
