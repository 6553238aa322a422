// Find and replace.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor } from "./EditorPage.ts";

test("text is found across formats, by case and by words, and replaced in one step", async t => {
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

test("what is known of the text follows each change of it", async t => {
  const editor = await openEditor(t);
  await editor.sample("Invoice");
  await editor.key("Control+f");
  await editor.type("e");
  await editor.page.check("text=Match case");
  const told = async (): Promise<number> => {
    await editor.page.fill("[aria-label=Find]", "?");
    await editor.page.fill("[aria-label=Find]", "e");
    return Number(/\d+$/.exec((await editor.page.textContent(".ui-find-status"))!)?.[0] ?? 0);
  };
  const drawn = (): Promise<number> =>
    editor.page.evaluate(() => {
      let count = 0;
      const { document } = window.forme;
      for (let from = document.call<number>("getFirstPageGeneratorPos"); ;) {
        const pieces = document.call<{ end: number; kind: number; text: string }[]>("getDrawn", from, 500);
        if (!pieces.length) return count;
        for (const piece of pieces) if (piece.kind === 3) count += piece.text.split("e").length - 1;
        from = pieces.at(-1)!.end;
      }
    });
  let seed = 7;
  const random = (below: number): number => (seed = (seed * 48271) % 2147483647) % below;
  const keys = [
    "e",
    "Enter",
    "Backspace",
    "Control+z",
    "Control+y",
    "Delete",
    "Control+Backspace",
    "Control+Enter",
    "x",
  ];
  for (let i = 0; i < 40; ++i) {
    const end = (await editor.text()).length;
    await editor.call("setCaretPos", false, await editor.call("getNearestStop", random(end), 2));
    await editor.page.evaluate(() => (window.forme as unknown as { view: { focus(): void } }).view.focus());
    for (let k = 0; k < 3; ++k) await editor.key(keys[random(keys.length)]!);
    assert.equal(await told(), await drawn(), `after ${i} places`);
  }
  assert.deepEqual(editor.faults, []);
});
