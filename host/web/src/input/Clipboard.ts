// What is copied goes out as markup of the document, as HTML and as plain text; the best that another
// program, or this one, put there comes in.

import type { FormeDocument } from "../library/FormeDocument.ts";

const nativeType = "text/x-forme";
export const nativeFormat = 2;

export class Clipboard {
  constructor(private readonly doc: FormeDocument) {}

  /** Whether there was anything to take along. */
  copy(data: DataTransfer): boolean {
    if (!this.doc.hasSelection) return false;
    data.setData("text/plain", this.doc.call<string>("getSelectionAsText"));
    data.setData("text/html", this.doc.call<string>("getSelectionAsHtml"));
    data.setData(nativeType, this.doc.call<string>("getSelectionAs", nativeFormat));
    return true;
  }

  cut(data: DataTransfer): boolean {
    if (!this.copy(data)) return false;
    this.doc.call("erase", false, false);
    return true;
  }

  paste(data: DataTransfer): void {
    const native = data.getData(nativeType);
    const html = data.getData("text/html");
    const text = data.getData("text/plain");
    if (native) this.doc.call("pasteMarkup", native);
    else if (html) this.doc.call("pasteHtml", html);
    else if (text) this.doc.call("pasteText", text);
  }
}
