// Where things are in the document's markup, and edits of it that no request makes by itself.

import { DrawnKind, type Drawn } from "../library/Drawn.ts";
import type { Editor } from "./Editor.ts";

export interface Place {
  name: string;
  start: number;
}

/** Units from `start` up to `end`, which is excluded. */
export interface Range {
  start: number;
  end: number;
}

/** What is drawn of a stretch of the text, piece by piece. */
export function* drawn(editor: Editor, start: number, end = Infinity): Generator<Drawn> {
  for (let from = start; from < end;) {
    const pieces = editor.call<Drawn[]>("getDrawn", from, 200);
    if (!pieces.length) return;
    for (const piece of pieces) {
      if (piece.start >= end) return;
      yield piece;
    }
    from = pieces[pieces.length - 1]!.end;
  }
}

/** The elements around an offset, the root first and the innermost last. */
export function ancestors(editor: Editor, offset: number): Place[] {
  const place = editor.call<{ start: number; path: string; around: number[] }>("getElementAt", offset);
  if (place.start < 0) return [];
  const names = place.path.split("/").slice(1);
  return [...place.around, place.start].map((start, i) => ({ name: names[i] ?? "", start }));
}

/** The start of the innermost element of that name around an offset; -1 if there is none. */
export function around(editor: Editor, name: string, offset = editor.document.caret): number {
  return ancestors(editor, offset).findLast(each => each.name === name)?.start ?? -1;
}

/** The whole element whose start tag is at the offset, with its tags. */
export function elementRange(editor: Editor, start: number): Range {
  let depth = 0;
  for (const piece of drawn(editor, start)) {
    if (piece.kind === DrawnKind.Start) ++depth;
    if (piece.kind === DrawnKind.End) --depth;
    if (depth === 0) return { start, end: piece.end };
  }
  throw new RangeError(`no element ends that begins at ${start}`);
}

/** The start and the end of what is selected, equal where nothing is. */
export function selection(editor: Editor): Range {
  const { caret, pivot } = editor.document;
  return { start: Math.min(caret, pivot), end: Math.max(caret, pivot) };
}

/** What a selection runs over and does not mean. */
const standsApart = new Set(["fo:list-item-label", "fo:footnote-body"]);
const holdsLines = new Set(["fo:block", "fo:table", "fo:list-block", "fo:block-container"]);

/** The paragraphs that what is selected touches, or the one around the caret, by their start tags. */
export function paragraphs(editor: Editor): number[] {
  const { start, end } = selection(editor);
  const found = new Set<number>();
  const first = around(editor, "fo:block", start);
  if (first >= 0) found.add(first);
  let open = -1;
  let isApart = false;
  for (const piece of drawn(editor, start, end)) {
    if (standsApart.has(piece.text)) isApart = piece.kind === DrawnKind.Start;
    const beginsBlock = piece.kind === DrawnKind.Start && holdsLines.has(piece.text);
    if (beginsBlock) found.delete(open); // it holds blocks and no line of its own
    open = beginsBlock && piece.text === "fo:block" && !isApart ? piece.start : -1;
    if (open >= 0) found.add(open);
  }
  return [...found].sort((a, b) => a - b);
}

/** Carries caret and selection over changes of the text beside them. */
export function keepingSelection(editor: Editor, work: () => void): void {
  let { caret, pivot } = editor.document;
  const stop = editor.document.listen(({ change }) => {
    if (!change) return;
    const moved = (offset: number): number =>
      offset >= change.start + change.removed ? offset + change.inserted - change.removed : offset;
    caret = moved(caret);
    pivot = moved(pivot);
  });
  try {
    work();
  } finally {
    stop();
  }
  select(editor, pivot, caret);
}

export function select(editor: Editor, pivot: number, caret: number): void {
  editor.call("setCaretPos", false, pivot);
  if (caret !== pivot) editor.call("setCaretPos", true, caret);
}

/** The first place in an element where the caret can stand. */
export function enter(editor: Editor, start: number): void {
  editor.call("setCaretPos", false, editor.call<number>("getNearestStop", start, 1));
}

/** The value that the attribute shall have; null takes it away. */
export type Attributes = Record<string, string | null>;

const attribute = /\s+([^\s=]+)\s*=\s*("[^"]*"|'[^']*')/g;

/** Gives the element whose start tag is at the offset these attributes; others stay as they are. */
export function setAttributes(editor: Editor, start: number, attributes: Attributes): void {
  const [tag] = editor.call<Drawn[]>("getDrawn", start, 1);
  if (!tag || tag.start !== start) return;
  const old = editor.call<string>("getContent", start, tag.end);
  const written = withAttributes(old, attributes);
  if (written !== old) editor.call("replaceXmlText", start, tag.end - 1, written);
}

export function withAttributes(tag: string, attributes: Attributes): string {
  const kept = tag.replace(attribute, (all, name: string) => (plainName(name) in attributes ? "" : all));
  const added = Object.entries(attributes)
    .filter((each): each is [string, string] => each[1] !== null)
    .map(([name, value]) => ` ${name}="${escaped(value)}"`)
    .join("");
  return kept.replace(/\s*\/?>$/, end => added + end);
}

export function attributeOf(tag: string, wanted: string): string | undefined {
  for (const [, name, value] of tag.matchAll(attribute)) if (plainName(name!) === wanted) return value!.slice(1, -1);
  return undefined;
}

function plainName(name: string): string {
  return name.startsWith("fo:") ? name.slice(3) : name;
}

export function escaped(text: string): string {
  return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;").replace(/"/g, "&quot;");
}
