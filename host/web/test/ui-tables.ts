// A table from nothing, by keys and by mouse.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

/** The rows of the last table: a cell as its text, behind it its spans if it has any. */
async function rows(editor: EditorPage): Promise<string[]> {
  const rows = (await editor.flow()).split("<fo:table-row").slice(1);
  return rows.map(row =>
    row
      .split("<fo:table-cell")
      .slice(1)
      .map(cell => {
        const span = (name: string): string => new RegExp(`number-${name}-spanned="(\\d)"`).exec(cell)?.[1] ?? "1";
        const spans = `${span("columns")}x${span("rows")}`;
        const text = cell.replace(/^[^>]*>|<[^>]*>|&#x00A0;/g, "");
        return spans === "1x1" ? text : `${text}:${spans}`;
      })
      .join("|"),
  );
}

async function selectCells(editor: EditorPage, from: string, to: string): Promise<void> {
  const text = await editor.text();
  await editor.call("setCaretPos", false, text.indexOf(`>${from}<`) + 1);
  await editor.call("setCaretPos", true, text.indexOf(`>${to}<`) + 1);
  await editor.settle();
}

test("a table from the grid is filled, merged, split and extended", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  const before = await editor.text();
  await editor.page.focus(".ui-opener[aria-label=Table]");
  await editor.key("Enter", "ArrowRight", "ArrowRight", "ArrowDown", "ArrowDown", "Enter");
  for (const text of ["a", "b", "c", "d", "e", "f", "g", "h"]) {
    await editor.type(text);
    await editor.key("Tab");
  }
  await editor.type("i");
  assert.deepEqual(await rows(editor), ["a|b|c", "d|e|f", "g|h|i"]);

  await selectCells(editor, "a", "e");
  await editor.menu("Table", "merge");
  assert.deepEqual(await rows(editor), ["abde:2x2|c", "f", "g|h|i"]);
  await editor.menu("Table", "rowBelow");
  assert.equal((await rows(editor)).length, 4);
  await editor.key("Control+z");
  await editor.menu("Table", "split");
  assert.deepEqual(await rows(editor), ["abde||c", "|f".replace("|f", "||f"), "g|h|i"]);

  await selectCells(editor, "g", "g");
  await editor.menu("Table", "columnBefore");
  await editor.menu("Table", "deleteRows");
  assert.deepEqual(await rows(editor), ["|abde||c", "|||f"]);
  await editor.menu("Table", "headerRow");
  assert.match(
    await editor.flow(),
    /<fo:table-header><fo:table-row>.*>e<.*<\/fo:table-row><\/fo:table-header><fo:table-body><fo:table-row>/,
  );
  await editor.undoAll();
  assert.equal(await editor.text(), before);
  assert.deepEqual(editor.faults, []);
});

test("the edge of a column is dragged, and the table stays as wide", async t => {
  const editor = await openEditor(t);
  await editor.sample("Invoice");
  const cell = (await editor.page.locator("td:has-text('Counter in ash')").first().boundingBox())!;
  await editor.page.mouse.move(cell.x + cell.width - 1, cell.y + 6);
  await editor.page.mouse.down();
  await editor.page.mouse.move(cell.x + cell.width - 39, cell.y + 6, { steps: 4 });
  await editor.page.mouse.up();
  await editor.settle();
  const widths = [...(await editor.text()).matchAll(/<fo:table-column[^>]*column-width="([\d.]+)mm"/g)].map(each =>
    Number(each[1]),
  );
  assert.equal(widths.length, 5);
  assert.ok(Math.abs(widths[1]! - 78) < 1.5 && Math.abs(widths[2]! - 30) < 1.5, String(widths));
  assert.ok(Math.abs(widths.reduce((sum, each) => sum + each) - 170) < 0.5, String(widths));
});
