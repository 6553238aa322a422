// What commands and the parts of the interface know of: the document, what is drawn of it, and the
// state that a toolbar shows.

import type { FormeDocument, Reply } from "../library/FormeDocument.ts";
import { text } from "../texts/texts.ts";
import type { View } from "../view/View.ts";
import { formatOf, type EditingState, type Format } from "./EditingState.ts";
import { leaveInline } from "./typing.ts";
import { announce } from "./LiveRegion.ts";

export type Property = [name: string, value: string];

export class Editor {
  /** As it was asked for last; undefined where the document has changed since. */
  private known: EditingState | undefined;
  private readonly listeners: (() => void)[] = [];
  private isRefreshDue = false;
  /** Where the caret was when formats were chosen for what is typed next. */
  private typingCaret = -1;

  constructor(
    readonly document: FormeDocument,
    readonly view: View,
    readonly page: HTMLElement,
  ) {
    document.listen(reply => this.onReply(reply));
  }

  get state(): EditingState {
    return (this.known ??= this.call<EditingState>("getEditingState"));
  }

  call<T = unknown>(name: string, ...args: unknown[]): T {
    return this.document.call<T>(name, ...args);
  }

  /** All that happens in there is one undo step; where it fails, what was done stays undoable. */
  step<T>(work: () => T): T {
    this.call("endKeyTypingSequence"); // else the step would be a part of what was typed before
    this.call("history.startActionGroup");
    try {
      return work();
    } finally {
      this.call("history.endActionGroup");
    }
  }

  /** Called when the state has changed, at most once a frame and after what was typed shows. */
  onState(listener: () => void): void {
    this.listeners.push(listener);
  }

  refresh(): void {
    if (this.isRefreshDue) return;
    this.isRefreshDue = true;
    requestAnimationFrame(() => setTimeout(() => this.refreshNow()));
  }

  refreshNow(): void {
    this.isRefreshDue = false;
    for (const listener of this.listeners) listener();
  }

  /** The format at the caret, or what was chosen for the text that is typed next. */
  format(name: string): Format | undefined {
    const chosen = this.document.typingFormats.find(each => each[0] === name);
    return chosen ? { name, value: chosen[1], isMixed: false } : formatOf(this.state, name);
  }

  /** Formats what is selected, or else what is typed next. */
  setFormats(...formats: Property[]): void {
    if (this.state.hasSelection) {
      this.call("setProperties", formats, "");
    } else {
      const others = this.document.typingFormats.filter(([name]) => !formats.some(each => each[0] === name));
      const chosen = [...others, ...formats];
      this.document.typingFormats = leaveInline(this, chosen) ? [] : chosen;
      this.typingCaret = this.document.caret;
      this.refresh();
    }
  }

  /** What the nearest element of that name says itself. */
  properties(element: string, position = this.document.caret): Map<string, string> {
    return new Map(this.call<Property[]>("getProperties", element, position));
  }

  /** Says in words what a sighted user sees happen. */
  say(what: string): void {
    announce(what);
  }

  sayRefused(): void {
    announce(text("say.refused"));
  }

  private onReply(reply: Reply): void {
    this.known = undefined;
    if (this.document.typingFormats.length && reply.caret !== this.typingCaret) this.document.typingFormats = [];
    this.refresh();
  }
}
