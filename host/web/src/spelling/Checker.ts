// Asks the worker that knows the dictionaries, and remembers what it said of each word.

import type { Answer, Question } from "./messages.ts";

type Unnumbered<T> = T extends unknown ? Omit<T, "id"> : never;

const remembered = "forme.words";

export class Checker {
  private worker: Worker | undefined;
  private lastId = 0;
  private readonly waiting = new Map<number, (answer: Answer) => void>();
  private known = new Map<string, boolean>();
  private readonly accepted = new Set<string>(JSON.parse(localStorage.getItem(remembered) ?? "[]") as string[]);
  private readonly ignored = new Set<string>();
  private dictionary = "";

  /** Words are checked by this dictionary from now on; raises where it cannot be loaded. */
  async use(dictionary: string): Promise<void> {
    if (dictionary === this.dictionary) return;
    this.dictionary = dictionary;
    this.known = new Map();
    const { failure } = await this.ask({ kind: "load", dictionary });
    if (failure) throw new Error(failure);
  }

  /** Undefined as long as the word was not asked for. */
  isWrong(word: string): boolean | undefined {
    return this.accepted.has(word) || this.ignored.has(word) ? false : this.known.get(word);
  }

  /** Afterwards all of them are known. */
  async learn(words: string[]): Promise<void> {
    const dictionary = this.dictionary;
    const { wrong } = await this.ask({ kind: "check", dictionary, words });
    if (dictionary !== this.dictionary || !wrong) return;
    const misspelt = new Set(wrong);
    for (const word of words) this.known.set(word, misspelt.has(word));
  }

  async suggestions(word: string): Promise<string[]> {
    const { suggestions } = await this.ask({ kind: "suggest", dictionary: this.dictionary, word });
    return suggestions ?? [];
  }

  /** Until the page is left. */
  ignore(word: string): void {
    this.ignored.add(word);
  }

  /** In this browser for good. */
  accept(word: string): void {
    this.accepted.add(word);
    localStorage.setItem(remembered, JSON.stringify([...this.accepted]));
  }

  private ask(question: Unnumbered<Question>): Promise<Answer> {
    const id = ++this.lastId;
    this.started().postMessage({ ...question, id });
    return new Promise(done => this.waiting.set(id, done));
  }

  private started(): Worker {
    if (this.worker) return this.worker;
    this.worker = new Worker("spelling.js", { type: "module" });
    this.worker.addEventListener("message", ({ data }: MessageEvent<Answer>) => {
      this.waiting.get(data.id)?.(data);
      this.waiting.delete(data.id);
    });
    return this.worker;
  }
}
