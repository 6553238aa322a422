// Headers and footers: to them, and made where the pages have none.

import type { Editor } from "./Editor.ts";
import { currentMaster } from "./dialogs/pageSetup.ts";
import { around, elementRange, enter } from "./markup.ts";
import { lengthInMm, mm } from "./lengths.ts";

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

/** A section behind this one, with pages, headers and footers like those around the caret. */
export function addSection(editor: Editor): void {
  const here = editor.call<number>("getCurrentPageSequenceIdx");
  const name = editor.properties("fo:page-sequence").get("fo:master-reference");
  if (here < 0 || !name) return editor.sayRefused();
  editor.step(() => {
    const last = onSequences(editor, () => {
      editor.call("sequences.addNewPageSequence", { name, references: [{ kind: 1, master: name }] });
      return editor.call<unknown[]>("sequences.getPageSequenceInfo").length - 1;
    });
    dropPresetFont(editor, last);
    onSequences(editor, () => {
      for (let i = last; i > here + 1; --i) editor.call("sequences.movePageSequenceUp", i);
    });
    editor.call("moveCaretToPageSequence", here + 1);
  });
  editor.view.scrollToCaret();
}

function onSequences<T>(editor: Editor, work: () => T): T {
  editor.call("sequences.open");
  try {
    const result = work();
    editor.call("sequences.commit");
    return result;
  } finally {
    editor.call("sequences.close");
  }
}

/** What is new comes with a font of its own; that of the document is what people expect. */
function dropPresetFont(editor: Editor, index: number): void {
  const { start, end } = elementRange(editor, editor.call<number>("getPageSequencePosition", index));
  const preset = ' font-size="12pt" font-family="Times"';
  const markup = editor.call<string>("getContent", start, end);
  for (let at = markup.lastIndexOf(preset); at >= 0; at = markup.lastIndexOf(preset, at - 1))
    editor.call("deleteXmlText", start + at, start + at + preset.length - 1);
}
