// The caret and the selection. Neither touches the elements of the pages.

import type { FormeDocument } from "../library/FormeDocument.ts";
import { zoomOf } from "./Measuring.ts";
import type { CaretBox, Positions } from "./Positions.ts";

const gapAtEdges = 24;

export class CaretDisplay {
  readonly #caret = document.createElement("div");
  readonly #dropCaret = document.createElement("div");
  readonly #selection = new Highlight();
  /** Whether the caret is drawn behind the last character of a line and not before the next one. */
  atLineEnd = false;
  isComposing = false;

  constructor(
    private readonly doc: FormeDocument,
    private readonly positions: Positions,
    private readonly pages: HTMLElement,
    private readonly scroller: HTMLElement,
  ) {
    this.#caret.className = "caret";
    this.#dropCaret.className = "caret resting";
    this.#dropCaret.hidden = true;
    pages.append(this.#caret, this.#dropCaret);
    CSS.highlights.set("selection", this.#selection);
  }

  get box(): CaretBox | null {
    return this.positions.caretBox(this.doc.caret, this.atLineEnd);
  }

  draw(): void {
    const { caret, pivot } = this.doc;
    const box = caret < 0 ? null : this.box;
    this.#caret.hidden = box === null || (caret !== pivot && !this.isComposing);
    if (box) {
      this.#place(this.#caret, box);
      this.#restartBlinking();
    }
    this.#drawSelection(Math.min(caret, pivot), Math.max(caret, pivot));
  }

  /** Draws a caret of its own where something that is dragged would drop; none for -1. */
  showDrop(offset: number): void {
    const box = offset < 0 ? null : this.positions.caretBox(offset);
    this.#dropCaret.hidden = box === null;
    if (box) this.#place(this.#dropCaret, box);
  }

  #place(caret: HTMLElement, box: CaretBox): void {
    const origin = this.pages.getBoundingClientRect();
    const zoom = zoomOf(this.pages);
    caret.style.cssText = `transform:translate(${(box.left - origin.left) / zoom}px,${(box.top - origin.top) / zoom}px);height:${box.height / zoom}px;`;
  }

  scrollIntoView(): void {
    const box = this.box;
    if (!box) return;
    const view = this.scroller.getBoundingClientRect();
    if (box.top < view.top + gapAtEdges) this.scroller.scrollTop += box.top - view.top - gapAtEdges;
    else if (box.top + box.height > view.bottom - gapAtEdges)
      this.scroller.scrollTop += box.top + box.height - view.bottom + gapAtEdges;
    if (box.left < view.left || box.left > view.right)
      this.scroller.scrollLeft += box.left - (view.left + view.right) / 2;
  }

  #drawSelection(start: number, end: number): void {
    this.#selection.clear();
    CSS.highlights.delete("composition");
    if (start === end) return;
    const ranges = this.positions.rangesOf(start, end);
    if (this.isComposing) CSS.highlights.set("composition", new Highlight(...ranges));
    else for (const range of ranges) this.#selection.add(range);
  }

  #restartBlinking(): void {
    this.#caret.classList.toggle("even");
  }
}
