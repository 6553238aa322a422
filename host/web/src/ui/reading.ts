// Tells a screen reader what stands where the caret has come to, since the pages are no text field.

import { announce } from "./LiveRegion.ts";
import type { Editor } from "./Editor.ts";
import { paragraphsOf } from "./find/Paragraph.ts";
import { selection, type Range } from "./markup.ts";

const pause = 120; // ms, so that a caret that is held moving says only where it stops
const longest = 400; // characters that are read at once

const enum Unit {
  Character = 0,
  Word = 1,
  Paragraph = 3,
}

export function readAtCaret(editor: Editor): void {
  let due: ReturnType<typeof setTimeout> | undefined;
  let before = editor.document.caret;
  editor.document.listen(reply => {
    if (reply.change) before = reply.caret;
    if (reply.change || reply.caret < 0 || !isTextFocused()) return;
    clearTimeout(due);
    due = setTimeout(() => {
      announce(wordsFor(editor, before, editor.document.caret));
      before = editor.document.caret;
    }, pause);
  });
}

/** In a field or a menu of the interface the reader speaks of that. */
function isTextFocused(): boolean {
  return !document.activeElement?.closest(".ui-header, .ui-menu, dialog, .ui-status");
}

/** What is selected; else the character or word that the caret has come to, or the new paragraph. */
function wordsFor(editor: Editor, before: number, caret: number): string {
  const selected = selection(editor);
  if (selected.end > selected.start) return textOf(editor, selected);
  const around = (unit: Unit): Range | null => editor.call("getRangeAround", unit, caret);
  const paragraph = around(Unit.Paragraph);
  if (!paragraph || before < paragraph.start || before > paragraph.end)
    return paragraph ? textOf(editor, paragraph) : "";
  const character = around(Unit.Character);
  const step = character ? character.end - character.start : 1;
  const unit = Math.abs(caret - before) <= step ? character : (around(Unit.Word) ?? character);
  return unit ? textOf(editor, unit) : "";
}

function textOf(editor: Editor, { start, end }: Range): string {
  let read = "";
  for (const paragraph of paragraphsOf(editor, start, end)) {
    read += `${paragraph.between(start, end)} `;
    if (read.length > longest) break;
  }
  return read.slice(0, longest).trim();
}
