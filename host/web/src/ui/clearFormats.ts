// Takes what was set on the text itself away; paragraphs stay as they are.

import type { Editor, Property } from "./Editor.ts";
import { DrawnKind, type Drawn } from "../library/Drawn.ts";
import { ancestors, drawn, keepingSelection, selection, type Range } from "./markup.ts";

const initial: Property[] = [
  ["fo:font-weight", "normal"],
  ["fo:font-style", "normal"],
  ["fo:text-decoration", "none"],
  ["fo:baseline-shift", "baseline"],
];

export function clearFormats(editor: Editor): void {
  editor.step(() => {
    if (isCutFromInline(editor)) editor.call("setProperties", initial, "");
    keepingSelection(editor, () => {
      for (const tag of tagsOfInlines(editor, wholeInlines(editor)))
        editor.call("deleteXmlText", tag.start, tag.end - 1);
    });
  });
}

/** The selection with the tags of inlines beside it, which only hold what is selected. */
function wholeInlines(editor: Editor): Range {
  let { start, end } = selection(editor);
  for (const { name, start: tag } of ancestors(editor, start).reverse()) {
    if (name !== "fo:inline" || editor.call<Drawn[]>("getDrawn", tag, 1)[0]!.end !== start) break;
    start = tag;
  }
  for (const piece of drawn(editor, end)) {
    if (piece.kind !== DrawnKind.End || piece.text !== "fo:inline" || piece.start !== end) break;
    end = piece.end;
  }
  return { start, end };
}

/** Whether an inline goes on beyond what is selected, so that it cannot go. */
function isCutFromInline(editor: Editor): boolean {
  const { start, end } = wholeInlines(editor);
  return [start, end].some(edge =>
    ancestors(editor, edge).some(each => each.name === "fo:inline" && each.start < edge),
  );
}

/** The tags of all inlines that lie in the range, the last one first. */
function tagsOfInlines(editor: Editor, { start, end }: Range): Range[] {
  const tags: Range[] = [];
  const open: Range[] = [];
  for (const piece of drawn(editor, start, end)) {
    if (piece.text !== "fo:inline") continue;
    if (piece.kind === DrawnKind.Start) open.push(piece);
    const begun = piece.kind === DrawnKind.End && open.pop();
    if (begun) tags.push(begun, piece);
  }
  return tags.sort((a, b) => b.start - a.start);
}
