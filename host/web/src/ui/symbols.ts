// Characters that keyboards lack.

import { moveInGrid } from "./palette.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";

const symbols = [
  ..."–—…·•†‡§¶©®™°′″‰",
  ..."«»‹›„“”‚‘’¡¿€£¥¢",
  ..."±×÷≈≠≤≥∞√∑∏∫µΩ∂∆",
  ..."½⅓⅔¼¾⅛¹²³←→↑↓↔⇒⇔",
  ..."ÄÖÜäöüßéèêàâçñåø",
  ..."æœŁłŠšŽžČčĐđİıŞş",
  ..."αβγδεθλμπρσφψω✓✗",
];
const width = 16;

export function symbolGrid(editor: Editor, close: () => void): HTMLElement {
  const grid = h(
    "div",
    { class: "ui-symbols" },
    ...symbols.map(symbol =>
      h(
        "button",
        {
          role: "menuitem",
          onclick() {
            close();
            editor.call("insertText", symbol, false, false);
          },
        },
        symbol,
      ),
    ),
  );
  grid.addEventListener("keydown", event => moveInGrid(event, grid, width));
  return grid;
}
