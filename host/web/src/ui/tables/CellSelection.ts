// Shows which cells a selection takes that goes from one cell to another.

import type { Editor } from "../Editor.ts";
import { selectedArea, tableAtCaret } from "./mergeCells.ts";
import { cellsIn } from "./TableModel.ts";

const shownClass = "ui-selected-cell";

export class CellSelection {
  private shown: HTMLElement[] = [];

  constructor(private readonly editor: Editor) {
    editor.onState(() => this.update());
    editor.view.onDrawn(() => this.shown.length && this.update());
  }

  private update(): void {
    const cells = this.selected();
    for (const cell of this.shown) if (!cells.includes(cell)) cell.classList.remove(shownClass);
    for (const cell of cells) cell.classList.add(shownClass);
    this.shown = cells;
  }

  private selected(): HTMLElement[] {
    const { state, view } = this.editor;
    if (!state.isInTable || !state.hasSelection) return [];
    const table = tableAtCaret(this.editor);
    const area = table && selectedArea(this.editor, table);
    if (!table || !area) return [];
    return cellsIn(table, area)
      .map(cell => view.elementAt(cell.start))
      .filter((cell): cell is HTMLElement => cell !== null);
  }
}
