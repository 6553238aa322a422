// Rows, columns and cells of the table around the caret.

import { text, type TextKey } from "../../texts/texts.ts";
import type { Command } from "../Command.ts";
import { tell } from "../Dialog.ts";
import { openTableProperties } from "../dialogs/tableProperties.ts";
import type { Editor } from "../Editor.ts";
import type { IconName } from "../icons.ts";
import { canMerge, mergeCells, selectedArea, splitCell, tableAtCaret } from "../tables/mergeCells.ts";
import { hasHeader, toggleHeader } from "../tables/headerRow.ts";
import { deleteTable, Edge, equalColumns, hasBorder, onTable, toggleBorder } from "../tables/tables.ts";

const isInTable = (editor: Editor): boolean => editor.state.isInTable;

function isInMergedCell(editor: Editor): boolean {
  if (!isInTable(editor)) return false;
  const cell = editor.properties("fo:table-cell");
  return cell.has("fo:number-columns-spanned") || cell.has("fo:number-rows-spanned");
}

type Simple = [id: string, text: TextKey, icon: IconName | undefined, request: string, ...args: unknown[]];

const simple: Simple[] = [
  ["rowAbove", "table.rowAbove", "rowAbove", "insertRow", true],
  ["rowBelow", "table.rowBelow", "rowBelow", "insertRow", false],
  ["columnBefore", "table.columnBefore", "columnBefore", "insertColumn", false],
  ["columnAfter", "table.columnAfter", "columnAfter", "insertColumn", true],
  ["footerRow", "table.footerRow", undefined, "insertFooterRow"],
];

const edges: [id: string, text: TextKey, edge: Edge][] = [
  ["bordersAll", "table.bordersAll", Edge.All],
  ["bordersNone", "table.bordersNone", Edge.None],
  ["borderTop", "table.borderTop", Edge.Top],
  ["borderBottom", "table.borderBottom", Edge.Bottom],
  ["borderLeft", "table.borderLeft", Edge.Left],
  ["borderRight", "table.borderRight", Edge.Right],
];

export const borderCommands: Command[] = edges.map(([id, label, edge]) => ({
  id,
  text: label,
  edits: true,
  isEnabled: isInTable,
  ...(edge < Edge.None && { pressed: (editor: Editor) => isInTable(editor) && hasBorder(editor, edge) }),
  run: editor => toggleBorder(editor, edge),
}));

export const tableCommands: Command[] = [
  ...simple.map(([id, label, iconName, request, ...args]): Command => ({
    id,
    text: label,
    ...(iconName && { icon: iconName }),
    edits: true,
    isEnabled: isInTable,
    run(editor) {
      onTable(editor, request, ...args);
      editor.say(text(label));
    },
  })),
  {
    id: "headerRow",
    text: "table.headerRow",
    edits: true,
    isEnabled: isInTable,
    pressed: editor => isInTable(editor) && hasHeader(editor),
    run: toggleHeader,
  },
  { id: "deleteRows", text: "table.deleteRows", icon: "deleteRow", edits: true, isEnabled: isInTable, run: deleteRows },
  {
    id: "deleteColumn",
    text: "table.deleteColumn",
    edits: true,
    isEnabled: isInTable,
    run: editor => onTable(editor, "deleteColumn"),
  },
  { id: "deleteTable", text: "table.deleteTable", edits: true, isEnabled: isInTable, run: deleteTable },
  { id: "selectTable", text: "table.selectTable", isEnabled: isInTable, run: editor => editor.call("selectTable", "") },
  {
    id: "merge",
    text: "table.merge",
    icon: "merge",
    edits: true,
    isEnabled: editor => isInTable(editor) && editor.state.hasSelection,
    run: merge,
  },
  { id: "split", text: "table.split", icon: "split", edits: true, isEnabled: isInMergedCell, run: split },
  { id: "equalColumns", text: "table.equalColumns", edits: true, isEnabled: isInTable, run: equalColumns },
  { id: "tableProperties", text: "table.properties", edits: true, isEnabled: isInTable, run: openTableProperties },
  ...borderCommands,
];

/** With its last row the table goes. */
function deleteRows(editor: Editor): void {
  editor.call("table.open", -1);
  editor.call("table.updateTableBuffer");
  if (editor.call<boolean>("table.allRowsSelected")) deleteTable(editor);
  else onTable(editor, "deleteRows", true);
}

function merge(editor: Editor): void {
  const table = tableAtCaret(editor);
  const area = table && selectedArea(editor, table);
  if (table && area && canMerge(table, area)) mergeCells(editor, table, area);
  else void tell("table.merge", text("table.cannotMerge"));
}

function split(editor: Editor): void {
  const table = tableAtCaret(editor);
  const cell = table?.cellAround(editor.document.caret);
  if (table && cell && cell.rows * cell.columns > 1) splitCell(editor, table, cell);
  else editor.sayRefused();
}
