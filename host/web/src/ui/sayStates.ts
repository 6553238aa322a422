// Tells a screen reader which format a key has switched on or off.

import { text } from "../texts/texts.ts";
import { labelOf } from "./Menu.ts";
import type { Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";

const said = new Set(["bold", "italic", "underline", "strike", "superscript", "subscript", "bullets", "numbers"]);

/** Only right after a command: moving the caret through formatted text says nothing. */
export function sayStates(editor: Editor, commands: () => Command[]): void {
  let before = new Map<string, boolean>();
  let caret = -1;
  let version = -1;
  editor.onState(() => {
    const now = new Map<string, boolean>();
    for (const command of commands()) if (said.has(command.id)) now.set(command.id, command.pressed?.(editor) === true);
    const newVersion = editor.call<number>("getTextVersion");
    const isSamePlace = editor.document.caret === caret || (editor.state.hasSelection && newVersion !== version);
    if (isSamePlace) sayDifference(editor, commands(), before, now);
    before = now;
    caret = editor.document.caret;
    version = newVersion;
  });
}

function sayDifference(
  editor: Editor,
  commands: Command[],
  before: Map<string, boolean>,
  now: Map<string, boolean>,
): void {
  for (const [id, isOn] of now) {
    if (before.get(id) === undefined || before.get(id) === isOn) continue;
    const command = commands.find(each => each.id === id)!;
    editor.say(text(isOn ? "say.on" : "say.off", { what: labelOf(command) }));
  }
}
