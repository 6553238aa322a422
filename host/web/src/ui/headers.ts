// Headers and footers: to them, and made where the pages have none.

import type { Editor } from "./Editor.js";
import { currentMaster } from "./dialogs/pageSetup.js";
import { around, enter } from "./markup.js";
import { lengthInMm, mm } from "./lengths.js";

/** Where on the page; `type` is the number that requests know the region by. */
export const regions = {
    header: { type: 0, region: 2, flow: "xsl-region-before", margin: "top" },
    footer: { type: 1, region: 3, flow: "xsl-region-after", margin: "bottom" },
} as const;

export type RegionName = keyof typeof regions;

/** Puts the caret into the header or footer of the pages around it. */
export function editRegion(editor: Editor, name: RegionName): void {
    const sequence = editor.call<number>("getCurrentPageSequenceIdx");
    if (sequence < 0) return editor.sayRefused();
    const { flow } = regions[name];
    editor.step(() => {
        const region = ensureRegion(editor, name);
        if (!hasStaticContent(editor, region)) insertStaticContent(editor, region);
        editor.call("moveCaretToStaticRegion", region || flow, sequence);
    });
    editor.view.scrollToCaret();
}

/** The flow's name of the region, which is made where there is none. */
function ensureRegion(editor: Editor, name: RegionName): string {
    const { type, region, flow, margin } = regions[name];
    editor.call("masters.open");
    try {
        const master = currentMaster(editor);
        const known = editor.call<string[]>("masters.getRegionsForPageMaster", master)[region];
        if (known) return known;
        editor.call("masters.setVisibleRegion", master, flow, type, true);
        editor.call("masters.setExtentForRegion", master, flow, "15mm");
        makeRoom(editor, master, margin);
        editor.call("masters.commit");
        return flow;
    } finally {
        editor.call("masters.close");
    }
}

/** The body begins below the header, and ends above the footer. */
function makeRoom(editor: Editor, master: string, side: "top" | "bottom"): void {
    const margins = editor.call<Record<string, string>>("masters.getMarginsForBodyRegion", master);
    if ((lengthInMm(margins[side] ?? "") ?? 0) >= 15) return;
    const { left, right, top, bottom } = { ...margins, [side]: mm(18) } as Record<string, string>;
    editor.call("masters.setMarginsForBodyRegion", master, left, right, top, bottom);
}

function hasStaticContent(editor: Editor, flow: string): boolean {
    const sequence = around(editor, "fo:page-sequence");
    const flowStart = editor.call<string>("getContent", sequence, editor.document.caret);
    return new RegExp(`<fo:static-content[^>]*flow-name="${flow}"`).test(flowStart);
}

function insertStaticContent(editor: Editor, flow: string): void {
    const before = around(editor, "fo:flow");
    if (before < 0) return;
    editor.call(
        "insertXmlTextAtPosition",
        before,
        `<fo:static-content flow-name="${flow}"><fo:block>&#x00A0;</fo:block></fo:static-content>`,
    );
    enter(editor, before);
}

/** From a header or footer back to the text of the page. */
export function backToText(editor: Editor): void {
    editor.call("moveCaretToPageSequence", editor.call<number>("getCurrentPageSequenceIdx"));
    editor.view.scrollToCaret();
}

/** A section at the end of this one, with pages like those around the caret. */
export function addSection(editor: Editor): void {
    const here = editor.call<number>("getCurrentPageSequenceIdx");
    const name = editor.properties("fo:page-sequence").get("fo:master-reference");
    if (here < 0 || !name) return editor.sayRefused();
    editor.step(() => {
        editor.call("sequences.open");
        editor.call("sequences.addNewPageSequence", { name, references: [] });
        let last = editor.call<unknown[]>("sequences.getPageSequenceInfo").length - 1;
        for (; last > here + 1; --last) editor.call("sequences.movePageSequenceUp", last);
        editor.call("sequences.commit");
        editor.call("sequences.close");
        editor.call("moveCaretToPageSequence", here + 1);
    });
    editor.view.scrollToCaret();
}
