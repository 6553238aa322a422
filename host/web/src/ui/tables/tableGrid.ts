// The size of a new table, picked on a grid of cells.

import { text } from "../../texts/texts.ts";
import type { Editor } from "../Editor.ts";
import { h } from "../elements.ts";
import { moveInGrid } from "../palette.ts";
import { insertTable } from "./tables.ts";

const width = 8;
const height = 8;

export function tableGrid(editor: Editor, close: () => void): HTMLElement {
  const label = h("div", { class: "ui-grid-label", "aria-live": "polite" });
  const cells: HTMLElement[] = [];
  const show = (columns: number, rows: number): void => {
    label.textContent = sizeOf(columns, rows);
    cells.forEach((cell, i) => cell.classList.toggle("ui-on", i % width < columns && Math.floor(i / width) < rows));
  };
  for (let i = 0; i < width * height; ++i) {
    const [columns, rows] = [(i % width) + 1, Math.floor(i / width) + 1];
    cells.push(
      h("button", {
        class: "ui-grid-cell",
        role: "menuitem",
        "aria-label": sizeOf(columns, rows),
        onpointerenter: () => show(columns, rows),
        onfocus: () => show(columns, rows),
        onclick() {
          close();
          insertTable(editor, rows, columns, false);
        },
      }),
    );
  }
  show(1, 1);
  const grid = h("div", { class: "ui-grid" }, ...cells);
  grid.addEventListener("keydown", event => moveInGrid(event, grid, width));
  return h("div", { class: "ui-grid-panel" }, grid, label);
}

function sizeOf(columns: number, rows: number): string {
  return text("table.size", { columns, rows });
}
