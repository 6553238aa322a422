// A field that nobody sees has the focus: it hears keys, characters, input methods and the clipboard.

import type { FormeDocument } from "../library/FormeDocument.ts";
import type { DocumentView } from "../view/DocumentView.ts";
import { Clipboard } from "./Clipboard.ts";
import { Keyboard } from "./Keyboard.ts";

export class TextInput {
  readonly clipboard: Clipboard;
  readonly #field = document.createElement("textarea");
  readonly #keyboard: Keyboard;

  constructor(
    private readonly doc: FormeDocument,
    private readonly view: DocumentView,
  ) {
    this.clipboard = new Clipboard(doc);
    this.#keyboard = new Keyboard(doc, view);
    const field = this.#field;
    field.className = "input";
    field.ariaLabel = "Document";
    field.autocapitalize = "off";
    field.setAttribute("autocomplete", "off");
    field.spellcheck = false;
    view.pagesElement.append(field);
    view.onFocus = () => field.focus({ preventScroll: true });
    field.addEventListener("keydown", event => this.#onKey(event));
    field.addEventListener("beforeinput", event => this.#onInput(event));
    field.addEventListener("compositionstart", () => {
      view.caret.isComposing = true;
    });
    field.addEventListener("compositionupdate", event => this.#compose(event.data));
    field.addEventListener("compositionend", event => this.#endComposition(event.data));
    field.addEventListener("copy", event => this.#onClipboard(event, data => this.clipboard.copy(data)));
    field.addEventListener("cut", event => this.#onClipboard(event, data => this.clipboard.cut(data)));
    field.addEventListener("paste", event => this.#onClipboard(event, data => this.clipboard.paste(data)));
    field.addEventListener("blur", () => doc.call("endKeyTypingSequence"));
    view.onDrawn(() => this.#followCaret());
    view.focus();
  }

  #onKey(event: KeyboardEvent): void {
    if (!event.isComposing && this.#keyboard.press(event)) event.preventDefault();
  }

  #onInput(event: InputEvent): void {
    if (event.isComposing || event.inputType === "insertCompositionText") return;
    event.preventDefault();
    if (event.inputType === "insertText" || event.inputType === "insertReplacementText")
      this.#type(event.data ?? event.dataTransfer?.getData("text/plain") ?? "");
  }

  #type(text: string): void {
    if (text === "") return;
    this.view.goalX = null;
    const formats = this.doc.typingFormats;
    this.doc.typingFormats = [];
    if (formats.length > 0) this.doc.call("insertText", text, formats, false, false);
    else this.doc.call("insertText", text, false, false);
  }

  /** The text of an input method stands in the document while it is made, selected. */
  #compose(text: string): void {
    if (text !== "") this.doc.call("insertText", text, false, true);
    else if (this.doc.hasSelection) this.doc.call("erase", false, false);
  }

  #endComposition(text: string): void {
    this.view.caret.isComposing = false;
    this.#field.value = "";
    if (text !== "") this.doc.call("insertText", text, false, false);
    else if (this.doc.hasSelection) this.doc.call("erase", false, false);
    this.view.caret.draw();
  }

  #onClipboard(event: ClipboardEvent, act: (data: DataTransfer) => unknown): void {
    event.preventDefault();
    if (event.clipboardData) act(event.clipboardData);
  }

  /** Windows of input methods open where the field is. */
  #followCaret(): void {
    const box = this.view.caret.box;
    if (!box) return;
    const origin = this.view.pagesElement.getBoundingClientRect();
    const zoom = this.view.pagesElement.currentCSSZoom ?? 1;
    const css = `translate(${(box.left - origin.left) / zoom}px, ${(box.top - origin.top) / zoom}px)`;
    if (this.#field.style.transform !== css) this.#field.style.transform = css;
  }
}
