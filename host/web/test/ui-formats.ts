// Buttons of the toolbar: what they do, and what they show.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor } from "./EditorPage.ts";

test("a format is chosen for what is typed next, and mixed where both are selected", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  const before = await editor.text();
  await editor.type("plain again");
  for (let i = 0; i < 6; ++i) await editor.key("ArrowLeft");
  await editor.type(" ");
  await editor.key("Control+b");
  assert.equal(await editor.pressed("bold"), "true");
  await editor.type("bold");
  await editor.key("Control+b");
  await editor.type(",");
  const flow = (await editor.flow()).replace("&#x00A0;", " ");
  assert.equal(flow, '<fo:block>plain <fo:inline font-weight="bold">bold</fo:inline>, again</fo:block>');
  await editor.selectAll();
  assert.equal(await editor.pressed("bold"), "mixed");
  await editor.press("italic");
  assert.equal(await editor.pressed("italic"), "true");
  await editor.press("underline");
  await editor.press("strike");
  assert.equal(await editor.pressed("underline"), "true");
  await editor.press("underline");
  assert.deepEqual([await editor.pressed("underline"), await editor.pressed("strike")], ["false", "true"]);
  await editor.press("clear");
  assert.match(await editor.flow(), /^<fo:block>plain(?: |&#x00A0;)bold, again<\/fo:block>$/);
  await editor.undoAll();
  assert.equal(await editor.text(), before);
  assert.deepEqual(editor.faults, []);
});

test("a style comes and goes as a whole, and the caret stays", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("A heading");
  await editor.key("ArrowLeft");
  await editor.page.selectOption(".ui-style", "heading1");
  await editor.press("alignCenter");
  assert.match(await editor.flow(), /^<fo:block [^>]*role="H1"[^>]*>A heading<\/fo:block>$/);
  assert.match(await editor.flow(), /text-align="center"/);
  assert.equal(await editor.pressed("alignCenter"), "true");
  await editor.page.selectOption(".ui-style", "body");
  await editor.type("!");
  assert.equal(await editor.flow(), '<fo:block text-align="center">A headin!g</fo:block>');
  assert.equal(await editor.page.inputValue(".ui-style"), "body");
  await editor.page.selectOption(".ui-style", "title");
  await editor.key("End", "Enter");
  await editor.type("Below it");
  assert.match(await editor.flow(), /role="Title".*<fo:block text-align="center">Below it<\/fo:block>$/);
});
