// Moves that only the layout knows: to the line above and below, to the ends of a line, by a page.

import type { FormeDocument } from "../library/FormeDocument.ts";
import type { DocumentView } from "../view/DocumentView.ts";
import type { CaretBox } from "../view/Positions.ts";

const step = 6;
const either = 2;
/** Further than any gap between the text of two pages. */
const furthest = 900;

export class Moves {
  constructor(
    private readonly doc: FormeDocument,
    private readonly view: DocumentView,
  ) {}

  /** To the next line in a direction, -1 up or 1 down; the column is kept over several moves. */
  byLine(direction: -1 | 1, extend: boolean): void {
    const box = this.#caretInWindow();
    if (!box) return;
    const x = this.view.goalX ?? box.left;
    const found = this.#lineFrom(box, x, direction);
    if (found !== null) this.#go(found, extend);
    else if (direction < 0) this.doc.call("moveCaretHome", extend);
    else this.doc.call("moveCaretToEnd", extend);
    this.view.goalX = x;
  }

  /** To the end of the line, 1, or its beginning, -1. */
  toLineEnd(direction: -1 | 1, extend: boolean): void {
    const box = this.#caretInWindow();
    const place = this.view.positions.placeOf(this.doc.caret);
    if (!box || !place) return;
    const element = place.leaf.node instanceof Element ? place.leaf.node : place.leaf.node.parentElement!;
    const around = element.closest("td, .body, .block, .region") ?? element;
    const rect = around.getBoundingClientRect();
    const y = box.top + box.height / 2;
    const offset = this.view.offsetAt(direction > 0 ? rect.right - 1 : rect.left + 1, y);
    if (offset === null) return;
    this.#go(offset, extend);
    const reached = this.view.caret.box;
    this.view.caret.atLineEnd = direction > 0 && reached !== null && reached.top > box.top + box.height / 2;
    this.view.caret.draw();
  }

  byPage(direction: -1 | 1, extend: boolean): void {
    const box = this.#caretInWindow();
    if (!box) return;
    const { scroller } = this.view;
    const x = this.view.goalX ?? box.left;
    const before = scroller.scrollTop;
    scroller.scrollTop += direction * (scroller.clientHeight - 2 * box.height);
    if (scroller.scrollTop === before) this.doc.call(direction < 0 ? "moveCaretHome" : "moveCaretToEnd", extend);
    else this.#goNear(x, box.top + box.height / 2, direction, extend);
    this.view.goalX = x;
  }

  #goNear(x: number, y: number, direction: -1 | 1, extend: boolean): void {
    for (let distance = 0; distance < furthest; distance += 4 * step) {
      const offset = this.#offsetInFlow(x, y + direction * distance) ?? this.#offsetInFlow(x, y - direction * distance);
      if (offset !== null) return this.#go(offset, extend);
    }
  }

  #lineFrom(box: CaretBox, x: number, direction: -1 | 1): number | null {
    const middle = box.top + box.height / 2;
    const { atLineEnd } = this.view.caret;
    for (let distance = box.height / 2 + 1; distance < furthest; distance += step) {
      const offset = this.#offsetInFlow(x, middle + direction * distance);
      if (offset === null || (offset === this.doc.caret && !atLineEnd)) continue;
      const stop = this.doc.call<number>("getNearestStop", offset, either);
      const found = this.view.positions.caretBox(stop);
      if (found && (found.top + found.height / 2 - middle) * direction > Math.min(box.height, found.height) / 2)
        return stop;
    }
    return null;
  }

  /** Beside the text, as over the header, there is none while the caret stands in the flow. */
  #offsetInFlow(x: number, y: number): number | null {
    const { scroller } = this.view;
    const window = scroller.getBoundingClientRect();
    if (y < window.top || y > window.bottom) {
      scroller.scrollTop += y < window.top ? y - window.top - 40 : y - window.bottom + 40;
      return null;
    }
    const hit = document.elementFromPoint(x, y)?.closest(".region, .footnotes");
    const own = this.view.positions.placeOf(this.doc.caret)?.mount.mounted.element.closest(".region, .footnotes");
    return hit && own && hit.className === own.className ? this.view.offsetAt(x, y) : null;
  }

  #caretInWindow(): CaretBox | null {
    this.view.scrollToCaret();
    return this.view.caret.box;
  }

  #go(offset: number, extend: boolean): void {
    this.doc.call("setCaretPos", extend, this.doc.call<number>("getNearestStop", offset, either));
    this.view.flush();
  }
}
