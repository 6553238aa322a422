// What a person does with the text itself: keys, the mouse, the clipboard, undo, saving.

import assert from "node:assert/strict";
import { test } from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

const tagless = (markup: string) =>
  markup
    .replace(/<\/fo:block>/g, "\n")
    .replace(/<[^>]*>/g, "")
    .trim();

test("a letter is written from nothing, and all of it undone and redone", async context => {
  const editor = await openEditor(context);
  await editor.blank();
  const empty = await editor.text();
  await editor.type("Dear Ada,");
  await editor.key("Enter");
  await editor.type("the <mill> & the brook");
  await editor.key("Shift+Enter");
  await editor.type("are quiet");
  await editor.key("Control+ArrowLeft", "Control+Backspace");
  await editor.type("were ");
  await editor.key("Home", "Shift+End", "Control+c", "Control+End", "Enter", "Control+v");
  const written = tagless(await editor.flow());
  assert.equal(written, "Dear Ada,\nthe &lt;mill&gt; &amp; the brookwere quiet\nwere quiet");
  assert.equal(
    await editor.page.locator(".page").innerText(),
    "Dear Ada,\nthe <mill> & the brook\nwere quiet\nwere quiet",
  );
  const text = await editor.text();
  await editor.undoAll();
  assert.equal(await editor.text(), empty);
  while (await editor.call<boolean>("canRedo")) await editor.key("Control+y");
  assert.equal(await editor.text(), text);
  assert.deepEqual(editor.faults, []);
});

const cellOf = (editor: EditorPage, row: number) => editor.page.locator(`tbody tr:nth-child(${row + 1}) td`).first();

test("an invoice is filled in by Tab and extended, and the footer stays below", async context => {
  const editor = await openEditor(context);
  await editor.sample("Invoice");
  const before = await editor.text();
  await cellOf(editor, 3).click();
  await editor.type("4");
  await editor.key("Tab");
  await editor.type("Varnish");
  await editor.menu("Table", "rowBelow");
  await editor.key("Home");
  await cellOf(editor, 4).click();
  await editor.type("5");
  const rows = await editor.page.locator("tbody tr").allInnerTexts();
  assert.deepEqual(
    rows.slice(-2).map(row => row.replace(/[\s\u200b]+/g, " ").trim()),
    ["4 Varnish", "5"],
  );
  const footer = await editor.page.locator("tfoot").boundingBox();
  const last = await cellOf(editor, 4).boundingBox();
  assert.ok(footer!.y >= last!.y + last!.height - 1);
  await editor.undoAll();
  assert.equal(await editor.text(), before);
  assert.deepEqual(editor.faults, []);
});

test("a key draws only what it changed, and in a long document no more than in a letter", async context => {
  const editor = await openEditor(context);
  await editor.page.evaluate(async () => {
    const letter = await (await fetch("templates/letter.xml")).text();
    const start = letter.indexOf(">", letter.indexOf("<fo:flow")) + 1;
    const end = letter.indexOf("</fo:flow>");
    const long = letter.slice(0, start) + letter.slice(start, end).repeat(60) + letter.slice(end);
    window.forme.document.open(new TextEncoder().encode(long), "long.xml");
  });
  await editor.settle();
  await editor.page.waitForFunction(() => window.forme.view.pageCount > 20);
  await editor.select("You may bring a guest.");
  await editor.key("ArrowRight");
  const touched = await editor.page.evaluate(async () => {
    const touched: string[] = [];
    const observer = new MutationObserver(records => {
      for (const { target, type } of records) touched.push(`${type} ${target.textContent}`);
    });
    const page = document.querySelector(".pages")!;
    observer.observe(page, { subtree: true, characterData: true, childList: true });
    window.forme.document.call("insertText", "!", false, false);
    await new Promise(done => setTimeout(done, 100));
    observer.disconnect();
    return touched;
  });
  assert.deepEqual(touched, ["characterData You may bring a guest.!"]);
});

test("HTML of another program is pasted, and goes out again with its formats", async context => {
  const editor = await openEditor(context);
  await editor.blank();
  const out = await editor.page.evaluate(() => {
    const field = document.querySelector(".input")!;
    const fire = (type: string, data: DataTransfer) =>
      field.dispatchEvent(new ClipboardEvent(type, { clipboardData: data, cancelable: true }));
    const data = new DataTransfer();
    data.setData(
      "text/html",
      "<h2>Plan</h2><p>one <b>two</b></p><ul><li>three</ul><table><tr><td>4<td>5</table><script>6</script>",
    );
    data.setData("text/plain", "not this");
    fire("paste", data);
    window.forme.document.call("moveCaretHome", false);
    window.forme.document.call("moveCaretToEnd", true);
    const copied = new DataTransfer();
    fire("copy", copied);
    return { html: copied.getData("text/html"), native: copied.getData("text/x-forme") };
  });
  const flow = await editor.flow();
  assert.match(flow, /Plan<\/fo:block>/);
  assert.match(flow, /one <fo:inline[^>]*font-weight="bold"[^>]*>two</);
  assert.match(flow, /<fo:list-block.*three/);
  assert.match(flow, /<fo:table-cell.*4.*<fo:table-cell.*5/);
  assert.doesNotMatch(flow, /6|not this/);
  assert.match(out.html, /<(b|strong)[ >]|font-weight/);
  assert.match(out.native, /<fo:list-block/);
  assert.equal(await editor.page.locator(".page td").count(), 2);
});

test("an input method's text is underlined while it is made, and one step of undo", async context => {
  const editor = await openEditor(context);
  await editor.blank();
  const empty = await editor.text();
  const client = await editor.page.context().newCDPSession(editor.page);
  for (const text of ["に", "にほ", "日本"])
    await client.send("Input.imeSetComposition", { text, selectionStart: text.length, selectionEnd: text.length });
  assert.equal(await editor.page.evaluate(() => CSS.highlights.has("composition")), true);
  await client.send("Input.insertText", { text: "日本" });
  await editor.settle();
  assert.match(await editor.flow(), />日本</);
  assert.equal(await editor.page.evaluate(() => CSS.highlights.has("composition")), false);
  await editor.key("Control+z");
  assert.equal(await editor.text(), empty);
});

test("Up, Down, Home, End and the mouse go where the lines are", async context => {
  const editor = await openEditor(context);
  await editor.sample("Letter");
  const caret = () => editor.call<number>("getCaretPos");
  await editor.select("after two years");
  await editor.key("ArrowLeft");
  const first = await caret();
  await editor.key("ArrowDown", "Home");
  const second = await caret();
  await editor.key("ArrowUp");
  assert.equal(await caret(), first);
  await editor.key("End", "ArrowRight");
  assert.equal(await caret(), second);
  const word = editor.page.locator(".page >> text=delighted");
  await word.dblclick();
  assert.equal(await editor.call("getSelectionAs", 0), "delighted");
  await word.click({ clickCount: 3 });
  assert.match(await editor.call<string>("getSelectionAs", 0), /^after two years.*second a week\.\n$/);
});

test("selected text is dragged to another place in one step, and a click into it only clicks", async context => {
  const editor = await openEditor(context);
  await editor.sample("Letter");
  const before = await editor.text();
  const word = editor.page.locator(".page >> text=delighted");
  await word.dblclick();
  await word.hover();
  await editor.page.mouse.down();
  const target = (await editor.page.locator(".page >> text=Dear Ms Thackwray").boundingBox())!;
  await editor.page.mouse.move(target.x + 4, target.y + 8);
  await editor.page.mouse.move(target.x + 1, target.y + 8);
  await editor.page.mouse.up();
  await editor.settle();
  assert.match(await editor.flow(), />delightedDear Ms/);
  await editor.key("Control+z");
  assert.equal(await editor.text(), before);
  await word.dblclick();
  await editor.page.waitForTimeout(600); // or it would be a triple click
  await word.click();
  assert.equal(await editor.call("getSelectionAs", 0), "");
});

test("what was edited is saved, and read again it is the same, byte for byte", async context => {
  const editor = await openEditor(context);
  await editor.sample("Letter");
  await editor.type("Gruß €&");
  const same = await editor.page.evaluate(() => {
    const { document } = window.forme;
    const saved = document.save();
    document.open(saved, "again.xml");
    const again = document.save();
    return {
      bytes: saved.length,
      isSame: saved.every((byte, i) => byte === again[i]) && saved.length === again.length,
    };
  });
  assert.equal(same.isSame, true);
  assert.ok(same.bytes > 3000);
});
