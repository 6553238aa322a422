// Lists of several paragraphs, and items that go in and out.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

/** The flow with lists as `{1)one 2)two}`. */
async function outline(editor: EditorPage): Promise<string> {
  return (await editor.flow())
    .replace(/<fo:list-item-label[^>]*><fo:block[^>]*>(.*?)<\/fo:block><\/fo:list-item-label>/g, " $1")
    .replace(/<fo:list-block>/g, "{")
    .replace(/<\/fo:list-block>/g, "}")
    .replace(/<[^>]*>/g, "")
    .replace(/\{ /g, "{");
}

test("paragraphs become a list, and items go in, out and away", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("one");
  for (const text of ["two", "three"]) {
    await editor.key("Enter");
    await editor.type(text);
  }
  const typed = await editor.text();
  await editor.selectAll();
  await editor.press("numbers");
  assert.equal(await outline(editor), "{1)one 2)two 3)three}");
  assert.equal(await editor.pressed("numbers"), "true");
  await editor.key("ArrowRight");
  await editor.press("indent");
  assert.equal(await outline(editor), "{1)one 2)two{1)three}}");
  await editor.key("Enter");
  await editor.type("four");
  await editor.press("outdent");
  assert.equal(await outline(editor), "{1)one 2)two{1)three} 3)four}");
  await editor.press("outdent");
  await editor.type("!");
  assert.equal(await outline(editor), "{1)one 2)two{1)three}}four!");
  for (let i = 0; i < 8 && (await editor.text()) !== typed; ++i) await editor.key("Control+z");
  assert.equal(await editor.text(), typed);
});
