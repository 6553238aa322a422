// Widths of columns, by dragging the edge between two of them.

import type { Editor } from "../Editor.ts";
import { h } from "../elements.ts";
import { around } from "../markup.ts";
import { lengthInMm, mm } from "../lengths.ts";
import { TableModel, type Cell } from "./TableModel.ts";

const reach = 4; // pixels on either side of an edge
const smallest = 12; // pixels

/** The edge behind a column. */
interface ColumnEdge {
  table: TableModel;
  column: number;
  x: number;
}

export class ColumnDrag {
  private readonly guide = h("div", { class: "ui-column-guide", hidden: true });

  constructor(private readonly editor: Editor) {
    document.body.append(this.guide);
    const { page } = editor;
    page.addEventListener("pointermove", event => this.onMove(event));
    page.addEventListener("pointerdown", event => this.onDown(event), true);
  }

  private onMove(event: PointerEvent): void {
    if (event.buttons) return;
    this.editor.page.classList.toggle("ui-on-edge", this.boxAt(event) !== null);
  }

  /** The cell, as it is drawn, of which the pointer is at the right edge. */
  private boxAt({ target, clientX, clientY }: PointerEvent): HTMLElement | null {
    if (this.editor.state.isProtected) return null;
    const cell = (target as Element).closest?.<HTMLElement>("td, th");
    if (!cell) return null;
    const box = cell.getBoundingClientRect();
    if (box.right - clientX <= reach) return cell;
    if (clientX - box.left > reach) return null;
    const left = document.elementFromPoint(box.left - reach, clientY)?.closest<HTMLElement>("td, th");
    return left?.closest("table") === cell.closest("table") ? (left ?? null) : null;
  }

  private onDown(event: PointerEvent): void {
    const cell = event.button === 0 && this.boxAt(event);
    const edge = cell && this.edgeOf(cell);
    if (!edge) return;
    event.preventDefault();
    event.stopPropagation();
    this.drag(edge, event);
  }

  private edgeOf(drawn: HTMLElement): ColumnEdge | null {
    const box = drawn.getBoundingClientRect();
    const offset = this.editor.view.offsetAt(box.left + box.width / 2, box.top + box.height / 2);
    const start = offset === null ? -1 : around(this.editor, "fo:table", offset);
    if (start < 0) return null;
    const table = new TableModel(this.editor, start);
    const cell = table.cellAround(offset!);
    const column = cell ? cell.column + cell.columns - 1 : -1;
    return cell && column < table.columns ? { table, column, x: box.right } : null;
  }

  private drag(edge: ColumnEdge, down: PointerEvent): void {
    const widths = this.drawnWidths(edge.table);
    const own = widths[edge.column];
    if (own === undefined) return;
    const next = widths[edge.column + 1] ?? Infinity;
    const { page } = this.editor;
    let moved = 0;
    const show = (event: PointerEvent): void => {
      moved = Math.max(smallest - own, Math.min(next - smallest, event.clientX - down.clientX));
      this.guide.style.left = `${edge.x + moved}px`;
    };
    const end = (event: PointerEvent): void => {
      page.removeEventListener("pointermove", show);
      page.removeEventListener("pointerup", end);
      page.removeEventListener("pointercancel", end);
      this.guide.hidden = true;
      if (event.type === "pointerup" && Math.abs(moved) >= 1) this.resize(edge, widths, moved);
    };
    page.setPointerCapture(down.pointerId);
    page.addEventListener("pointermove", show);
    page.addEventListener("pointerup", end);
    page.addEventListener("pointercancel", end);
    const box = page.getBoundingClientRect();
    Object.assign(this.guide.style, { top: `${box.top}px`, height: `${box.height}px` });
    this.guide.hidden = false;
    show(down);
  }

  /** In pixels; undefined for a column of which no cell is drawn by itself. */
  private drawnWidths(table: TableModel): (number | undefined)[] {
    const widths: (number | undefined)[] = [];
    for (const cell of table.cells) {
      if (cell.columns > 1 || widths[cell.column] !== undefined) continue;
      widths[cell.column] = this.drawnWidth(cell);
    }
    return widths;
  }

  private drawnWidth(cell: Cell): number | undefined {
    return this.editor.view.elementAt(cell.start)?.getBoundingClientRect().width;
  }

  /** What one column gains the next one gives, so that the table stays as wide. */
  private resize({ table, column }: ColumnEdge, widths: (number | undefined)[], moved: number): void {
    const { editor } = this;
    editor.call("table.open", table.cells[0]!.inside);
    for (const [each, change] of [
      [column, moved],
      [column + 1, -moved],
    ] as const) {
      const width = widths[each];
      if (width === undefined || each >= table.columns) continue;
      const written = editor.call<string>("table.getColumnWidth", each);
      editor.call("table.setColumnWidth", each, scaled(written, width, width + change), false);
    }
    editor.call("table.commit");
    editor.view.focus();
  }
}

/** A width in the kind that it was written in: a share, a percentage or a length; shown ones are pixels. */
function scaled(written: string, from: number, to: number): string {
  const share = /^proportional-column-width\(([\d.]+)\)$/.exec(written);
  const percent = /^([\d.]+)%$/.exec(written);
  const round = (value: number): number => Math.round(value * 1000) / 1000;
  if (share) return `proportional-column-width(${round((Number(share[1]) * to) / from)})`;
  if (percent) return `${round((Number(percent[1]) * to) / from)}%`;
  return mm(((lengthInMm(written) ?? lengthInMm(`${from}px`)!) * to) / from);
}
