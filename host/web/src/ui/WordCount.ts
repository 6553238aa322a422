// Counts words when nothing else is to be done.

import { text, language } from "../texts/texts.ts";
import { showDialog } from "./Dialog.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import type { DocumentText } from "./find/DocumentText.ts";
import { paragraphsOf, type Paragraph } from "./find/Paragraph.ts";
import { selection } from "./markup.ts";

interface Counts {
  words: number;
  characters: number;
  withoutBlanks: number;
  paragraphs: number;
}

const word = /[\p{L}\p{N}][\p{L}\p{M}\p{N}'’-]*/gu;
const slice = 5; // ms at a time
const rest = 20; // ms between
const pause = 400; // ms without a change
const selectionToCount = 50_000; // units; a longer one is counted in the dialog only

export class WordCount {
  /** Of the whole document; undefined until they were counted first. */
  words: number | undefined;
  private readonly known = new WeakMap<Paragraph, number>();
  private readonly listeners: (() => void)[] = [];
  private due: ReturnType<typeof setTimeout> | undefined;

  constructor(
    private readonly editor: Editor,
    private readonly document: DocumentText,
  ) {
    editor.document.listen(reply => reply.change && this.countIn(pause));
    this.countIn(pause);
  }

  onCount(listener: () => void): void {
    this.listeners.push(listener);
  }

  selectedWords(): number {
    const { start, end } = selection(this.editor);
    return end - start > selectionToCount ? 0 : countsOf(this.selected()).words;
  }

  async show(): Promise<void> {
    const table = (title: "words.document" | "words.selection", counts: Counts): HTMLElement =>
      h(
        "table",
        { class: "ui-counts" },
        h("caption", {}, text(title)),
        ...(Object.keys(counts) as (keyof Counts)[]).map(key =>
          h(
            "tr",
            {},
            h("th", { scope: "row" }, text(`words.${key}`)),
            h("td", {}, counts[key].toLocaleString(language())),
          ),
        ),
      );
    const body = [table("words.document", countsOf(this.document.all().map(each => each.text)))];
    if (this.editor.state.hasSelection) body.push(table("words.selection", countsOf(this.selected())));
    await showDialog("words.title", body, null);
  }

  private selected(): string[] {
    const { start, end } = selection(this.editor);
    return [...paragraphsOf(this.editor, start, end)].map(paragraph => paragraph.between(start, end));
  }

  private countIn(delay: number): void {
    clearTimeout(this.due);
    this.due = setTimeout(() => this.count(), delay);
  }

  /** In slices, so that a key never waits for it. */
  private count(): void {
    if (!this.document.readUntil(performance.now() + slice)) return this.countIn(rest);
    this.words = 0;
    for (const paragraph of this.document.all()) this.words += this.wordsIn(paragraph);
    for (const listener of this.listeners) listener();
  }

  private wordsIn(paragraph: Paragraph): number {
    const known = this.known.get(paragraph) ?? wordsOf(paragraph.text);
    this.known.set(paragraph, known);
    return known;
  }
}

function wordsOf(written: string): number {
  return written.match(word)?.length ?? 0;
}

function countsOf(paragraphs: string[]): Counts {
  const counts: Counts = { words: 0, characters: 0, withoutBlanks: 0, paragraphs: paragraphs.length };
  for (const paragraph of paragraphs) {
    const shown = paragraph.replace(/[\n\ufffc]/g, " ");
    counts.words += wordsOf(shown);
    counts.characters += [...shown].length;
    counts.withoutBlanks += [...shown.replace(/\s/g, "")].length;
  }
  return counts;
}
