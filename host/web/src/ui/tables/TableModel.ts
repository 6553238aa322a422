// The cells of a table in their columns and rows, and where they stand in the text.

import type { Editor } from "../Editor.ts";
import { DrawnKind } from "../../library/Drawn.ts";
import { attributeOf, drawn, type Range } from "../markup.ts";

export interface Cell extends Range {
  /** Where the content begins, behind the start tag. */
  inside: number;
  row: number;
  column: number;
  rows: number;
  columns: number;
}

export interface Row extends Range {
  /** The start of the row group that it stands in. */
  group: number;
}

const groups = new Set(["fo:table-header", "fo:table-body", "fo:table-footer"]);

export class TableModel {
  readonly cells: Cell[] = [];
  readonly rows: Row[] = [];
  columns = 0;
  end: number;

  private readonly covered = new Set<string>();

  constructor(
    private readonly editor: Editor,
    readonly start: number,
  ) {
    this.end = start;
    let depth = 0; // of tables within cells
    let group = -1;
    for (const piece of drawn(editor, start)) {
      const { kind, text: name } = piece;
      if (name === "fo:table" && kind === DrawnKind.Start) ++depth;
      if (name === "fo:table" && kind === DrawnKind.End && --depth === 0) {
        this.end = piece.end;
        return;
      }
      if (depth !== 1) continue;
      if (groups.has(name) && kind === DrawnKind.Start) group = piece.start;
      if (name === "fo:table-row") this.takeRow(piece, kind, group);
      if (name === "fo:table-cell") this.takeCell(piece, kind);
    }
  }

  /** The cell that takes a column and row. */
  cellAt(row: number, column: number): Cell | undefined {
    return this.cells.find(
      cell =>
        row >= cell.row && row < cell.row + cell.rows && column >= cell.column && column < cell.column + cell.columns,
    );
  }

  cellAround(offset: number): Cell | undefined {
    return this.cells.find(cell => offset >= cell.start && offset < cell.end);
  }

  private takeRow(piece: Range, kind: DrawnKind, group: number): void {
    if (kind === DrawnKind.Start) this.rows.push({ start: piece.start, end: piece.end, group });
    else this.rows[this.rows.length - 1]!.end = piece.end;
  }

  private takeCell(piece: Range, kind: DrawnKind): void {
    if (kind === DrawnKind.End) {
      this.cells[this.cells.length - 1]!.end = piece.end;
      return;
    }
    const tag = this.editor.call<string>("getContent", piece.start, piece.end);
    const span = (name: string): number => Math.max(1, Number(attributeOf(tag, name) ?? 1) || 1);
    const cell: Cell = {
      start: piece.start,
      end: piece.end,
      inside: piece.end,
      row: this.rows.length - 1,
      column: 0,
      rows: span("number-rows-spanned"),
      columns: span("number-columns-spanned"),
    };
    while (this.covered.has(`${cell.row} ${cell.column}`)) ++cell.column;
    for (let row = 0; row < cell.rows; ++row)
      for (let column = 0; column < cell.columns; ++column)
        this.covered.add(`${cell.row + row} ${cell.column + column}`);
    this.columns = Math.max(this.columns, cell.column + cell.columns);
    this.cells.push(cell);
  }
}

/** Columns and rows from the first up to the last, both included. */
export interface Area {
  top: number;
  left: number;
  bottom: number;
  right: number;
}

/** The smallest rectangle that holds two cells and cuts none. */
export function areaOf(table: TableModel, one: Cell, other: Cell): Area {
  const area: Area = { top: Infinity, left: Infinity, bottom: -1, right: -1 };
  const takeIn = (cell: Cell): void => {
    area.top = Math.min(area.top, cell.row);
    area.left = Math.min(area.left, cell.column);
    area.bottom = Math.max(area.bottom, cell.row + cell.rows - 1);
    area.right = Math.max(area.right, cell.column + cell.columns - 1);
  };
  takeIn(one);
  takeIn(other);
  for (let before = ""; before !== JSON.stringify(area);) {
    before = JSON.stringify(area);
    cellsIn(table, area).forEach(takeIn);
  }
  return area;
}

/** All cells of which a part lies in the area. */
export function cellsIn(table: TableModel, area: Area): Cell[] {
  return table.cells.filter(
    cell =>
      cell.row <= area.bottom &&
      cell.row + cell.rows > area.top &&
      cell.column <= area.right &&
      cell.column + cell.columns > area.left,
  );
}
