// Opening, saving and new documents. Where the browser can write files itself, "Save" writes the one
// that was opened; elsewhere it is a download.

import { language, text } from "../../texts/texts.ts";
import { showChoice, showDialog, tell } from "../Dialog.ts";
import type { Editor } from "../Editor.ts";
import { h } from "../elements.ts";
import { Draft, type Kept } from "./Draft.ts";
import { contentOf, templates, type Template } from "./templates.ts";

interface FileHandle {
  name: string;
  getFile(): Promise<File>;
  createWritable(): Promise<{ write(data: Uint8Array): Promise<void>; close(): Promise<void> }>;
}

/** What browsers with the File System Access API have. */
interface FilePickers {
  showOpenFilePicker?(options: object): Promise<FileHandle[]>;
  showSaveFilePicker?(options: object): Promise<FileHandle>;
}

const pickers = window as FilePickers;
const types = [{ description: "XML, XSL-FO", accept: { "application/xml": [".xml", ".fo", ".qfd"] } }];

export class Files {
  name: string;
  private handle: FileHandle | undefined;
  private savedVersion: number;
  private readonly listeners: (() => void)[] = [];

  constructor(private readonly editor: Editor) {
    this.name = editor.document.fileName || text("file.untitled");
    this.savedVersion = this.version();
    addEventListener("beforeunload", event => {
      if (this.isChanged) event.preventDefault();
    });
  }

  get isChanged(): boolean {
    return this.version() !== this.savedVersion;
  }

  onChange(listener: () => void): void {
    this.listeners.push(listener);
  }

  async new(): Promise<void> {
    const template = await pickTemplate();
    if (!template || !(await this.mayLeave())) return;
    await this.take(text(template.file ? template.text : "file.untitled"), () => contentOf(template));
  }

  async open(): Promise<void> {
    if (!(await this.mayLeave())) return;
    const picked = await pickToOpen();
    if (picked) await this.openFile(picked.file, picked.handle);
  }

  /** An empty page to write on, and what was not saved the last time. */
  async begin(): Promise<void> {
    if (!this.editor.call<string>("getContent")) await this.take(text("file.untitled"), () => contentOf(templates[0]!));
    await this.offerDrafts();
  }

  /** What a window left behind that went away before it was saved. */
  private async offerDrafts(): Promise<void> {
    for (const [id, kept] of await Draft.leftBehind().catch(() => new Map<string, Kept>())) {
      const when = new Date(kept.time).toLocaleString(language(), { dateStyle: "medium", timeStyle: "short" });
      const question = [h("p", {}, text("file.draft", { name: kept.name, when }))];
      const choice = await showChoice("file.draft.title", question, ["file.restore", "file.discardDraft"]);
      if (choice === null) continue; // it is offered again
      if (choice === "file.restore" && !(await this.restore(kept))) continue;
      await Draft.forget(id);
      if (choice === "file.restore") return;
    }
  }

  private async restore(kept: Kept): Promise<boolean> {
    if (!(await this.mayLeave()) || !(await this.take(kept.name, async () => kept.bytes))) return false;
    this.savedVersion = -1;
    this.notify();
    return true;
  }

  async openDropped(file: File): Promise<void> {
    if (await this.mayLeave()) await this.openFile(file);
  }

  private async openFile(file: File, handle?: FileHandle): Promise<void> {
    const bytes = async (): Promise<Uint8Array> => new Uint8Array(await file.arrayBuffer());
    if (await this.take(file.name, bytes)) this.handle = handle;
  }

  /** Whether the document is in a file now. */
  async save(): Promise<boolean> {
    return this.handle ? this.writeTo(this.handle) : this.saveAs();
  }

  async saveAs(): Promise<boolean> {
    const suggestedName = /\.\w+$/.test(this.name) ? this.name : `${this.name}.xml`;
    if (!pickers.showSaveFilePicker) {
      download(suggestedName, this.editor.document.save());
      this.saved();
      return true;
    }
    try {
      const handle = await pickers.showSaveFilePicker({ suggestedName, types });
      return await this.writeTo(handle);
    } catch (failure) {
      return this.onFailure(failure);
    }
  }

  /** As plain XSL-FO, which formatters take. */
  export(): void {
    try {
      const written = this.editor.call<string>("export.getText");
      download(this.name.replace(/\.\w+$/, "") + ".fo", new TextEncoder().encode(written));
    } catch (failure) {
      this.onFailure(failure);
    }
  }

  private async writeTo(handle: FileHandle): Promise<boolean> {
    try {
      const file = await handle.createWritable();
      await file.write(this.editor.document.save());
      await file.close();
    } catch (failure) {
      return this.onFailure(failure);
    }
    this.handle = handle;
    this.name = handle.name;
    this.saved();
    return true;
  }

  private async take(name: string, content: () => Promise<Uint8Array>): Promise<boolean> {
    try {
      this.editor.document.open(await content(), name);
    } catch (failure) {
      await tell("file.open", `${text("file.failed", { name })}: ${messageOf(failure)}`);
      return false;
    }
    this.handle = undefined;
    this.name = name;
    this.savedVersion = this.version();
    this.editor.refreshNow();
    this.editor.view.scrollToCaret();
    this.editor.view.focus();
    this.notify();
    this.editor.say(text("file.opened", { name }));
    return true;
  }

  private saved(): void {
    this.savedVersion = this.version();
    this.notify();
    this.editor.say(text("file.saved"));
  }

  /** A picker that was given up is no failure. */
  private onFailure(failure: unknown): false {
    if (!(failure instanceof DOMException && failure.name === "AbortError"))
      void tell("file.save", `${text("file.saveFailed")}: ${messageOf(failure)}`);
    return false;
  }

  private async mayLeave(): Promise<boolean> {
    if (!this.isChanged) return true;
    const question = [h("p", {}, text("file.unsaved"))];
    const choice = await showChoice("file.unsaved.title", question, ["file.save", "file.discard"]);
    return choice === "file.save" ? this.save() : choice !== null;
  }

  private version(): number {
    return this.editor.call<number>("getTextVersion");
  }

  private notify(): void {
    for (const listener of this.listeners) listener();
  }
}

function messageOf(failure: unknown): string {
  return failure instanceof Error ? failure.message : String(failure);
}

async function pickToOpen(): Promise<{ file: File; handle?: FileHandle } | undefined> {
  if (!pickers.showOpenFilePicker) return pickByInput();
  try {
    const [handle] = await pickers.showOpenFilePicker({ types });
    return handle && { file: await handle.getFile(), handle };
  } catch {
    return undefined; // given up
  }
}

function pickByInput(): Promise<{ file: File } | undefined> {
  const input = h("input", { type: "file", accept: ".xml,.fo,.qfd,application/xml" });
  return new Promise(done => {
    input.onchange = () => done(input.files?.[0] && { file: input.files[0] });
    input.oncancel = () => done(undefined);
    input.click();
  });
}

function download(name: string, bytes: Uint8Array): void {
  const address = URL.createObjectURL(new Blob([bytes as BlobPart], { type: "application/xml" }));
  h("a", { href: address, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(address), 10_000);
}

async function pickTemplate(): Promise<Template | undefined> {
  const list = h(
    "div",
    { class: "ui-templates", role: "radiogroup" },
    ...templates.map((template, i) =>
      h(
        "label",
        { class: "ui-template" },
        h("input", { type: "radio", name: "template", value: i, checked: i === 0 }),
        h("span", { class: `ui-sheet ui-sheet-${i}` }),
        h("span", {}, text(template.text)),
      ),
    ),
  );
  if (!(await showDialog("new.title", [list], "new.create"))) return undefined;
  const chosen = list.querySelector<HTMLInputElement>("input:checked");
  return templates[Number(chosen?.value ?? 0)];
}
