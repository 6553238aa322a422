// The caret and the selection. Neither touches the elements of the pages.

import type { FormeDocument } from "../library/FormeDocument.ts";
import { zoomOf } from "./Measuring.ts";
import type { CaretBox, Positions } from "./Positions.ts";

const gapAtEdges = 24;

export class CaretDisplay {
  readonly #caret = document.createElement("div");
  readonly #selection = new Highlight();
  /** Whether the caret is drawn behind the last character of a line and not before the next one. */
  atLineEnd = false;
  isComposing = false;

  constructor(private readonly doc: FormeDocument, private readonly positions: Positions, private readonly pages: HTMLElement,
    private readonly scroller: HTMLElement) {
    this.#caret.className = "caret";
    pages.append(this.#caret);
    CSS.highlights.set("selection", this.#selection);
  }

  get box(): CaretBox | null {
    return this.positions.caretBox(this.doc.caret, this.atLineEnd);
  }

  draw(): void {
    const { caret, pivot } = this.doc;
    const box = caret < 0 ? null : this.box;
    this.#caret.hidden = box === null || caret !== pivot && !this.isComposing;
    if (box) {
      const origin = this.pages.getBoundingClientRect();
      const zoom = zoomOf(this.pages);
      this.#caret.style.cssText = `transform:translate(${(box.left - origin.left) / zoom}px,${(box.top - origin.top) / zoom}px);height:${box.height / zoom}px;`;
      this.#restartBlinking();
    }
    this.#drawSelection(Math.min(caret, pivot), Math.max(caret, pivot));
  }

  /** Draws a caret of its own where something that is dragged would drop; none for -1. */
  scrollIntoView(): void {
    const box = this.box;
    if (!box)
      return;
    const view = this.scroller.getBoundingClientRect();
    if (box.top < view.top + gapAtEdges)
      this.scroller.scrollTop += box.top - view.top - gapAtEdges;
    else if (box.top + box.height > view.bottom - gapAtEdges)
      this.scroller.scrollTop += box.top + box.height - view.bottom + gapAtEdges;
    if (box.left < view.left || box.left > view.right)
      this.scroller.scrollLeft += box.left - (view.left + view.right) / 2;
  }

  #drawSelection(start: number, end: number): void {
    this.#selection.clear();
    CSS.highlights.delete("composition");
    if (start === end)
      return;
    const ranges = this.positions.rangesOf(start, end);
    if (this.isComposing)
      CSS.highlights.set("composition", new Highlight(...ranges));
    else
      for (const range of ranges)
        this.#selection.add(range);
  }

  #restartBlinking(): void {
    this.#caret.classList.toggle("even");
  }
}
