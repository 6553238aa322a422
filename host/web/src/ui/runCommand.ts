// The one way in which menus, toolbar and keys carry a command out.

import { isEnabled, type Command } from "./Command.ts";
import { tell } from "./Dialog.ts";
import type { Editor } from "./Editor.ts";
import { text } from "../texts/texts.ts";

/** What fails is told; the library leaves the document as it was. */
export async function runCommand(command: Command, editor: Editor): Promise<void> {
  if (!isEnabled(command, editor)) return editor.sayRefused();
  try {
    await command.run(editor);
  } catch (failure) {
    console.error(failure);
    const reason = failure instanceof Error ? failure.message : String(failure);
    await tell(command.text, `${text("say.failed")} ${reason}`);
  }
}
