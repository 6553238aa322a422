// A table from nothing, and the commands of the table menu that the library carries out.

import type { Editor } from "../Editor.ts";
import { around, enter } from "../markup.ts";
import { TableModel } from "./TableModel.ts";

const cell = '<fo:table-cell border="0.5pt solid #808080" padding="1mm"><fo:block>&#x00A0;</fo:block></fo:table-cell>';
const headerCell = cell.replace("<fo:block>", '<fo:block font-weight="bold">');

/** At the caret; a paragraph with text is parted there. The caret goes into the first cell. */
export function insertTable(editor: Editor, rows: number, columns: number, hasHeader: boolean): void {
  const row = (each: string): string => `<fo:table-row>${each.repeat(columns)}</fo:table-row>`;
  const header = hasHeader
    ? `<fo:table-header>${row(headerCell).replace("<fo:table-row>", '<fo:table-row background-color="#e8ecf0">')}</fo:table-header>`
    : "";
  const markup =
    '<fo:table table-layout="fixed" width="100%" border-collapse="collapse">' +
    '<fo:table-column column-width="proportional-column-width(1)"/>'.repeat(columns) +
    header +
    `<fo:table-body>${row(cell).repeat(Math.max(1, rows - (hasHeader ? 1 : 0)))}</fo:table-body></fo:table>`;
  editor.step(() => {
    if (!editor.call<boolean>("pasteMarkup", markup)) return editor.sayRefused();
    editor.call("moveCaretLeft", false, false, true);
    const table = around(editor, "fo:table");
    if (table >= 0) enter(editor, new TableModel(editor, table).cells[0]!.start);
  });
}

/** Takes the table around the caret for questions, which are about the caret's cell. */
export function openTable(editor: Editor): void {
  editor.call("table.open", -1);
  editor.call("table.updateTableBuffer");
}

/** One command on the table around the caret, which is one undo step. */
export function onTable(editor: Editor, name: string, ...args: unknown[]): void {
  openTable(editor);
  editor.call(`table.${name}`, ...args);
  editor.call("table.commit");
}

export const enum Edge {
  Bottom = 0,
  Top = 1,
  Left = 2,
  Right = 3,
  None = 4,
  All = 5,
}

export interface Pen {
  width: string;
  color: string;
}

export function hasBorder(editor: Editor, edge: Edge): boolean {
  openTable(editor);
  return editor.call("table.selectedCellsHasBorder", edge);
}

/** Draws an edge of the selected cells, or takes it away where all of them have it. */
export function toggleBorder(editor: Editor, edge: Edge, pen: Pen = { width: "0.5pt", color: "#808080" }): void {
  openTable(editor);
  const hasIt = edge !== Edge.All && edge !== Edge.None && editor.call("table.selectedCellsHasBorder", edge);
  editor.call("table.setBordersInfo", { ...pen, style: "" });
  if (edge === Edge.None) editor.call("table.removeBorderFromSelectedCells", Edge.All);
  else if (hasIt) editor.call("table.removeBorderFromSelectedCells", edge);
  else editor.call("table.setBorderToSelectedCells", edge);
  editor.call("table.commit");
}

/** All columns are as wide as each other. */
export function equalColumns(editor: Editor): void {
  const table = around(editor, "fo:table");
  if (table < 0) return;
  openTable(editor);
  const count = editor.call<number>("table.getPhysicalColumnCount");
  for (let column = 0; column < count; ++column)
    editor.call("table.setColumnWidth", column, "proportional-column-width(1)", false);
  editor.call("table.commit");
}

export function deleteTable(editor: Editor): void {
  editor.step(() => {
    editor.call("selectTable", "");
    editor.call("erase", false, false);
  });
}
