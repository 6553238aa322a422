// What stands below the pages: words, the place of the caret, spelling, zoom.

import { language, text } from "../texts/texts.ts";
import type { Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import { icon } from "./icons.ts";
import { around } from "./markup.ts";
import { runCommand } from "./runCommand.ts";
import { titleOf } from "./Toolbar.ts";
import type { WordCount } from "./WordCount.ts";
import type { Zoom } from "./Zoom.ts";

export class StatusBar {
  readonly element: HTMLElement;
  private readonly page = h("span", { class: "ui-page" });
  private readonly place = h("span", { class: "ui-place" });
  private readonly words = h("span", {});
  private readonly percent = h("output", {});

  constructor(
    private readonly editor: Editor,
    private readonly count: WordCount,
    private readonly zoom: Zoom,
    commands: { zoomIn: Command; zoomOut: Command; words: Command },
  ) {
    const button = (command: Command, content: Node | string): HTMLElement =>
      h(
        "button",
        { title: titleOf(command), "aria-label": text(command.text), onclick: () => void runCommand(command, editor) },
        content,
      );
    this.words.append(button(commands.words, ""));
    this.element = h(
      "footer",
      { class: "ui-status", "aria-label": text("bar.status") },
      this.page,
      this.words,
      this.place,
      h("span", { class: "ui-space" }),
      button(commands.zoomOut, icon("minus")),
      this.percent,
      button(commands.zoomIn, icon("plus")),
    );
    editor.view.onDrawn(() => this.showPage());
    count.onCount(() => this.update());
    zoom.onChange(() => this.update());
    this.update();
  }

  private showPage(): void {
    const { caretPage: page, pageCount: pages } = this.editor.view;
    if (!page) return; // in a header, which stands on many
    const shown = text("status.page", { page, pages });
    if (this.page.textContent !== shown) this.page.textContent = shown;
  }

  update(): void {
    this.showPage();
    const { state } = this.editor;
    const button = this.words.firstElementChild!;
    const shown = this.wordsShown();
    if (button.textContent !== shown) button.textContent = shown;
    this.place.textContent = state.isProtected
      ? text("status.protected")
      : state.isInStaticContent
        ? this.region()
        : "";
    this.percent.textContent = `${this.zoom.percent.toLocaleString(language())} %`;
  }

  private wordsShown(): string {
    const total = this.count.words;
    if (total === undefined) return "";
    return this.editor.state.hasSelection
      ? text("status.selected", { count: this.count.selectedWords(), total })
      : text("status.words", { count: total });
  }

  private region(): string {
    const flow = this.editor.properties("fo:static-content", around(this.editor, "fo:static-content"));
    return text(/after/.test(flow.get("fo:flow-name") ?? "") ? "status.footer" : "status.header");
  }
}
