// Formats that are chosen with nothing selected hold for what is typed next.

import type { Editor, Property } from "./Editor.ts";
import { DrawnKind } from "../library/Drawn.ts";
import { ancestors, drawn } from "./markup.ts";

const lines: Record<string, string> = {
  "fo:text-underline-style": "underline",
  "fo:text-line-through-style": "line-through",
};

/**
 * Switching a format off at the end of what has it is going on behind it: the caret leaves the
 * inline where what stands around looks as the user wants. Whether it did.
 */
export function leaveInline(editor: Editor, wanted: Property[]): boolean {
  const { caret } = editor.document;
  const [next] = drawn(editor, caret, caret + 1);
  if (next?.kind !== DrawnKind.End || next.text !== "fo:inline") return false;
  const outside = ancestors(editor, caret).at(-2);
  if (!outside) return false;
  const looksAsWanted = editor.state.formats.every(
    ({ name, value }) => editor.call("getComputedProperty", name, outside.start) === wantedValue(wanted, name, value),
  );
  if (!looksAsWanted) return false;
  editor.call("moveCaretRight", false, false, false);
  if (editor.document.caret === next.end) return true;
  editor.call("setCaretPos", false, caret);
  return false;
}

function wantedValue(wanted: Property[], name: string, now: string): string {
  const find = (each: string): string | undefined => wanted.find(property => property[0] === each)?.[1];
  const decoration = find("fo:text-decoration");
  const line = lines[name];
  if (line && decoration !== undefined) return decoration.split(" ").includes(line) ? "solid" : "none";
  return find(name) ?? now;
}
