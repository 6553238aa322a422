// Red lines, and what is offered for a word.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

function marked(editor: EditorPage): Promise<string[]> {
  return editor.page.evaluate(() =>
    [...(CSS.highlights.get("misspelt") ?? [])].map(range => (range as globalThis.Range).toString()),
  );
}

async function waitForMarks(editor: EditorPage, wanted: string[]): Promise<void> {
  for (let i = 0; i < 100 && (await marked(editor)).join() !== wanted.join(); ++i)
    await editor.page.waitForTimeout(100);
  assert.deepEqual(await marked(editor), wanted);
}

test("misspelt words are marked once they are written, and give way to a suggestion", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("The wrold is large, its colour grey, see wrold.example. thisword");
  await waitForMarks(editor, ["wrold"]);
  await editor.key("F7", "Shift+F10");
  await editor.page.waitForSelector(".ui-menu >> text='world'");
  await editor.page.click(".ui-menu >> text='world'");
  assert.match(await editor.flow(), /The world is large/);
  await editor.key("Control+End");
  await editor.type(" ");
  await waitForMarks(editor, ["thisword"]);
  await editor.key("F7", "Shift+F10");
  await editor.page.click(".ui-menu >> text=Ignore");
  await waitForMarks(editor, []);
});

test("a German compound is right, in German", async t => {
  const editor = await openEditor(t, "de-DE");
  await editor.blank();
  await editor.type("Der Rechnungsbetrag für die Straßenbeleuchtung ist zu groß und fählig. ");
  await waitForMarks(editor, ["fählig"]);
});
