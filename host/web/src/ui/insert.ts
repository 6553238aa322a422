// What is inserted at the caret: images, links, notes, lines.

import { language, text } from "../texts/texts.ts";
import { askFields, showDialog } from "./Dialog.ts";
import type { Editor } from "./Editor.ts";
import { around, elementRange, escaped, keepingSelection, select, selection, setAttributes } from "./markup.ts";
import { lengthInMm, mm } from "./lengths.ts";

/** Markup in the place of what is selected. */
export function insertMarkup(editor: Editor, markup: string): void {
  if (!editor.call<boolean>("insertText", markup, true, false)) editor.sayRefused();
}

const largeImage = 2; // MB

export async function insertImage(editor: Editor): Promise<void> {
  const file = await pickFile("image/*");
  if (file) await insertImageFile(editor, file);
}

/** The image becomes a part of the document, which then needs no other file. */
export async function insertImageFile(editor: Editor, file: File): Promise<void> {
  const size = file.size / 2 ** 20;
  if (size > largeImage) {
    const question = text("insert.image.large", { size: Math.round(size * 10) / 10 });
    if (!(await showDialog("insert.image", [question]))) return;
  }
  const address = await dataAddress(file);
  const width = await shownWidth(editor, address);
  const values = await askFields("insert.image", [
    {
      fields: [
        { name: "alt", label: "insert.image.alt", value: "" },
        { name: "width", label: "page.width", kind: "length", value: mm(width) },
      ],
    },
  ]);
  if (!values) return;
  const alt = values["alt"] ? ` role="${escaped(values["alt"])}"` : "";
  insertMarkup(
    editor,
    `<fo:external-graphic src="url('${address}')" content-width="${values["width"] || mm(width)}" scaling="uniform"${alt}/>`,
  );
}

function pickFile(accept: string): Promise<File | undefined> {
  const input = document.createElement("input");
  input.type = "file";
  input.accept = accept;
  return new Promise(done => {
    input.onchange = () => done(input.files?.[0]);
    input.oncancel = () => done(undefined);
    input.click();
  });
}

function dataAddress(file: File): Promise<string> {
  return new Promise((done, fail) => {
    const reader = new FileReader();
    reader.onload = () => done(String(reader.result));
    reader.onerror = () => fail(reader.error);
    reader.readAsDataURL(file);
  });
}

/** In millimetres: as the image says, but no wider than the line. */
async function shownWidth(editor: Editor, address: string): Promise<number> {
  const image = new Image();
  image.src = address;
  await image.decode().catch(() => undefined);
  const block = editor.view.elementAt(around(editor, "fo:block"));
  const line = block ? block.clientWidth : Infinity;
  return lengthInMm(`${Math.min(image.naturalWidth || 200, line)}px`)!;
}

/** Of a link around the caret it is the address that changes. */
export async function editLink(editor: Editor): Promise<void> {
  const link = around(editor, "fo:basic-link");
  const hasText = link >= 0 || editor.state.hasSelection;
  const values = await askFields("insert.link", [
    {
      fields: [
        { name: "address", label: "insert.link.address", value: link < 0 ? "https://" : linkAddress(editor) },
        ...(hasText ? [] : [{ name: "text", label: "insert.link.text", value: "" } as const]),
      ],
    },
  ]);
  if (!values?.["address"]) return;
  const address = completed(values["address"].trim());
  const destination = `url('${address.replace(/'/g, "%27")}')`;
  if (link >= 0) {
    keepingSelection(editor, () => setAttributes(editor, link, { "external-destination": destination }));
    return;
  }
  const content = editor.state.hasSelection
    ? inlineContent(editor.call<string>("getSelectionAs", 2))
    : escaped(values["text"] || address);
  const look = 'color="#1c5d99" text-decoration="underline"';
  insertMarkup(
    editor,
    `<fo:basic-link external-destination="${escaped(destination)}" ${look}>${content}</fo:basic-link>`,
  );
}

/** What people leave out of an address. */
function completed(address: string): string {
  if (/^[\w.+-]+@[\w-]+(\.[\w-]+)+$/.test(address)) return `mailto:${address}`;
  return /^[\w-]+(\.[\w-]+)+([/?#:].*)?$/.test(address) ? `https://${address}` : address;
}

/** What a selection holds, without the paragraphs around it. */
function inlineContent(markup: string): string {
  return markup.replace(/<\/?fo:(block|basic-link)\b[^>]*>/g, "").replace(/\s*\n\s*/g, " ");
}

/** Of the link around the caret; empty outside of one. */
export function linkAddress(editor: Editor): string {
  const link = editor.properties("fo:basic-link");
  const address = link.get("fo:external-destination") ?? "";
  return /^\s*url\(\s*['"]?(.*?)['"]?\s*\)\s*$/.exec(address)?.[1] ?? address;
}

/** The text of the link stays. */
export function removeLink(editor: Editor): void {
  const link = around(editor, "fo:basic-link");
  if (link < 0) return;
  const range = elementRange(editor, link);
  const markup = editor.call<string>("getContent", range.start, range.end);
  const tagEnd = markup.indexOf(">") + 1;
  editor.step(() =>
    keepingSelection(editor, () => {
      editor.call("deleteXmlText", range.end - "</fo:basic-link>".length, range.end - 1);
      editor.call("deleteXmlText", link, link + tagEnd - 1);
    }),
  );
}

export async function insertFootnote(editor: Editor): Promise<void> {
  const values = await askFields("insert.footnote", [
    { fields: [{ name: "text", label: "insert.footnote.text", kind: "lines", value: "" }] },
  ]);
  if (!values) return;
  const caret = selection(editor).end;
  select(editor, caret, caret);
  const before = editor.call<string>("getContent", 0, caret);
  const mark = `<fo:inline font-size="65%" baseline-shift="super">${countOf(before, "<fo:footnote>") + 1}</fo:inline>`;
  const body = `<fo:footnote-body><fo:block font-size="8pt">${mark} ${escaped(values["text"]!)}</fo:block></fo:footnote-body>`;
  insertMarkup(editor, `<fo:footnote>${mark}${body}</fo:footnote>`);
}

function countOf(text: string, part: string): number {
  return text.split(part).length - 1;
}

export function insertDate(editor: Editor): void {
  const date = new Date().toLocaleDateString(language(), { dateStyle: "long" });
  editor.call("insertText", date, false, false);
}
