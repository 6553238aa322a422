// The text of a document as a reader sees it, paragraph by paragraph, and where its characters stand.

import type { Editor } from "../Editor.ts";
import { DrawnKind, type Drawn } from "../../library/Drawn.ts";

/** Characters from `at` on that come of one piece of the document, unit by unit or as one. */
interface Run {
  at: number;
  start: number;
  end: number;
  isVerbatim: boolean;
}

export class Paragraph {
  /** Line breaks are "\n", objects U+FFFC. */
  text = "";
  private runs: Run[] = [];

  /** Where it begins in the document, and where it ends, which is excluded. */
  get start(): number {
    return this.runs[0]!.start;
  }

  get end(): number {
    return this.runs[this.runs.length - 1]!.end;
  }

  add(piece: Drawn, shown: string, isVerbatim: boolean): void {
    this.runs.push({ at: this.text.length, start: piece.start, end: piece.end, isVerbatim });
    this.text += shown;
  }

  /** The range of the document that the characters from `from` up to `to`, excluded, come of. */
  range(from: number, to: number): { start: number; end: number } {
    const first = this.runAt(from);
    const last = this.runAt(to - 1);
    return {
      start: first.isVerbatim ? first.start + from - first.at : first.start,
      end: last.isVerbatim ? last.start + to - last.at : last.end,
    };
  }

  /** The characters that come of a range of the document. */
  between(start: number, end: number): string {
    const inside = (run: Run, i: number): string => {
      const shown = this.text.slice(run.at, this.runs[i + 1]?.at);
      if (run.isVerbatim) return shown.slice(Math.max(0, start - run.start), Math.max(0, end - run.start));
      return run.start >= start && run.end <= end ? shown : "";
    };
    return this.runs.map(inside).join("");
  }

  /** After a change of the document before it. */
  move(by: number): void {
    for (const run of this.runs) {
      run.start += by;
      run.end += by;
    }
  }

  private runAt(index: number): Run {
    let [low, high] = [0, this.runs.length - 1];
    while (low < high) {
      const middle = (low + high + 1) >> 1;
      if (this.runs[middle]!.at <= index) low = middle;
      else high = middle - 1;
    }
    return this.runs[low]!;
  }
}

const inlines = new Set([
  "fo:inline",
  "fo:wrapper",
  "fo:basic-link",
  "fo:bidi-override",
  "qfd:inline-repeat",
  "qfd:conditional-inline",
  "qfd:conditional-inline-sequence",
]);
const piecesAtOnce = 100;

/** Those that have a character in the range, which are cut there; empty ones are left out. */
export function* paragraphsOf(editor: Editor, start: number, end = Infinity): Generator<Paragraph> {
  let current = new Paragraph();
  for (let from = start; from < end;) {
    const pieces = editor.call<Drawn[]>("getDrawn", from, piecesAtOnce);
    if (!pieces.length) break;
    for (const piece of pieces) {
      if (piece.start >= end) break;
      if (!endsParagraph(piece)) take(current, piece);
      else if (current.text) {
        yield current;
        current = new Paragraph();
      }
    }
    from = pieces[pieces.length - 1]!.end;
  }
  if (current.text) yield current;
}

function endsParagraph(piece: Drawn): boolean {
  return (piece.kind === DrawnKind.Start || piece.kind === DrawnKind.End) && !inlines.has(piece.text);
}

function take(paragraph: Paragraph, piece: Drawn): void {
  if (piece.kind === DrawnKind.Text) paragraph.add(piece, piece.text, true);
  else if (piece.kind === DrawnKind.Character) paragraph.add(piece, piece.text, false);
  else if (piece.kind === DrawnKind.Empty) paragraph.add(piece, "\n", false);
  else if (piece.kind === DrawnKind.Object) paragraph.add(piece, "\ufffc", false);
}
