// What keys do. A key that is not here is left to the browser, which tells of characters as input.

import type { FormeDocument } from "../library/FormeDocument.ts";
import type { DocumentView } from "../view/DocumentView.ts";
import { Moves } from "./Moves.ts";

enum Break {
  Page = 0,
  Soft = 2,
  Hard = 5,
}

type Action = (extend: boolean) => void;

export class Keyboard {
  readonly #actions: Record<string, Action>;

  constructor(
    private readonly doc: FormeDocument,
    private readonly view: DocumentView,
  ) {
    const moves = new Moves(doc, view);
    const call = (name: string, ...args: unknown[]) => doc.call(name, ...args);
    this.#actions = {
      ArrowLeft: extend => call("moveCaretLeft", extend, false, true),
      ArrowRight: extend => call("moveCaretRight", extend, false, true),
      "Ctrl+ArrowLeft": extend => call("moveCaretLeft", extend, true, true),
      "Ctrl+ArrowRight": extend => call("moveCaretRight", extend, true, true),
      ArrowUp: extend => moves.byLine(-1, extend),
      ArrowDown: extend => moves.byLine(1, extend),
      Home: extend => moves.toLineEnd(-1, extend),
      End: extend => moves.toLineEnd(1, extend),
      PageUp: extend => moves.byPage(-1, extend),
      PageDown: extend => moves.byPage(1, extend),
      "Ctrl+Home": extend => call("moveCaretHome", extend),
      "Ctrl+End": extend => call("moveCaretToEnd", extend),
      "Ctrl+KeyA": () => this.#selectAll(),
      Escape: () => call("resetSelection"),
      Enter: extend => this.#enter(extend),
      "Ctrl+Enter": () => call("insertBreak", Break.Page, false),
      Backspace: () => call("erase", false, false),
      "Ctrl+Backspace": () => call("erase", false, true),
      Delete: () => call("erase", true, false),
      "Ctrl+Delete": () => call("erase", true, true),
      Tab: extend => this.#tab(extend),
      "Ctrl+Tab": () => call("insertTab"),
      "Ctrl+KeyZ": extend => call(extend ? "redo" : "undo"),
      "Ctrl+KeyY": () => call("redo"),
    };
  }

  /** Whether the key was one of ours. */
  press(event: KeyboardEvent): boolean {
    const { doc, view } = this;
    const isLetter = /^Key[A-Z]$/.test(event.code);
    const key = isLetter ? `Key${event.key.toUpperCase()}` : event.key;
    const ctrl = event.ctrlKey || event.metaKey ? "Ctrl+" : "";
    const action = event.altKey ? undefined : this.#actions[ctrl + key];
    if (!action) return false;
    if (!/^Arrow(Up|Down)|^Page/.test(key)) view.goalX = null;
    const caret = doc.caret;
    action(event.shiftKey);
    if (doc.caret === caret) view.scrollToCaret();
    return true;
  }

  #selectAll(): void {
    this.doc.group(() => {
      this.doc.call("moveCaretHome", false);
      this.doc.call("moveCaretToEnd", true);
    });
  }

  #isIn(element: string): boolean {
    return this.doc.call<boolean>("isInElementContext", element, this.doc.caret);
  }

  #enter(isLine: boolean): void {
    if (isLine) this.doc.call("insertBreak", Break.Soft, false);
    else if (this.#isIn("fo:list-block")) this.doc.call("breakList");
    else this.doc.call("insertBreak", Break.Hard, false);
  }

  /** To the next cell, and behind the last one to a new row; elsewhere a tab. */
  #tab(back: boolean): void {
    if (!this.doc.call<boolean>("caretIsInsideTable")) return void (back || this.doc.call("insertTab"));
    if (back) this.doc.call("moveCaretPrevCell", false);
    else this.doc.call("moveCaretNextCell", false, true);
  }
}
