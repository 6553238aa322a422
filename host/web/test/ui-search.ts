// Find and replace.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor } from "./EditorPage.ts";

test("text is found across formats, by case and by words, and replaced in one step", async (t) => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("The theme & the");
  await editor.key("Control+b");
  await editor.type("n THE end");
  const before = await editor.text();
  const status = (): Promise<string | null> => editor.page.textContent(".ui-find-status");

  await editor.key("Control+Home", "Control+h");
  await editor.type("then");
  assert.equal(await status(), "1 of 1");
  assert.equal(await editor.call("getSelectionAsText"), "then");
  await editor.page.fill("[aria-label=Find]", "the");
  assert.equal(await status(), "3 of 4"); // the next from where it was
  await editor.page.check("text=Match case");
  assert.equal(await status(), "2 of 2");
  await editor.page.uncheck("text=Match case");
  await editor.page.check("text=Whole words");
  assert.equal(await editor.call("getSelectionAsText"), "THE");
  await editor.page.focus("[aria-label=Find]");
  await editor.key("Enter");
  assert.equal(await status(), "1 of 2");

  await editor.page.fill("[aria-label='Replace with']", "a < b");
  await editor.page.click("text='Replace all'");
  assert.equal(await status(), "2 replaced");
  assert.match(await editor.flow(), />a &lt; b theme &amp; the<.*>n a &lt; b end</);
  await editor.key("Escape", "Control+z");
  assert.equal(await editor.text(), before);
});
