// Clicks, drags, and what is dropped.

import type { FormeDocument } from "../library/FormeDocument.ts";
import type { DocumentView } from "../view/DocumentView.ts";
import type { Clipboard } from "./Clipboard.ts";
import { SelectionDrag } from "./SelectionDrag.ts";

const either = 2;
const wordUnit = 1;
const scrollZone = 24;

export class Mouse {
  #anchor: { start: number; end: number } | null = null;
  #clicks = 1;
  #last = { x: 0, y: 0 };
  #timer = 0;
  readonly #drag: SelectionDrag;

  constructor(
    private readonly doc: FormeDocument,
    private readonly view: DocumentView,
    private readonly clipboard: Clipboard,
  ) {
    this.#drag = new SelectionDrag(doc, view);
    const pages = view.pagesElement;
    view.scroller.addEventListener("mousedown", event => this.#press(event));
    window.addEventListener("mousemove", event => this.#move(event));
    window.addEventListener("mouseup", event => this.#release(event));
    pages.addEventListener("dragover", event => event.preventDefault());
    pages.addEventListener("drop", event => this.#drop(event));
  }

  #press(event: MouseEvent): void {
    const offset = this.view.offsetAt(event.clientX, event.clientY);
    if (offset === null) return;
    event.preventDefault();
    this.view.focus();
    this.view.goalX = null;
    if (event.button !== 0 && this.#isSelected(offset)) return;
    this.#clicks = ((event.detail - 1) % 3) + 1;
    if (
      event.button === 0 &&
      this.#clicks === 1 &&
      !event.shiftKey &&
      this.doc.hasSelection &&
      this.#isSelected(offset)
    )
      return this.#drag.press(event.clientX, event.clientY);
    const stop = this.#stop(offset);
    if (event.shiftKey && event.button === 0) {
      this.#anchor = { start: this.doc.pivot, end: this.doc.pivot };
      return void this.doc.call("setCaretPos", true, stop);
    }
    this.#anchor = event.button === 0 ? this.#rangeAround(stop) : null;
    this.#select(this.#rangeAround(stop));
  }

  #isSelected(offset: number): boolean {
    const { caret, pivot } = this.doc;
    return offset >= Math.min(caret, pivot) && offset < Math.max(caret, pivot);
  }

  #stop(offset: number): number {
    return this.doc.call<number>("getNearestStop", offset, either);
  }

  /** What a click takes: a place, a word, or a paragraph. */
  #rangeAround(stop: number): { start: number; end: number } {
    if (this.#clicks === 1) return { start: stop, end: stop };
    if (this.#clicks === 2) {
      const [start, end] = this.doc.call<[number, number]>("getRangeAround", wordUnit, stop);
      return start < 0 ? { start: stop, end: stop } : { start, end };
    }
    const block = this.view.positions.placeOf(stop);
    if (!block) return { start: stop, end: stop };
    const element = (leaf: Node) =>
      (leaf instanceof Element ? leaf : leaf.parentElement!).closest(".block, td, .body, .piece");
    const own = element(block.leaf.node);
    const leaves = block.mount.mounted.leaves.filter(
      each => element(each.node) === own && (each.kind === "text" || each.kind === "object"),
    );
    const first = leaves[0] ?? block.leaf;
    const last = leaves[leaves.length - 1] ?? block.leaf;
    return { start: this.#stop(block.piece.start + first.start), end: this.#stop(block.piece.start + last.end) };
  }

  #select({ start, end }: { start: number; end: number }): void {
    this.doc.call("setCaretPos", false, start);
    if (end !== start) this.doc.call("setCaretPos", true, end);
  }

  #move(event: MouseEvent): void {
    if (this.#drag.isPressed)
      return event.buttons === 0 ? this.#drag.cancel() : this.#drag.move(event.clientX, event.clientY);
    if (!this.#anchor) return;
    if (event.buttons === 0) return this.#release();
    this.#last = { x: event.clientX, y: event.clientY };
    this.#extend();
    this.#timer ||= window.setInterval(() => this.#scrollAlong(), 50);
  }

  #extend(): void {
    const offset = this.view.offsetAt(this.#last.x, this.#last.y);
    if (offset === null || !this.#anchor) return;
    const { start, end } = this.#rangeAround(this.#stop(offset));
    const [pivot, caret] =
      start < this.#anchor.start ? [this.#anchor.end, start] : [this.#anchor.start, Math.max(end, this.#anchor.end)];
    const goesTo = this.#clicks === 1 ? this.#stop(offset) : caret;
    if (this.doc.pivot !== pivot) this.doc.call("setCaretPos", false, pivot);
    if (this.doc.caret !== goesTo) this.doc.call("setCaretPos", true, goesTo);
  }

  #scrollAlong(): void {
    const rect = this.view.scroller.getBoundingClientRect();
    const above = this.#last.y - rect.top - scrollZone;
    const below = this.#last.y - rect.bottom + scrollZone;
    if (above > 0 && below < 0) return;
    this.view.scroller.scrollTop += above <= 0 ? above : below;
    this.#extend();
  }

  #release(event?: MouseEvent): void {
    if (event && this.#drag.isPressed && !this.#drag.release(event.ctrlKey)) {
      const offset = this.view.offsetAt(event.clientX, event.clientY);
      if (offset !== null) this.doc.call("setCaretPos", false, this.#stop(offset));
    }
    this.#anchor = null;
    clearInterval(this.#timer);
    this.#timer = 0;
  }

  #drop(event: DragEvent): void {
    const offset = this.view.offsetAt(event.clientX, event.clientY);
    if (offset === null || !event.dataTransfer || event.dataTransfer.files.length > 0) return;
    event.preventDefault();
    this.doc.call("setCaretPos", false, this.#stop(offset));
    this.clipboard.paste(event.dataTransfer);
    this.view.focus();
  }
}
