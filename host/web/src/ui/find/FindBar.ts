// The bar to find and replace, above the text.

import { text } from "../../texts/texts.ts";
import { showDialog } from "../Dialog.ts";
import type { Editor } from "../Editor.ts";
import { h } from "../elements.ts";
import { icon } from "../icons.ts";
import { keysOf } from "../keys.ts";
import { selection } from "../markup.ts";
import { mark } from "../marks.ts";
import type { DocumentText } from "./DocumentText.ts";
import { Search, type Wanted } from "./Search.ts";

const askFrom = 500; // replacements
const pause = 100; // ms after something was drawn

export class FindBar {
  readonly element: HTMLElement;
  private readonly search: Search;
  private readonly find = h("input", { type: "text", "aria-label": text("find.find"), placeholder: text("find.find") });
  private readonly replacement = h("input", {
    type: "text",
    "aria-label": text("find.replaceWith"),
    placeholder: text("find.replaceWith"),
  });
  private readonly matchCase = h("input", { type: "checkbox" });
  private readonly wholeWords = h("input", { type: "checkbox" });
  private readonly status = h("span", { class: "ui-find-status", role: "status" });
  private readonly replaceRow: HTMLElement;
  private due: ReturnType<typeof setTimeout> | undefined;

  constructor(
    private readonly editor: Editor,
    documentText: DocumentText,
  ) {
    this.search = new Search(editor, documentText);
    this.replaceRow = h(
      "div",
      { class: "ui-find-row" },
      this.replacement,
      this.button("find.replace", () => this.replace()),
      this.button("find.replaceAll", () => void this.replaceAll()),
    );
    this.element = h(
      "div",
      { class: "ui-find", role: "search", "aria-label": text("find.title"), hidden: true },
      h(
        "div",
        { class: "ui-find-row" },
        this.find,
        this.iconButton("up", "find.previous", () => this.go(false)),
        this.iconButton("down", "find.next", () => this.go(true)),
        this.status,
        h("label", {}, this.matchCase, text("find.matchCase")),
        h("label", {}, this.wholeWords, text("find.wholeWords")),
        this.iconButton("close", "dialog.close", () => this.close()),
      ),
      this.replaceRow,
    );
    this.find.addEventListener("input", () => this.show());
    for (const box of [this.matchCase, this.wholeWords]) box.addEventListener("change", () => this.show());
    this.element.addEventListener("keydown", event => this.onKey(event));
    editor.view.onDrawn(() => this.isOpen && this.markLater());
  }

  get isOpen(): boolean {
    return !this.element.hidden;
  }

  open(withReplace: boolean): void {
    const selected = this.editor.state.hasSelection ? this.editor.call<string>("getSelectionAsText") : "";
    if (selected && !selected.includes("\n")) this.find.value = selected;
    this.element.hidden = false;
    this.replaceRow.hidden = !withReplace;
    this.find.focus();
    this.find.select();
    this.show();
  }

  close(): void {
    this.element.hidden = true;
    mark(this.editor, "found", []);
    this.editor.view.focus();
  }

  go(isForward: boolean): void {
    if (!this.find.value) return this.open(false);
    const { index, hasWrapped } = this.search.go(this.wanted(), isForward);
    this.tellCount(index);
    this.markLater();
    if (hasWrapped) this.editor.say(text("find.wrapped"));
  }

  private wanted(): Wanted {
    return { text: this.find.value, matchCase: this.matchCase.checked, wholeWords: this.wholeWords.checked };
  }

  /** The first match at or behind the caret is selected while the user types. */
  private show(): void {
    const { start } = selection(this.editor);
    this.editor.call("setCaretPos", false, start);
    const { index } = this.search.go(this.wanted(), true);
    this.tellCount(index);
    this.markVisible();
  }

  private tellCount(index: number): void {
    const count = this.search.all(this.wanted()).length;
    if (!this.find.value) this.status.textContent = "";
    else this.status.textContent = count ? text("find.count", { index: index + 1, count }) : text("find.none");
  }

  private markLater(): void {
    clearTimeout(this.due);
    this.due = setTimeout(() => this.isOpen && this.markVisible(), pause);
  }

  private markVisible(): void {
    const { start, end } = this.editor.view.visible;
    const shown = this.find.value ? this.search.between(this.wanted(), start, end) : [];
    const selected = selection(this.editor); // is coloured as such
    mark(
      this.editor,
      "found",
      shown.filter(match => match.start !== selected.start),
    );
  }

  private replace(): void {
    this.search.replaceSelected(this.wanted(), this.replacement.value);
    this.go(true);
    this.markVisible();
  }

  private async replaceAll(): Promise<void> {
    const count = this.search.all(this.wanted()).length;
    const question = `${text("find.replaceAll")}: ${count.toLocaleString()}`;
    if (count >= askFrom && !(await showDialog("find.replaceAll", [question]))) return;
    const done = this.search.replaceAll(this.wanted(), this.replacement.value);
    const key = done.steps > 1 ? "find.replacedSteps" : "find.replaced";
    this.status.textContent = text(key, { count: done.count, steps: done.steps });
    this.markVisible();
  }

  private onKey(event: KeyboardEvent): void {
    const isInField = event.target === this.find || event.target === this.replacement;
    const keys = keysOf(event);
    const actions: Record<string, (() => void) | false> = {
      Escape: () => this.close(),
      Enter: isInField && (() => (event.target === this.replacement ? this.replace() : this.go(true))),
      "Shift+Enter": isInField && (() => this.go(false)),
    };
    const action = actions[keys];
    if (!action) return;
    event.preventDefault();
    action();
  }

  private button(label: "find.replace" | "find.replaceAll", onclick: () => void): HTMLElement {
    return h("button", { type: "button", onclick }, text(label));
  }

  private iconButton(
    name: "up" | "down" | "close",
    label: "find.previous" | "find.next" | "dialog.close",
    onclick: () => void,
  ): HTMLElement {
    return h(
      "button",
      { type: "button", class: "ui-tool", title: text(label), "aria-label": text(label), onclick },
      icon(name),
    );
  }
}
