// Merges the cells of a rectangle into one, and takes one apart again.

import type { Editor } from "../Editor.ts";
import { around, enter, selection, setAttributes } from "../markup.ts";
import { areaOf, cellsIn, TableModel, type Area, type Cell } from "./TableModel.ts";

/** The table around the caret, as it stands in the text now. */
export function tableAtCaret(editor: Editor): TableModel | undefined {
  const start = around(editor, "fo:table");
  return start < 0 ? undefined : new TableModel(editor, start);
}

/** The rectangle of the cells that are selected; undefined where it is no more than one cell. */
export function selectedArea(editor: Editor, table: TableModel): Area | undefined {
  const { start, end } = selection(editor);
  const first = table.cellAround(start);
  const last = table.cellAround(end);
  return first && last && first !== last ? areaOf(table, first, last) : undefined;
}

export function canMerge(table: TableModel, area: Area): boolean {
  const groups = new Set(table.rows.slice(area.top, area.bottom + 1).map(row => row.group));
  return groups.size === 1 && cellsIn(table, area).length > 1;
}

/** One undo step. Empty cells leave nothing behind in the merged one. */
export function mergeCells(editor: Editor, table: TableModel, area: Area): void {
  const cells = cellsIn(table, area);
  const [first, ...others] = cells as [Cell, ...Cell[]];
  const contents = cells.map(cell => contentOf(editor, cell)).filter(each => !isEmpty(each));
  const content = contents.join("") || contentOf(editor, first);
  editor.step(() => {
    for (const range of goneRanges(table, area, others)) editor.call("deleteXmlText", range.start, range.end - 1);
    const end = first.end - "</fo:table-cell>".length;
    editor.call("replaceXmlText", first.inside, end - 1, content);
    setSpans(editor, first.start, spansOf(table, area));
    enter(editor, first.start);
  });
}

interface Spans {
  columns: number;
  rows: number;
}

/** Rows of which all cells are merged go, but for the first one. */
function spansOf(table: TableModel, area: Area): Spans {
  const columns = area.right - area.left + 1;
  return { columns, rows: columns === table.columns ? 1 : area.bottom - area.top + 1 };
}

/** What is deleted of the text, the last first. */
function goneRanges(table: TableModel, area: Area, cells: Cell[]): { start: number; end: number }[] {
  const ranges =
    spansOf(table, area).columns === table.columns
      ? [...cells.filter(cell => cell.row === area.top), ...table.rows.slice(area.top + 1, area.bottom + 1)]
      : cells;
  return [...ranges].sort((a, b) => b.start - a.start);
}

function contentOf(editor: Editor, cell: Cell): string {
  return editor.call("getContent", cell.inside, cell.end - "</fo:table-cell>".length);
}

function isEmpty(content: string): boolean {
  return content.replace(/<\/?fo:(block|inline)\b[^>]*>|&#x0*a0;|&#160;/gi, "").trim() === "";
}

function setSpans(editor: Editor, cell: number, spans: Spans): void {
  const written = (span: number): string | null => (span > 1 ? String(span) : null);
  setAttributes(editor, cell, {
    "number-columns-spanned": written(spans.columns),
    "number-rows-spanned": written(spans.rows),
  });
}

/** Takes a merged cell apart into empty cells that look like it; its content stays in the first. */
export function splitCell(editor: Editor, table: TableModel, cell: Cell): void {
  const tag = editor.call<string>("getContent", cell.start, cell.inside);
  const single = tag.replace(/\s(fo:)?number-(rows|columns)-spanned\s*=\s*("[^"]*"|'[^']*')/g, "");
  const added = `${single}<fo:block>&#x00A0;</fo:block></fo:table-cell>`;
  editor.step(() => {
    for (let row = cell.row + cell.rows - 1; row > cell.row; --row)
      editor.call("insertXmlTextAtPosition", placeIn(table, row, cell.column), added.repeat(cell.columns));
    if (cell.columns > 1) editor.call("insertXmlTextAtPosition", cell.end, added.repeat(cell.columns - 1));
    setSpans(editor, cell.start, { columns: 1, rows: 1 });
    enter(editor, cell.start);
  });
}

/** Where a cell of a column stands in the text of a row that has none there. */
function placeIn(table: TableModel, row: number, column: number): number {
  const next = table.cells.find(cell => cell.row === row && cell.column > column);
  return next ? next.start : table.rows[row]!.end - "</fo:table-row>".length;
}
