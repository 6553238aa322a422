// Buttons and menus pressed at random, anywhere in documents: the text stays well formed, nothing
// fails, and undo brings every unit back.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

const anywhere = [
  "bold",
  "italic",
  "underline",
  "strike",
  "superscript",
  "clear",
  "alignCenter",
  "justify",
  "bullets",
  "numbers",
  "indent",
  "outdent",
  "undo",
  "redo",
];
const inTables = [
  "rowAbove",
  "rowBelow",
  "columnBefore",
  "columnAfter",
  "headerRow",
  "footerRow",
  "deleteRows",
  "deleteColumn",
  "merge",
  "split",
  "equalColumns",
];
const steps = 40;

function random(seed: number): (below: number) => number {
  return below => (seed = (seed * 48271) % 2147483647) % below;
}

/** Puts the caret somewhere, two times of three with a selection. */
async function goAnywhere(editor: EditorPage, next: (below: number) => number): Promise<void> {
  const { length } = await editor.text();
  const stop = (offset: number): Promise<number> => editor.call("getNearestStop", Math.min(offset, length - 1), 2);
  const from = next(length);
  await editor.call("setCaretPos", false, await stop(from));
  if (next(3)) await editor.call("setCaretPos", true, await stop(from + next(400)));
}

async function give(editor: EditorPage, command: string): Promise<void> {
  await editor.page.evaluate(id => {
    if (!document.querySelector(`.ui-toolbar [data-command="${id}"]`))
      document.querySelectorAll<HTMLElement>(".ui-menubar > button")[5]!.click(); // tables
    document.querySelector<HTMLElement>(`[data-command="${id}"]`)!.click();
    document.body.dispatchEvent(new PointerEvent("pointerdown", { bubbles: true })); // where it was grey
  }, command);
  await editor.settle();
  const dialog = editor.page.locator("dialog[open]");
  if (!(await dialog.count())) return;
  assert.match((await dialog.textContent())!, /cannot be merged/, command);
  await editor.key("Escape");
}

function fault(editor: EditorPage): Promise<string | undefined> {
  return editor.page.evaluate(() => {
    const text = window.forme.document.call<string>("getContent");
    const parsed = new DOMParser().parseFromString(text, "text/xml");
    return parsed.querySelector("parsererror")?.textContent ?? undefined;
  });
}

for (const [seed, sample] of ["Letter", "Invoice", "Price list", "Minutes", "Annual report"].entries())
  test(`random commands over "${sample}"`, async t => {
    const editor = await openEditor(t);
    await editor.sample(sample);
    const before = await editor.text();
    const next = random(seed + 3);
    const given: string[] = [];
    for (let i = 0; i < steps; ++i) {
      await goAnywhere(editor, next);
      const { isInTable } = await editor.call<{ isInTable: boolean }>("getEditingState");
      const choice = isInTable && next(2) ? inTables : anywhere;
      given.push(choice[next(choice.length)]!);
      await give(editor, given.at(-1)!);
      assert.equal(await fault(editor), undefined, given.join(" "));
    }
    while (await editor.call<boolean>("canUndo")) await editor.call("undo");
    assert.equal(await editor.text(), before, given.join(" "));
    assert.deepEqual(editor.faults, []);
  });
