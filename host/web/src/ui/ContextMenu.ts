// What can be done at the place of a click, or of the caret.

import { text } from "../texts/texts.ts";
import type { Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { contextEntries } from "./layout.ts";
import { around, selection } from "./markup.ts";
import { Menu, type MenuEntry } from "./Menu.ts";
import type { Misspelt, Spelling } from "./Spelling.ts";

const mostSuggestions = 6;

export class ContextMenu {
  constructor(
    private readonly editor: Editor,
    private readonly spelling: Spelling,
  ) {
    editor.page.addEventListener("contextmenu", event => {
      event.preventDefault();
      // The keyboard's own menu key comes without a place.
      if (event.clientX || event.clientY) void this.openAt(event.clientX, event.clientY);
      else void this.openAtCaret();
    });
  }

  /** Below the caret's line. */
  async openAtCaret(): Promise<void> {
    const { caret } = this.editor.document;
    const [range] = this.editor.view.rangesOf(Math.max(0, caret - 1), caret + 1);
    const box = (range ?? this.editor.page).getBoundingClientRect();
    await this.open(box.right, range ? box.bottom : box.top + 40, true);
  }

  private async openAt(x: number, y: number): Promise<void> {
    const offset = this.editor.view.offsetAt(x, y);
    if (offset !== null && !this.isSelected(offset)) {
      const stop = this.editor.call<number>("getNearestStop", offset, 2);
      this.editor.call("setCaretPos", false, stop);
    }
    await this.open(x, y, false);
  }

  private isSelected(offset: number): boolean {
    const { start, end } = selection(this.editor);
    return offset >= start && offset < end;
  }

  private async open(x: number, y: number, byKey: boolean): Promise<void> {
    const misspelt = this.spelling.at(this.editor.document.caret);
    const entries: MenuEntry[] = [
      ...(misspelt ? await this.spellingEntries(misspelt) : []),
      ...contextEntries(this.editor.state.isInTable, around(this.editor, "fo:basic-link") >= 0),
    ];
    const menu = new Menu(this.editor, entries);
    menu.openAt(x, y);
    menu.focusItem(0);
    if (!byKey) (document.activeElement as HTMLElement).classList.add("ui-quiet");
  }

  private async spellingEntries(misspelt: Misspelt): Promise<MenuEntry[]> {
    const { word } = misspelt;
    const suggestions = (await this.spelling.suggestions(word)).slice(0, mostSuggestions);
    const entry = (id: string, label: string, run: () => void): Command => ({ id, text: "spelling.none", label, run });
    return [
      ...(suggestions.length
        ? suggestions.map(each => entry("suggestion", each, () => this.spelling.replace(misspelt, each)))
        : [{ ...entry("noSuggestion", text("spelling.none"), () => undefined), isEnabled: () => false }]),
      "-",
      entry("ignoreWord", text("spelling.ignore", { word }), () => this.spelling.ignore(word)),
      entry("addWord", text("spelling.add", { word }), () => this.spelling.accept(word)),
      "-",
    ];
  }
}
