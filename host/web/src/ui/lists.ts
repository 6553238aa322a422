// Lists of several paragraphs, and items that go in and out. One item at the caret is the library's.

import type { Editor } from "./Editor.ts";
import { ListType } from "./EditingState.ts";
import { DrawnKind, type Drawn } from "../library/Drawn.ts";
import { around, drawn, elementRange, paragraphs, select, type Range } from "./markup.ts";
import { lengthInMm, mm } from "./lengths.ts";
import { setOnParagraphs } from "./styles.ts";

const indentStep = 10; // mm
const listEnd = "</fo:list-block>";
const bodyEnd = "</fo:list-item-body>";

/** The button of a toolbar. */
export function toggleList(editor: Editor, type: ListType): void {
  const blocks = paragraphs(editor).map(start => elementRange(editor, start));
  if (editor.state.list === ListType.None && blocks.length && areSiblings(editor, blocks))
    makeListOf(editor, blocks, type);
  else editor.call("makeList", type);
}

/** Whether nothing but white space lies between them. */
function areSiblings(editor: Editor, blocks: Range[]): boolean {
  return blocks.every((block, i) => {
    const next = blocks[i + 1];
    return !next || editor.call<string>("getContent", block.end, next.start).trim() === "";
  });
}

/** Caret and selection stay in the text that they were in. */
function makeListOf(editor: Editor, blocks: Range[], type: ListType): void {
  const { caret, pivot } = editor.document;
  let label = editor.call<string>("getFirstListLabel", type);
  let list = "<fo:list-block>";
  const moves = blocks.map(block => {
    const [before, behind] = itemAround(label, type);
    const move = { ...block, by: blocks[0]!.start + list.length + before.length - block.start };
    list += before + editor.call<string>("getContent", block.start, block.end) + behind;
    label = editor.call<[string, number]>("getNextLabel", label)[0];
    return move;
  });
  const moved = (offset: number): number => {
    const block = moves.find(each => offset < each.end) ?? moves.at(-1)!;
    return offset + block.by;
  };
  editor.step(() => {
    editor.call("replaceXmlText", blocks[0]!.start, blocks.at(-1)!.end - 1, `${list}</fo:list-block>`);
    select(editor, moved(pivot), moved(caret));
  });
}

function drawnIn(editor: Editor, start: number, length: number): Drawn[] {
  return [...drawn(editor, start, start + length)];
}

/** The markup of an item before and behind what it holds. */
function itemAround(label: string, type: ListType): [string, string] {
  const look = type === ListType.Bullets ? ' font-size="1.5em" line-height="1em"' : "";
  return [
    `<fo:list-item><fo:list-item-label end-indent="label-end()"><fo:block${look}>${label}</fo:block>` +
      '</fo:list-item-label><fo:list-item-body start-indent="body-start()">',
    "</fo:list-item-body></fo:list-item>",
  ];
}

/** A level in or out: of an item of a list, else of the paragraphs. */
export function indent(editor: Editor, levels: 1 | -1): void {
  if (around(editor, "fo:list-item") < 0) indentParagraphs(editor, levels);
  else if (levels === 1) nestItem(editor);
  else liftItem(editor);
}

function indentParagraphs(editor: Editor, levels: number): void {
  const now = editor.call<string>("getComputedProperty", "start-indent", paragraphs(editor)[0] ?? -1);
  const wanted = Math.max(0, (lengthInMm(now) ?? 0) + levels * indentStep);
  setOnParagraphs(editor, { "start-indent": wanted ? mm(wanted) : null });
}

/** The item becomes one of a list in the item before it. */
function nestItem(editor: Editor): void {
  const item = around(editor, "fo:list-item");
  const previous = editor.call<number>("getPreviousItemPos", item);
  if (previous < 0) return editor.sayRefused();
  const body = elementRange(editor, editor.call<number>("getItemBodyPos", previous));
  const inner = lastListIn(editor, body);
  const caret = editor.document.caret - item;
  editor.step(() => {
    const markup = cut(editor, elementRange(editor, item));
    const list = inner ? markup : `<fo:list-block>${markup}</fo:list-block>`;
    const at = inner ? inner.end - listEnd.length : body.end - bodyEnd.length;
    insertItem(editor, at, list, caret + list.indexOf(markup));
    renumber(editor, previous);
  });
}

/** A list that the body of an item ends with. */
function lastListIn(editor: Editor, body: Range): Range | undefined {
  const pieces = drawnIn(editor, body.start, body.end - body.start);
  const last = pieces[pieces.length - 2];
  if (!last || last.kind !== DrawnKind.End || last.text !== "fo:list-block") return undefined;
  const start = around(editor, "fo:list-block", last.start);
  return start < 0 ? undefined : { start, end: last.end };
}

/** The item goes behind the one that its list stands in. */
function liftItem(editor: Editor): void {
  const item = around(editor, "fo:list-item");
  const list = editor.call<number>("getListPos", item);
  const outer = around(editor, "fo:list-item", list);
  if (outer < 0 || outer === item) return leaveList(editor, item, elementRange(editor, list));
  const isOnly = editor.call<number>("getCurrentListSize") === 1;
  const caret = editor.document.caret - item;
  editor.step(() => {
    const markup = editor.call<string>("getContent", item, elementRange(editor, item).end);
    cut(editor, elementRange(editor, isOnly ? list : item));
    insertItem(editor, elementRange(editor, outer).end, markup, caret);
    renumber(editor, outer);
  });
}

/** The paragraphs of the item stand by themselves; items on both sides stay lists. */
function leaveList(editor: Editor, item: number, list: Range): void {
  if (editor.call<number>("getCurrentListSize") === 1) return editor.call("makeList", editor.state.list);
  const isFirst = editor.call<number>("getPreviousItemPos", item) < 0;
  const isLast = editor.call<number>("getNextItemPos", item) < 0;
  const body = elementRange(editor, editor.call<number>("getItemBodyPos", item));
  const markup = editor.call<string>("getContent", body.start, body.end);
  const inside = markup.indexOf(">") + 1;
  const content = markup.slice(inside, -bodyEnd.length);
  const caret = editor.document.caret - body.start - inside;
  const tag = editor.call<string>("getContent", list.start, list.end).split(">")[0] + ">";
  editor.step(() => {
    const removed = cut(editor, elementRange(editor, item)).length;
    if (isFirst) return insertItem(editor, list.start, content, caret);
    if (isLast) return insertItem(editor, list.end - removed, content, caret);
    insertItem(editor, item, listEnd + content + tag, listEnd.length + caret);
    renumber(editor, item + listEnd.length + content.length + tag.length);
  });
}

function cut(editor: Editor, range: Range): string {
  return editor.call<string>("deleteXmlText", range.start, range.end - 1);
}

/** The caret goes to an offset in the markup. */
function insertItem(editor: Editor, at: number, markup: string, caret: number): void {
  editor.call("insertXmlTextAtPosition", at, markup);
  editor.call("setCaretPos", false, at + caret);
}

/** Numbers the list that an item stands in and the one around the caret, where they have numbers. */
function renumber(editor: Editor, item: number): void {
  const isNumber = (each: number): boolean => /^\d+\)$/.test(editor.call<string>("getItemLabelValue", each).trim());
  for (const each of [item, editor.document.caret]) if (isNumber(each)) editor.call("recalculateNumbering", each);
}
