// What the user can tell the editor to do. Menus, toolbar and keys are built from one table of these.

import type { TextKey } from "../texts/texts.ts";
import type { Editor } from "./Editor.ts";
import type { Pressed } from "./EditingState.ts";
import type { IconName } from "./icons.ts";

export interface Command {
  id: string;
  text: TextKey;
  /** In the place of the text where many commands share one. */
  label?: string;
  icon?: IconName;
  /** "Ctrl+Shift+L", in the order Ctrl, Alt, Shift. */
  keys?: string;
  /** The text's own input carries the keys out; they are only shown. */
  keysAreTyped?: boolean;
  /** Where it is not so, its keys mean what they mean to the text. */
  takesKeys?(editor: Editor): boolean;
  /** Whether it would change the document, so that a protected one does not offer it. */
  edits?: boolean;
  isEnabled?(editor: Editor): boolean;
  pressed?(editor: Editor): Pressed;
  run(editor: Editor): void | Promise<void>;
}

export function isEnabled(command: Command, editor: Editor): boolean {
  if (command.edits && editor.state.isProtected) return false;
  return command.isEnabled?.(editor) ?? true;
}
