// The first row as a header, which stands on every page that the table goes over.

import type { Editor } from "../Editor.ts";
import { elementRange, keepingSelection } from "../markup.ts";
import { tableAtCaret } from "./mergeCells.ts";
import type { TableModel } from "./TableModel.ts";

interface Group {
  name: string;
  start: number;
  end: number;
  inside: number;
}

export function hasHeader(editor: Editor): boolean {
  const table = tableAtCaret(editor);
  return table !== undefined && headerOf(editor, table) !== undefined;
}

/** The rows of a header become the first ones of the body, or else the first of these the header. */
export function toggleHeader(editor: Editor): void {
  const table = tableAtCaret(editor);
  if (!table) return;
  const header = headerOf(editor, table);
  const body = groupsOf(editor, table).find(group => group.name === "fo:table-body");
  if (!body) return editor.sayRefused();
  editor.step(() =>
    keepingSelection(editor, () => {
      if (header) headerToBody(editor, header, body);
      else firstRowToHeader(editor, table, body);
    }),
  );
}

function headerOf(editor: Editor, table: TableModel): Group | undefined {
  return groupsOf(editor, table).find(group => group.name === "fo:table-header");
}

function groupsOf(editor: Editor, table: TableModel): Group[] {
  const starts = [...new Set(table.rows.map(row => row.group))].filter(start => start >= 0);
  return starts.map(start => {
    const { end } = elementRange(editor, start);
    const tag = editor.call<string>("getContent", start, end).split(">")[0]!;
    return { name: /^<([^\s>]+)/.exec(tag)![1]!, start, end, inside: start + tag.length + 1 };
  });
}

function headerToBody(editor: Editor, header: Group, body: Group): void {
  const rows = editor.call<string>("getContent", header.inside, header.end - "</fo:table-header>".length);
  editor.call("insertXmlTextAtPosition", body.inside, rows);
  editor.call("deleteXmlText", header.start, header.end - 1);
}

/** Not the only row, and none that cells reach out of. */
function firstRowToHeader(editor: Editor, table: TableModel, body: Group): void {
  const index = table.rows.findIndex(each => each.group === body.start);
  const row = table.rows[index];
  const next = table.rows[index + 1];
  const reachesOut = table.cells.some(cell => cell.row === index && cell.rows > 1);
  if (!row || next?.group !== body.start || reachesOut) return editor.sayRefused();
  const markup = editor.call<string>("getContent", row.start, row.end);
  editor.call("deleteXmlText", row.start, row.end - 1);
  const first = Math.min(...table.rows.map(each => each.group));
  editor.call("insertXmlTextAtPosition", first, `<fo:table-header>${markup}</fo:table-header>`);
}
