// Finds text as people read it: across tags, with or without the case of letters.

import type { Editor } from "../Editor.ts";
import { escaped, select, type Range } from "../markup.ts";
import type { DocumentText } from "./DocumentText.ts";
import { paragraphsOf, type Paragraph } from "./Paragraph.ts";

export interface Wanted {
  text: string;
  matchCase: boolean;
  wholeWords: boolean;
}

/** What one undo step can take back; the history has room for no more. */
const replacementsAtOnce = 2000;

export class Search {
  private matches: Range[] = [];
  private version = -1;
  private wanted = "";

  constructor(
    private readonly editor: Editor,
    private readonly text: DocumentText,
  ) {}

  /** All places, in the order of the text; found anew only when text or question have changed. */
  all(wanted: Wanted): Range[] {
    const version = this.editor.call<number>("getTextVersion");
    const key = JSON.stringify(wanted);
    if (version !== this.version || key !== this.wanted) {
      this.matches = wanted.text ? matchesIn(this.text.all(), wanted) : [];
      this.version = version;
      this.wanted = key;
    }
    return this.matches;
  }

  /** The places in the paragraphs of a stretch; costs no more than that is long. */
  between(wanted: Wanted, start: number, end: number): Range[] {
    return matchesIn(paragraphsOf(this.editor, start, end), wanted);
  }

  /** Selects the next place behind the caret, or before it, and from the other end on; its index. */
  go(wanted: Wanted, isForward: boolean): { index: number; hasWrapped: boolean } {
    const matches = this.all(wanted);
    const { caret, pivot } = this.editor.document;
    const here = isForward ? Math.max(caret, pivot) : Math.min(caret, pivot);
    const found = isForward
      ? matches.findIndex(match => match.start >= here)
      : matches.findLastIndex(match => match.end <= here);
    const index = found >= 0 ? found : isForward ? 0 : matches.length - 1;
    const match = matches[index];
    if (!match) return { index: -1, hasWrapped: false };
    select(this.editor, match.start, match.end);
    this.editor.view.scrollToCaret();
    return { index, hasWrapped: found < 0 };
  }

  /** The index of the match that is selected; -1 if none is. */
  selected(wanted: Wanted): number {
    const { caret, pivot } = this.editor.document;
    const [start, end] = [Math.min(caret, pivot), Math.max(caret, pivot)];
    return this.all(wanted).findIndex(match => match.start === start && match.end === end);
  }

  replaceSelected(wanted: Wanted, replacement: string): boolean {
    if (this.selected(wanted) < 0) return false;
    if (replacement) this.editor.call("insertText", replacement, false, false);
    else this.editor.call("erase", false, false);
    return true;
  }

  /** How many were replaced, and in how many undo steps. */
  replaceAll(wanted: Wanted, replacement: string): { count: number; steps: number } {
    const matches = [...this.all(wanted)].reverse(); // those before keep their places
    let steps = 0;
    for (let i = 0; i < matches.length; i += replacementsAtOnce, ++steps)
      this.editor.step(() => {
        for (const match of matches.slice(i, i + replacementsAtOnce)) this.replace(match, replacement);
      });
    return { count: matches.length, steps };
  }

  private replace(match: Range, replacement: string): void {
    const old = this.editor.call<string>("getContent", match.start, match.end);
    if (old.includes("<") || !replacement) {
      select(this.editor, match.start, match.end);
      if (replacement) this.editor.call("insertText", replacement, false, false);
      else this.editor.call("erase", false, false);
    } else {
      this.editor.call("replaceXmlText", match.start, match.end - 1, escaped(replacement));
    }
  }
}

function matchesIn(paragraphs: Iterable<Paragraph>, wanted: Wanted): Range[] {
  const pattern = patternOf(wanted);
  const found: Range[] = [];
  for (const paragraph of paragraphs)
    for (const { 0: match, index } of paragraph.text.matchAll(pattern))
      found.push(paragraph.range(index, index + match.length));
  return found;
}

/** A blank finds a non-breaking one too. */
function patternOf({ text, matchCase, wholeWords }: Wanted): RegExp {
  const literal = text.replace(/[.*+?^${}()|[\]\\/]/g, "\\$&").replace(/ /g, "[ \\u00a0]");
  const letter = "[\\p{L}\\p{M}\\p{N}_]";
  const source = wholeWords ? `(?<!${letter})${literal}(?!${letter})` : literal;
  return new RegExp(source, matchCase ? "gu" : "giu");
}
