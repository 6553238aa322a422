// What stands below the pages: words, the place of the caret, spelling, zoom.

import { language, text } from "../texts/texts.ts";
import type { Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import { icon } from "./icons.ts";
import { around } from "./markup.ts";
import { titleOf } from "./Toolbar.ts";
import type { WordCount } from "./WordCount.ts";
import type { Zoom } from "./Zoom.ts";

export class StatusBar {
    readonly element: HTMLElement;
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
                { title: titleOf(command), "aria-label": text(command.text), onclick: () => void command.run(editor) },
                content,
            );
        this.words.append(button(commands.words, ""));
        this.element = h(
            "footer",
            { class: "ui-status", "aria-label": text("bar.status") },
            this.place,
            this.words,
            h("span", { class: "ui-space" }),
            button(commands.zoomOut, icon("minus")),
            this.percent,
            button(commands.zoomIn, icon("plus")),
        );
        count.onCount(() => this.update());
        zoom.onChange(() => this.update());
        this.update();
    }

    update(): void {
        const { state } = this.editor;
        const button = this.words.firstElementChild!;
        const total = this.count.words;
        const shown = state.hasSelection
            ? text("status.selected", { count: this.count.selectedWords(), total })
            : text("status.words", { count: total });
        if (button.textContent !== shown) button.textContent = shown;
        this.place.textContent = state.isProtected ? text("status.protected") : state.isInStaticContent ? this.region() : "";
        this.percent.textContent = `${this.zoom.percent.toLocaleString(language())} %`;
    }

    private region(): string {
        const flow = this.editor.properties("fo:static-content", around(this.editor, "fo:static-content"));
        return text(/after/.test(flow.get("fo:flow-name") ?? "") ? "status.footer" : "status.header");
    }
}
