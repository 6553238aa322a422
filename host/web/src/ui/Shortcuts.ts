// Keys that are commands, ahead of what the text makes of keys.

import type { Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { runCommand } from "./runCommand.ts";
import { Menu } from "./Menu.ts";
import { keysOf } from "./keys.ts";

/** Keys that more than one combination stands for. */
const others: Record<string, string> = {
  "Ctrl+Shift+Z": "Ctrl+Y",
  "Ctrl+Alt+=": "Ctrl+Alt++",
  "Ctrl+Alt+_": "Ctrl+Alt+-",
  ContextMenu: "Shift+F10",
};

export function listenToKeys(editor: Editor, commands: () => Command[]): void {
  addEventListener(
    "keydown",
    event => {
      if (event.isComposing || isElsewhere(event)) return;
      const keys = keysOf(event);
      const command = commands().find(each => each.keys === (others[keys] ?? keys) && !each.keysAreTyped);
      if (!command || command.takesKeys?.(editor) === false) return;
      event.preventDefault();
      event.stopPropagation();
      Menu.closeShown();
      void runCommand(command, editor);
    },
    true,
  );
}

/** In a dialog, a menu or a field of the interface keys mean something else, but for F keys. */
function isElsewhere(event: KeyboardEvent): boolean {
  const target = event.target as Element;
  if (target.closest("dialog, .ui-menu")) return true;
  return target.closest(".ui-find") !== null && !/^F\d+$/.test(event.key) && !(event.ctrlKey && event.key === "h");
}
