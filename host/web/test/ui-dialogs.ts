// The interface by keyboard alone, and in German.

import assert from "node:assert/strict";
import test from "node:test";

import { openEditor } from "./EditorPage.ts";

test("the page is set up without a mouse, and the focus comes back to the text", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.key("F10", "ArrowDown", "ArrowUp", "ArrowUp", "Enter"); // File, above the last item
  assert.equal(await editor.page.textContent("dialog h2"), "Page setup");
  await editor.type("A5");
  await editor.key("Tab");
  await editor.type("L");
  await editor.key("Tab", "Tab", "Tab");
  await editor.type("a lot");
  await editor.key("Enter");
  assert.equal(await editor.page.locator("dialog").count(), 1); // what is no length is not taken
  await editor.key("Control+a");
  await editor.type("1.5cm");
  await editor.key("Enter");
  await editor.page.waitForSelector("dialog", { state: "detached" });
  await editor.settle();
  assert.match(await editor.text(), /page-width="210mm" page-height="148mm"[^>]*"1.5cm /);
  await editor.type("typed");
  assert.equal(await editor.flow(), "<fo:block>typed</fo:block>");
  await editor.key("Shift+F10");
  assert.equal(await editor.page.getAttribute(":focus", "role"), "menuitem");
  await editor.key("Escape");
  await editor.type("!");
  assert.equal(await editor.flow(), "<fo:block>typed!</fo:block>");
});

test("all is said in German, and in English as soon as that is chosen", async t => {
  const editor = await openEditor(t, "de-DE");
  assert.equal(await editor.page.getAttribute("[data-command=bold]", "aria-label"), "Fett");
  await editor.key("F1");
  assert.match((await editor.page.textContent("dialog"))!, /Rückgängig\s*Strg\+Z/);
  await editor.key("Escape");
  await editor.page.click("text='Ansicht'");
  await editor.page.click("text='Sprache der Oberfläche'");
  await editor.page.click("text='English'");
  assert.equal(await editor.page.getAttribute("[data-command=bold]", "aria-label"), "Bold");
  assert.equal(await editor.page.evaluate(() => document.documentElement.lang), "en");
});

test("changes are not lost without a question, and what is saved is opened again", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("Kept ä€");
  const text = await editor.text();
  await editor.press("open");
  assert.equal(await editor.page.textContent("dialog h2"), "Unsaved changes");
  await editor.key("Escape");
  const [download] = await Promise.all([editor.page.waitForEvent("download"), editor.key("Control+s")]);
  await editor.blank();
  const [chooser] = await Promise.all([editor.page.waitForEvent("filechooser"), editor.press("open")]);
  await chooser.setFiles(await download.path());
  await editor.page.waitForFunction(() => window.forme.document.call<string>("getContent").includes("Kept"));
  assert.equal(await editor.text(), text);
});

test("what a closed window had not saved comes back", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("Almost lost");
  const text = await editor.text();
  await editor.page.waitForTimeout(4000); // it is kept when nothing was typed for a while
  await editor.page.close({ runBeforeUnload: false });
  const again = await editor.reopened();
  await again.page.click("dialog >> text=Restore");
  await again.page.waitForFunction(() => window.forme.document.call<string>("getContent").includes("Almost lost"));
  assert.equal(await again.text(), text);
});

test("who opens a menu or a box by mouse goes on typing where the caret was", async t => {
  const editor = await openEditor(t);
  await editor.blank();
  await editor.type("a");
  await editor.page.click("text='Insert'");
  await editor.page.click("text='Special character'");
  await editor.page.click(".ui-symbols >> text=€");
  await editor.type("b");
  await editor.menu("Format", "paragraph");
  await editor.page.fill("dialog [name=text-indent]", "1 cm");
  await editor.page.click("dialog >> text='OK'");
  await editor.page.waitForSelector("dialog", { state: "detached" });
  await editor.type("c");
  await editor.page.selectOption(".ui-size", "14");
  await editor.type("d");
  await editor.page.click("[aria-label='Zoom in']");
  await editor.page.click(".ui-title");
  await editor.type("e");
  assert.equal(
    await editor.flow(),
    '<fo:block text-indent="1cm">a€bc<fo:inline font-size="14pt">de</fo:inline></fo:block>',
  );
});
