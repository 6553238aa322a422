// Undo, the clipboard and what is found.

import { text } from "../../texts/texts.ts";
import type { Command } from "../Command.ts";
import type { Editor } from "../Editor.ts";
import type { Parts } from "../Parts.ts";

export function editCommands(parts: Parts): Command[] {
  const { findBar, spelling } = parts;
  return [
    {
      id: "undo",
      text: "edit.undo",
      icon: "undo",
      keys: "Ctrl+Z",
      isEnabled: editor => editor.state.canUndo,
      run: editor => step(editor, "undo"),
    },
    {
      id: "redo",
      text: "edit.redo",
      icon: "redo",
      keys: "Ctrl+Y",
      isEnabled: editor => editor.state.canRedo,
      run: editor => step(editor, "redo"),
    },
    {
      id: "cut",
      text: "edit.cut",
      icon: "cut",
      keys: "Ctrl+X",
      keysAreTyped: true,
      isEnabled: editor => editor.state.canCut,
      run: editor => byBrowser(editor, "cut"),
    },
    {
      id: "copy",
      text: "edit.copy",
      icon: "copy",
      keys: "Ctrl+C",
      keysAreTyped: true,
      isEnabled: editor => editor.state.hasSelection,
      run: editor => byBrowser(editor, "copy"),
    },
    {
      id: "paste",
      text: "edit.paste",
      icon: "paste",
      keys: "Ctrl+V",
      keysAreTyped: true,
      edits: true,
      isEnabled: editor => editor.state.canPaste,
      run: paste,
    },
    {
      id: "pasteText",
      text: "edit.pasteText",
      keys: "Ctrl+Shift+V",
      edits: true,
      isEnabled: editor => editor.state.canPaste,
      run: pasteText,
    },
    { id: "selectAll", text: "edit.selectAll", keys: "Ctrl+A", keysAreTyped: true, run: selectAll },
    { id: "find", text: "edit.find", icon: "find", keys: "Ctrl+F", run: () => findBar.open(false) },
    { id: "replace", text: "edit.replace", keys: "Ctrl+H", run: editor => findBar.open(!editor.state.isProtected) },
    { id: "findNext", text: "edit.findNext", keys: "F3", run: () => findBar.go(true) },
    { id: "findPrevious", text: "edit.findPrevious", keys: "Shift+F3", run: () => findBar.go(false) },
    { id: "nextMisspelt", text: "spelling.next", icon: "spelling", keys: "F7", run: () => spelling.next() },
  ];
}

function step(editor: Editor, name: "undo" | "redo"): void {
  editor.call(name);
  editor.view.scrollToCaret();
  editor.say(text(`edit.${name}`));
}

function selectAll(editor: Editor): void {
  editor.call("moveCaretHome", false);
  editor.call("moveCaretToEnd", true);
}

/** The text's own input hears of it and fills the clipboard. */
function byBrowser(editor: Editor, name: "cut" | "copy"): void {
  editor.view.focus();
  document.execCommand(name);
}

async function paste(editor: Editor): Promise<void> {
  try {
    for (const item of await navigator.clipboard.read()) {
      const content = async (type: string): Promise<string> => (await item.getType(type)).text();
      if (item.types.includes("text/html") && editor.call<boolean>("pasteHtml", await content("text/html"))) return;
      if (item.types.includes("text/plain")) editor.call("pasteText", await content("text/plain"));
    }
  } catch {
    editor.say(text("edit.pasteDenied"));
  }
}

async function pasteText(editor: Editor): Promise<void> {
  try {
    editor.call("pasteText", await navigator.clipboard.readText());
  } catch {
    editor.say(text("edit.pasteDenied"));
  }
}
