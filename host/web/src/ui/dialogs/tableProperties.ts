// How the selected cells, their column and row look.

import { text } from "../../texts/texts.ts";
import { askFields, type Values } from "../Dialog.ts";
import type { Editor } from "../Editor.ts";
import { asLength } from "../lengths.ts";
import { insertTable, openTable } from "../tables/tables.ts";

const cells = 0; // of `getPropertyFromSelectedElements`
const all = 5; // edges

export async function openTableProperties(editor: Editor): Promise<void> {
  openTable(editor);
  const shown = read(editor);
  const values = await askFields("table.properties", [
    {
      fields: [
        { name: "background-color", label: "table.cellBackground", kind: "color", value: shown["background-color"]! },
        { name: "padding", label: "table.cellPadding", kind: "length", value: shown["padding"]! },
        {
          name: "display-align",
          label: "table.cellAlign",
          kind: "select",
          value: shown["display-align"]!,
          options: [
            ["", "–"],
            ["before", text("table.alignTop")],
            ["center", text("table.alignMiddle")],
            ["after", text("table.alignBottom")],
          ],
        },
      ],
    },
    {
      legend: "menu.borders",
      fields: [
        { name: "border-width", label: "table.borderWidth", kind: "length", value: "" },
        { name: "border-color", label: "table.borderColor", kind: "color", value: "#808080" },
      ],
    },
    {
      fields: [
        { name: "column", label: "table.columnWidth", value: shown["column"]! },
        { name: "row", label: "table.rowHeight", kind: "length", value: shown["row"]! },
      ],
    },
  ]);
  if (values) editor.step(() => write(editor, shown, values));
}

function read(editor: Editor): Values {
  const property = (name: string): string => editor.call<string>("table.getPropertyFromSelectedElements", name, cells);
  return {
    "background-color": property("background-color"),
    padding: property("padding"),
    "display-align": property("display-align"),
    column: editor.call<string>("table.getCrtColumnWidth"),
    row: editor.call<string>("table.getCrtRowHeight"),
  };
}

function write(editor: Editor, shown: Values, values: Values): void {
  const changed = (name: string): boolean => values[name] !== shown[name];
  openTable(editor);
  // This one writes into the document at once, and what was not committed is lost.
  if (changed("row") && values["row"]) editor.call("table.setCrtRowHeight", values["row"]);
  const [set, removed] = [[] as [string, string][], [] as string[]];
  for (const name of ["background-color", "padding", "display-align"]) {
    if (!changed(name)) continue;
    if (values[name]) set.push([`fo:${name}`, values[name]]);
    else removed.push(`fo:${name}`);
  }
  if (set.length) editor.call("table.setPropertyToSelectedElements", set, false, cells);
  if (removed.length) editor.call("table.removePropertyFromSelectedElements", removed, false, cells);
  editor.call("table.commit");
  if (changed("column") && values["column"]) commitWidth(editor, values["column"]);
  if (values["border-width"]) {
    openTable(editor);
    const color = values["border-color"] || "#000000";
    editor.call("table.setBordersInfo", { width: values["border-width"], color, style: "" });
    editor.call("table.setBorderToSelectedCells", all);
    editor.call("table.commit");
  }
}

function commitWidth(editor: Editor, written: string): void {
  openTable(editor);
  const width = /^[\d.]+%$|^proportional/.test(written) ? written : asLength(written);
  if (width) editor.call("table.changeTableColWidth", width);
  editor.call("table.commit");
}

export async function openInsertTable(editor: Editor): Promise<void> {
  const values = await askFields("insert.table", [
    {
      fields: [
        { name: "columns", label: "table.columns", kind: "number", value: "3" },
        { name: "rows", label: "table.rows", kind: "number", value: "4" },
        { name: "header", label: "table.withHeader", kind: "check", value: "true" },
      ],
    },
  ]);
  if (!values) return;
  const count = (name: string): number => Math.min(200, Math.max(1, Math.round(Number(values[name]) || 1)));
  insertTable(editor, count("rows"), count("columns"), values["header"] === "true");
}
