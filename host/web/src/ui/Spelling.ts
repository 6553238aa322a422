// Red lines under the misspelt words that are shown, and what is offered in their place.

import { Checker } from "../spelling/Checker.ts";
import { language, text } from "../texts/texts.ts";
import type { Editor } from "./Editor.ts";
import { paragraphsOf, type Paragraph } from "./find/Paragraph.ts";
import { mark } from "./marks.ts";
import { select, type Range } from "./markup.ts";

export const dictionaries = ["en_US", "en_GB", "de_DE"] as const;

function defaultDictionary(): string {
  const own = [...navigator.languages, language()];
  const exact = dictionaries.find(name => own.includes(name.replace("_", "-")));
  return exact ?? dictionaries.find(name => own.some(each => name.startsWith(each.slice(0, 2)))) ?? dictionaries[0];
}

const remembered = "forme.spelling";
const pause = 250; // ms without a change before words are looked at

export interface Misspelt extends Range {
  word: string;
}

export class Spelling {
  dictionary: string;
  private readonly checker = new Checker();
  private due: ReturnType<typeof setTimeout> | undefined;
  private misspelt: Misspelt[] = [];
  private isUsed = false;

  constructor(private readonly editor: Editor) {
    this.dictionary = "";
    editor.view.onDrawn(() => this.markLater());
    const chosen = localStorage.getItem(remembered);
    if (chosen) void this.use(chosen);
    editor.document.listen(reply => {
      // Who writes wants to see faults; who reads needs no dictionary.
      if (chosen === null && !this.isUsed && reply.change && editor.state.canUndo) void this.use(defaultDictionary());
      this.markLater();
    });
  }

  /** One of the dictionaries, or "" for none; loaded when it is wanted first. */
  async use(dictionary: string): Promise<void> {
    this.isUsed = true;
    this.dictionary = dictionary;
    if (!dictionary) return mark(this.editor, "misspelt", (this.misspelt = []));
    try {
      await this.checker.use(dictionary);
    } catch {
      this.dictionary = "";
      this.editor.say(text("spelling.failed", { name: dictionary }));
    }
    await this.markVisible();
  }

  /** The same, and so when the page is opened the next time. */
  choose(dictionary: string): Promise<void> {
    localStorage.setItem(remembered, dictionary);
    return this.use(dictionary);
  }

  /** The misspelt word at an offset, ends included. */
  at(offset: number): Misspelt | undefined {
    return this.misspelt.find(each => offset >= each.start && offset <= each.end);
  }

  suggestions(word: string): Promise<string[]> {
    return this.checker.suggestions(word);
  }

  replace(misspelt: Misspelt, by: string): void {
    select(this.editor, misspelt.start, misspelt.end);
    this.editor.call("insertText", by, false, false);
  }

  ignore(word: string): void {
    this.checker.ignore(word);
    void this.markVisible();
  }

  accept(word: string): void {
    this.checker.accept(word);
    void this.markVisible();
  }

  /** Selects the next misspelt word behind the caret, and from the beginning on. */
  async next(): Promise<void> {
    if (!this.dictionary) await this.use(defaultDictionary());
    const begin = Math.max(0, this.editor.call<number>("getFirstPageGeneratorPos"));
    const caret = Math.max(this.editor.document.caret, this.editor.document.pivot);
    const found = (await this.firstIn(caret, Infinity, caret)) ?? (await this.firstIn(begin, caret, begin));
    if (!found) return this.editor.say(text("spelling.noMore"));
    select(this.editor, found.start, found.end);
    this.editor.view.scrollToCaret();
  }

  private async firstIn(start: number, end: number, from: number): Promise<Misspelt | undefined> {
    for (const paragraph of paragraphsOf(this.editor, start, end)) {
      const [found] = (await this.misspeltIn([paragraph])).filter(each => each.start >= from);
      if (found) return found;
    }
    return undefined;
  }

  private markLater(): void {
    if (!this.dictionary) return;
    clearTimeout(this.due);
    this.due = setTimeout(() => void this.markVisible(), pause);
  }

  private async markVisible(): Promise<void> {
    if (!this.dictionary) return;
    const { start, end } = this.editor.view.visible;
    const version = this.editor.call<number>("getTextVersion");
    const misspelt = await this.misspeltIn([...paragraphsOf(this.editor, start, end)]);
    if (version !== this.editor.call<number>("getTextVersion")) return; // another round is due
    const { caret, pivot } = this.editor.document;
    const isTyped = (each: Misspelt): boolean => caret === pivot && each.end === caret;
    this.misspelt = misspelt.filter(each => !isTyped(each));
    mark(this.editor, "misspelt", this.misspelt);
  }

  private async misspeltIn(paragraphs: Paragraph[]): Promise<Misspelt[]> {
    const words = paragraphs.flatMap(wordsOf);
    const unknown = new Set(words.map(each => each.word));
    for (const word of unknown) if (this.checker.isWrong(word) !== undefined) unknown.delete(word);
    if (unknown.size) await this.checker.learn([...unknown]);
    return words.filter(each => this.checker.isWrong(each.word));
  }
}

/** Letters with apostrophes and hyphens in them; what has digits, or stands in an address, is none. */
const wordPattern = /[\p{L}\p{M}\p{N}]+(?:['’.@/_-]+[\p{L}\p{M}\p{N}]+)*/gu;

export function wordsOf(paragraph: Paragraph): Misspelt[] {
  const found: Misspelt[] = [];
  for (const match of paragraph.text.matchAll(wordPattern)) {
    const written = match[0];
    if (/[\p{N}@/_]|\p{L}\.\p{L}/u.test(written)) continue;
    const range = paragraph.range(match.index, match.index + written.length);
    found.push({ word: written.replace(/’/g, "'"), ...range });
  }
  return found;
}
