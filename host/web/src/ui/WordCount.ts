// Counts words when nothing else is to be done.

import { text, language } from "../texts/texts.ts";
import { showDialog } from "./Dialog.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import { beginOfPages, paragraphsOf } from "./find/Paragraphs.ts";
import { selection } from "./markup.ts";

interface Counts {
    words: number;
    characters: number;
    withoutBlanks: number;
    paragraphs: number;
}

const word = /[\p{L}\p{N}][\p{L}\p{M}\p{N}'’-]*/gu;
const slice = 8; // ms at a time
const selectionToCount = 50_000; // units; a longer one is counted in the dialog only

export class WordCount {
    words = 0;
    private version = -1;
    private readonly listeners: (() => void)[] = [];
    private due: ReturnType<typeof setTimeout> | undefined;
    private round = 0;

    constructor(private readonly editor: Editor) {
        editor.document.listen((reply) => reply.change && this.countLater());
        this.countLater();
    }

    onCount(listener: () => void): void {
        this.listeners.push(listener);
    }

    countLater(): void {
        clearTimeout(this.due);
        this.due = setTimeout(() => void this.count(), 700);
    }

    selectedWords(): number {
        const { start, end } = selection(this.editor);
        return end - start > selectionToCount ? 0 : countsOf(this.editor, start, end).words;
    }

    async show(): Promise<void> {
        const { start, end } = selection(this.editor);
        const table = (title: "words.document" | "words.selection", counts: Counts): HTMLElement =>
            h(
                "table",
                { class: "ui-counts" },
                h("caption", {}, text(title)),
                ...(Object.keys(counts) as (keyof Counts)[]).map((key) =>
                    h("tr", {}, h("th", { scope: "row" }, text(`words.${key}`)), h("td", {}, counts[key].toLocaleString(language()))),
                ),
            );
        const body = [table("words.document", countsOf(this.editor, beginOfPages(this.editor)))];
        if (end > start) body.push(table("words.selection", countsOf(this.editor, start, end)));
        await showDialog("words.title", body, null);
    }

    /** In slices, so that a key never waits for it; a change begins a new round. */
    private async count(): Promise<void> {
        const version = this.editor.call<number>("getTextVersion");
        if (version === this.version) return;
        const round = ++this.round;
        let words = 0;
        let until = performance.now() + slice;
        for (const paragraph of paragraphsOf(this.editor, beginOfPages(this.editor))) {
            words += paragraph.text.match(word)?.length ?? 0;
            if (performance.now() < until) continue;
            await new Promise((done) => setTimeout(done, slice));
            if (round !== this.round || version !== this.editor.call<number>("getTextVersion")) return;
            until = performance.now() + slice;
        }
        this.words = words;
        this.version = version;
        for (const listener of this.listeners) listener();
    }
}

function countsOf(editor: Editor, start: number, end = Infinity): Counts {
    const counts: Counts = { words: 0, characters: 0, withoutBlanks: 0, paragraphs: 0 };
    for (const { text: written, starts } of paragraphsOf(editor, start, end)) {
        const last = starts.findLastIndex((offset) => offset < end);
        const shown = written.slice(starts.findIndex((offset) => offset >= start), last + 1).replace(/[\n\ufffc]/g, " ");
        counts.words += shown.match(word)?.length ?? 0;
        counts.characters += [...shown].length;
        counts.withoutBlanks += [...shown.replace(/\s/g, "")].length;
        counts.paragraphs += 1;
    }
    return counts;
}
