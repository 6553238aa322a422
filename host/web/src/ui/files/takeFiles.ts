// Files that are dropped on the page, and pictures that are pasted.

import type { Editor } from "../Editor.ts";
import { insertImageFile } from "../insert.ts";
import type { Files } from "./Files.ts";

/** A picture goes into the text; anything else is opened as a document. */
export function takeFiles(editor: Editor, files: Files): void {
  const { page } = editor;
  page.addEventListener("dragover", event => {
    if (event.dataTransfer?.types.includes("Files")) event.preventDefault();
  });
  page.addEventListener("drop", event => {
    const file = event.dataTransfer?.files[0];
    if (!file) return;
    event.preventDefault();
    event.stopPropagation();
    if (isPicture(file)) void insertAt(editor, file, event);
    else void files.openDropped(file);
  });
  addEventListener("paste", event => onPaste(editor, event), true);
}

function isPicture(file: File): boolean {
  return file.type.startsWith("image/");
}

function insertAt(editor: Editor, file: File, { clientX, clientY }: MouseEvent): Promise<void> {
  const offset = editor.view.offsetAt(clientX, clientY);
  if (offset !== null) editor.call("setCaretPos", false, editor.call("getNearestStop", offset, 2));
  return insertImageFile(editor, file);
}

/** Programs that copy text often add a picture of it: that is not what is meant. */
function onPaste(editor: Editor, event: ClipboardEvent): void {
  const data = event.clipboardData;
  const file = data?.files[0];
  if (!file || !isPicture(file) || data.types.includes("text/html") || data.types.includes("text/plain")) return;
  if (editor.state.isProtected || (event.target as Element).closest("dialog, .ui-find")) return;
  event.preventDefault();
  event.stopPropagation();
  void insertImageFile(editor, file);
}
