// What is printed is the document: its text, on pages of its own size.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";

import { openEditor } from "./EditorPage.ts";

const words = (text: string) => text.split(/\s+/).filter((word) => word !== "");

for (const [title, pages, size] of [["Letter", 1, "594"], ["Annual report", 4, "594"], ["Manual", 2, "419"]] as const)
  test(`the PDF of the sample "${title}" has its text`, async (context) => {
    const editor = await openEditor(context);
    await editor.sample(title);
    const shown = await editor.page.evaluate(async () => {
      window.forme.view.showAllPages();
      return [...document.querySelectorAll(".page")].map((page) => (page as HTMLElement).innerText).join("\n");
    });
    const file = join(mkdtempSync(join(tmpdir(), "forme-")), "printed.pdf");
    await editor.page.pdf({ path: file, preferCSSPageSize: true, printBackground: true });
    const printed = execFileSync("pdftotext", ["-layout", file, "-"], { encoding: "utf8" });
    assert.deepEqual(words(printed).sort(), words(shown).sort());
    const info = execFileSync("pdfinfo", [file], { encoding: "utf8" });
    assert.equal(Number(info.match(/Pages:\s+(\d+)/)?.[1]), pages);
    assert.ok(info.includes(`Page size:       ${size}`), info);
  });
