// Pages after many small changes are those that the same text has when it is opened.

import assert from "node:assert/strict";
import { test } from "node:test";

import { openEditor, type EditorPage } from "./EditorPage.ts";

/** A sample with what its last flow holds several times. */
async function openRepeated(editor: EditorPage, file: string, times: number): Promise<void> {
  await editor.page.evaluate(
    async ([file, times]) => {
      const text = await (await fetch(`templates/${file}.xml`)).text();
      const start = text.indexOf(">", text.lastIndexOf("<fo:flow")) + 1;
      const end = text.lastIndexOf("</fo:flow>");
      const long = text.slice(0, start) + text.slice(start, end).repeat(times) + text.slice(end);
      window.forme.document.open(new TextEncoder().encode(long), "long.xml");
      window.forme.view.showAllPages();
    },
    [file, times] as const,
  );
}

for (const [file, times] of [
  ["letter", 8],
  ["invoice", 6],
  ["annual-report", 9],
  ["mailing", 2],
  ["minutes", 6],
] as const)
  test(`pages of "${file}" are the same however they came about`, async context => {
    const editor = await openEditor(context);
    await openRepeated(editor, file, times);
    for (let round = 0; round < 6; ++round) {
      const [grown, fresh] = await editor.page.evaluate(round => {
        const { document: doc, view } = window.forme;
        let seed = round * 7919 + 17;
        const random = (below: number) => (seed = (seed * 1103515245 + 12345) % 2147483648) % below;
        const first = doc.call<number>("getFirstPageGeneratorPos");
        const commands: (() => void)[] = [
          () => doc.call("insertText", "some more words to read ", false, false),
          () => doc.call("insertText", "x", false, false),
          () => doc.call("insertBreak", 5, false),
          () => doc.call("insertBreak", 2, false),
          () => doc.call("insertBreak", 0, false),
          () => doc.call("erase", false, false),
          () => doc.call("erase", true, true),
          () => doc.call("undo"),
          () => doc.call("undo"),
          () => doc.call("redo"),
        ];
        for (let i = 0; i < 12; ++i) {
          const offset = first + random(doc.call<string>("getContent").length - first);
          doc.call("setCaretPos", false, doc.call<number>("getNearestStop", offset, 2));
          for (let keys = random(4); keys >= 0; --keys) {
            commands[random(commands.length)]();
            view.flush();
          }
        }
        const shown = () => {
          view.showAllPages();
          return [...document.querySelectorAll(".page")].map(page => page.innerHTML.replaceAll(' style=""', ""));
        };
        const grown = shown();
        view.redrawAll();
        return [grown, shown()];
      }, round);
      assert.equal(grown.length, fresh.length, `pages in round ${round}`);
      grown.forEach((page, i) => {
        const at = [...page].findIndex((unit, k) => unit !== fresh[i][k]);
        if (page !== fresh[i])
          assert.fail(
            `page ${i + 1} in round ${round}: ${page.slice(at - 90, at + 90)} IS ${fresh[i].slice(at - 90, at + 90)}`,
          );
      });
    }
    assert.deepEqual(editor.faults, []);
  });

test("what crosses the end of a page is shown whole, and a table's header again", async context => {
  const editor = await openEditor(context);
  await editor.page.evaluate(async () => {
    const text = await (await fetch("templates/invoice.xml")).text();
    const body = text.indexOf("<fo:table-body>") + "<fo:table-body>".length;
    const end = text.indexOf("</fo:table-body>");
    const long = text.slice(0, end) + text.slice(body, end).repeat(20) + text.slice(end);
    window.forme.document.open(new TextEncoder().encode(long), "long.xml");
    window.forme.view.showAllPages();
  });
  const pages = await editor.page.evaluate(() =>
    [...document.querySelectorAll(".page")].map(page => {
      const seen = (element: Element) => {
        const cut = element.closest(".cut")!.getBoundingClientRect();
        const { top, bottom } = element.getBoundingClientRect();
        return top >= cut.top - 1 && bottom <= cut.bottom + 1;
      };
      const rows = [...page.querySelectorAll(".cut:not([aria-hidden]) tbody tr")];
      const headers = [...page.querySelectorAll("thead")].filter(seen).length;
      return { rows: rows.map((row, i) => (seen(row) ? i : -1)).filter(i => i >= 0), headers };
    }),
  );
  assert.ok(pages.length > 2);
  assert.deepEqual(
    pages.map(page => page.headers),
    pages.map(page => (page.rows.length > 0 ? 1 : 0)),
  );
  const all = pages.flatMap(page => page.rows);
  assert.deepEqual(
    all,
    all.map((_, i) => i),
  );
  assert.equal(all.length, 84);
});

test("every stop has a caret, and a click there leads back to it", async context => {
  const editor = await openEditor(context);
  for (const file of ["letter", "invoice", "minutes"]) {
    await openRepeated(editor, file, 1);
    await editor.settle();
    const lost = await editor.page.evaluate(() => {
      const { document: doc, view } = window.forme;
      const lost: string[] = [];
      doc.call("moveCaretHome", false);
      for (let before = -1; doc.caret !== before;) {
        before = doc.caret;
        view.scrollToCaret();
        const box = view.caret.box;
        const hit = box && view.offsetAt(box.left + 0.3, box.top + box.height / 2);
        const stop = hit === null ? null : doc.call<number>("getNearestStop", hit, 2);
        const again = stop === null ? null : view.positions.caretBox(stop);
        // Beside what stands in an item's body there is the item's label.
        const isBeside = /^<fo:(table|list-block)/.test(doc.call("getContent", before, before + 15));
        if (
          isBeside
            ? !box
            : !box || !again || Math.abs(again.left - box.left) > 1.5 || Math.abs(again.top - box.top) > box.height
        )
          lost.push(`${before} ${hit} ${stop} ${doc.call<string>("getContent", before - 20, before + 20)}`);
        doc.call("moveCaretRight", false, false, true);
      }
      return lost;
    });
    assert.deepEqual(lost, [], file);
  }
});
