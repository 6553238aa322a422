// What is selected is dragged to another place; with Ctrl held a copy of it.

import type { Change, FormeDocument } from "../library/FormeDocument.ts";
import type { DocumentView } from "../view/DocumentView.ts";
import { nativeFormat } from "./Clipboard.ts";

const either = 2;
/** How far the mouse goes before a press is no click any more. */
const threshold = 4;

export class SelectionDrag {
  #from: { x: number; y: number } | null = null;
  /** Where it would drop to; -1 while nothing is dragged. */
  #stop = -1;

  constructor(
    private readonly doc: FormeDocument,
    private readonly view: DocumentView,
  ) {}

  get isPressed(): boolean {
    return this.#from !== null;
  }

  press(x: number, y: number): void {
    this.#from = { x, y };
    this.#stop = -1;
  }

  move(x: number, y: number): void {
    if (!this.#from || (this.#stop < 0 && Math.hypot(x - this.#from.x, y - this.#from.y) < threshold)) return;
    const offset = this.view.offsetAt(x, y);
    if (offset === null) return;
    this.#stop = this.doc.call<number>("getNearestStop", offset, either);
    this.view.caret.showDrop(this.#isOutside(this.#stop) ? this.#stop : -1);
  }

  /** False if it was a click after all. */
  release(copies: boolean): boolean {
    const stop = this.#stop;
    const wasDragged = stop >= 0;
    this.cancel();
    if (wasDragged && this.#isOutside(stop)) this.doc.group(() => this.#drop(stop, copies));
    return wasDragged;
  }

  cancel(): void {
    this.#from = null;
    this.#stop = -1;
    this.view.caret.showDrop(-1);
  }

  #isOutside(stop: number): boolean {
    const { caret, pivot } = this.doc;
    return stop < Math.min(caret, pivot) || stop > Math.max(caret, pivot);
  }

  #drop(stop: number, copies: boolean): void {
    const moved = this.doc.call<string>("getSelectionAs", nativeFormat);
    const before = this.doc.call<number>("getTextVersion");
    if (copies) this.doc.call("resetSelection");
    else this.doc.call("erase", false, false);
    const change = this.doc.call<Change | null>("changeSince", before);
    const now = change && stop >= change.start + change.removed ? stop + change.inserted - change.removed : stop;
    this.doc.call("setCaretPos", false, this.doc.call<number>("getNearestStop", now, either));
    this.doc.call("pasteMarkup", moved);
  }
}
