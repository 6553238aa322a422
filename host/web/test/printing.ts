// What is printed is the document: its text, on pages of its own size.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";

import { openEditor } from "./EditorPage.ts";

const withoutBlanks = (text: string) => text.replace(/[\s\u200b]+/g, "");

for (const [title, pages, size] of [
  ["Letter", 1, 595],
  ["Annual report", 4, 595],
  ["Manual", 2, 420],
] as const)
  test(`the PDF of the sample "${title}" has its text`, async context => {
    const editor = await openEditor(context);
    await editor.sample(title);
    await editor.page.waitForFunction(count => window.forme.view.pageCount === count, pages);
    const shown = await editor.page.evaluate(async () => {
      window.forme.view.showAllPages();
      return [...document.querySelectorAll(".page")].map(page => (page as HTMLElement).innerText).join("\n");
    });
    const file = join(mkdtempSync(join(tmpdir(), "forme-")), "printed.pdf");
    await editor.page.pdf({ path: file, preferCSSPageSize: true, printBackground: true });
    const printed = execFileSync("pdftotext", ["-raw", file, "-"], { encoding: "utf8" });
    assert.equal(withoutBlanks(printed), withoutBlanks(shown));
    const info = execFileSync("pdfinfo", [file], { encoding: "utf8" });
    assert.equal(Number(info.match(/Pages:\s+(\d+)/)?.[1]), pages);
    const width = Number(info.match(/Page size:\s+([\d.]+)/)?.[1]);
    assert.ok(Math.abs(width - size) < 1, info);
  });
