// Builds the interface around the pages.

import "./ui.css";

import type { FormeDocument } from "../library/FormeDocument.ts";
import { language, text } from "../texts/texts.ts";
import type { View } from "../view/View.ts";
import { applyAppearance } from "./appearance.ts";
import type { Command } from "./Command.ts";
import { ContextMenu } from "./ContextMenu.ts";
import { openKeyboardHelp } from "./dialogs/keyboardHelp.ts";
import { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import { Files } from "./files/Files.ts";
import { DocumentText } from "./find/DocumentText.ts";
import { FindBar } from "./find/FindBar.ts";
import { commandNamed, commandsByMenu, makeCommands, menusOf, tools } from "./layout.ts";
import { attachLiveRegion } from "./LiveRegion.ts";
import { MenuBar } from "./MenuBar.ts";
import type { Parts } from "./Parts.ts";
import { readAtCaret } from "./reading.ts";
import { sayStates } from "./sayStates.ts";
import { Draft } from "./files/Draft.ts";
import { takeFiles } from "./files/takeFiles.ts";
import { listenToKeys } from "./Shortcuts.ts";
import { Spelling } from "./Spelling.ts";
import { StatusBar } from "./StatusBar.ts";
import { CellSelection } from "./tables/CellSelection.ts";
import { ColumnDrag } from "./tables/ColumnDrag.ts";
import { Toolbar } from "./Toolbar.ts";
import { WordCount } from "./WordCount.ts";
import { Zoom } from "./Zoom.ts";

/** What is built anew when the language changes. */
interface Frame {
  commands: Command[];
  update(): void;
  remove(): void;
  focusMenuBar(): void;
}

export function startInterface(document: FormeDocument, view: View, page: HTMLElement): void {
  const editor = new Editor(document, view, page);
  const spelling = new Spelling(editor);
  const documentText = new DocumentText(editor);
  const contextMenu = new ContextMenu(editor, spelling);
  const parts: Parts = {
    files: new Files(editor),
    findBar: new FindBar(editor, documentText),
    spelling,
    zoom: new Zoom(page),
    words: new WordCount(editor, documentText),
    speak() {
      frame.remove();
      parts.findBar = new FindBar(editor, documentText);
      frame = buildFrame(editor, parts);
      view.focus();
    },
    focusMenuBar: () => frame.focusMenuBar(),
    showKeys: () => void openKeyboardHelp(commandsByMenu(parts)),
    openContextMenu: () => void contextMenu.openAtCaret(),
  };
  applyAppearance();
  attachLiveRegion();
  new ColumnDrag(editor);
  new CellSelection(editor);
  globalThis.document.documentElement.lang = language();
  let frame = buildFrame(editor, parts);
  editor.onState(() => frame.update());
  listenToKeys(editor, () => frame.commands);
  sayStates(editor, () => frame.commands);
  readAtCaret(editor);
  takeFiles(editor, parts.files);
  new Draft(editor, parts.files);
  void parts.files.begin();
}

function buildFrame(editor: Editor, parts: Parts): Frame {
  const commands = makeCommands(parts);
  const menuBar = new MenuBar(editor, menusOf(parts));
  const toolbar = new Toolbar(editor, tools());
  const title = h("span", { class: "ui-title" });
  const status = new StatusBar(editor, parts.words, parts.zoom, {
    zoomIn: commandNamed("zoomIn"),
    zoomOut: commandNamed("zoomOut"),
    words: commandNamed("words"),
  });
  const header = h(
    "header",
    { class: "ui-header" },
    h("div", { class: "ui-top" }, menuBar.element, title),
    toolbar.element,
    parts.findBar.element,
  );
  for (const bar of [header, status.element]) bar.addEventListener("pointerdown", keepFocus);
  editor.page.before(header);
  editor.page.after(status.element);

  const showTitle = (): void => {
    const { name, isChanged } = parts.files;
    const shown = isChanged ? `${name} – ${text("file.changed")}` : name;
    if (title.textContent !== shown) title.textContent = document.title = shown;
  };
  parts.files.onChange(showTitle);
  showTitle();
  return {
    commands,
    update() {
      toolbar.update();
      status.update();
      showTitle();
    },
    remove() {
      header.remove();
      status.element.remove();
    },
    focusMenuBar: () => menuBar.focus(),
  };
}

/** A click beside what takes the focus leaves it to the text; so does a button, which gives it back. */
function keepFocus(event: Event): void {
  const isField = (event.target as Element).closest("input, select, label, .ui-menubar, .ui-opener");
  if (!isField) event.preventDefault();
}
