// All paragraphs of the document. After a change only those that it has touched are read again.

import type { Change } from "../../library/FormeDocument.ts";
import type { Editor } from "../Editor.ts";
import { paragraphsOf, type Paragraph } from "./Paragraph.ts";

export class DocumentText {
  /** In the order of the text, up to the last that was read. */
  private known: Paragraph[] = [];
  private isComplete = false;
  /** What has changed since they were read, as one range. */
  private missed: Change | undefined;

  constructor(private readonly editor: Editor) {
    editor.document.listen(({ change }) => {
      if (change) this.missed = this.missed ? together(this.missed, change) : change;
    });
  }

  all(): Paragraph[] {
    this.readUntil(Infinity);
    return this.known;
  }

  /** Reads on until a time of `performance.now()`; whether there is nothing left to read. */
  readUntil(deadline: number): boolean {
    if (this.missed) this.follow(this.missed);
    this.missed = undefined;
    if (this.isComplete) return true;
    for (const paragraph of paragraphsOf(this.editor, this.known.at(-1)?.end ?? this.begin())) {
      this.known.push(paragraph);
      if (performance.now() >= deadline) return false;
    }
    return (this.isComplete = true);
  }

  /** Where the pages begin, headers included. */
  private begin(): number {
    return Math.max(0, this.editor.call<number>("getFirstPageGeneratorPos"));
  }

  private follow({ start, removed, inserted }: Change): void {
    const { known } = this;
    // A change may part and join paragraphs, so that a neighbour on each side is read, too.
    const first = this.indexFrom(start) - 1;
    const behind = this.indexFrom(start + removed + 1) + 1;
    if (first < 0 || behind >= known.length) {
      known.length = Math.max(0, first);
      this.isComplete = false;
      return;
    }
    for (let i = behind; i < known.length; ++i) known[i]!.move(inserted - removed);
    const read = paragraphsOf(this.editor, known[first]!.start, known[behind]!.start);
    known.splice(first, behind - first, ...read);
  }

  /** The index of the first paragraph that ends at or behind an offset. */
  private indexFrom(offset: number): number {
    let [low, high] = [0, this.known.length];
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.known[middle]!.end < offset) low = middle + 1;
      else high = middle;
    }
    return low;
  }
}

/** Two changes, the second of the text that the first has left, as one. */
function together(first: Change, second: Change): Change {
  const start = Math.min(first.start, second.start);
  const end = Math.max(first.start + first.inserted, second.start + second.removed); // between the two
  return {
    start,
    removed: end - first.inserted + first.removed - start,
    inserted: end - second.removed + second.inserted - start,
  };
}
