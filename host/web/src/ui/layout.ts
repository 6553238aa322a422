// Which commands stand in which menu and where in the toolbar.

import type { TextKey } from "../texts/texts.ts";
import type { Command } from "./Command.ts";
import { editCommands } from "./commands/editCommands.ts";
import { fileCommands } from "./commands/fileCommands.ts";
import { formatCommands, lineSpacingCommands } from "./commands/formatCommands.ts";
import { insertCommands } from "./commands/insertCommands.ts";
import { borderCommands, tableCommands } from "./commands/tableCommands.ts";
import { appearanceCommands, languageCommands, spellingCommands, viewCommands } from "./commands/viewCommands.ts";
import type { MenuEntry, Submenu } from "./Menu.ts";
import type { Parts } from "./Parts.ts";
import { symbolGrid } from "./symbols.ts";
import { tableGrid } from "./tables/tableGrid.ts";
import type { ControlMaker } from "./Toolbar.ts";
import {
  backgroundColor,
  fontPicker,
  menuOpener,
  sizePicker,
  stylePicker,
  tableOpener,
  textColor,
} from "./toolbarControls.ts";

type Line = string | Submenu;

const styles = ["body", "title", "subtitle", "heading1", "heading2", "heading3", "quote", "code"];
const separator = "-";

const menuTables: [TextKey, (parts: Parts) => Line[]][] = [
  ["menu.file", () => ["new", "open", "-", "save", "saveAs", "export", "-", "properties", "pageSetup", "-", "print"]],
  [
    "menu.edit",
    () => [
      "undo",
      "redo",
      "-",
      "cut",
      "copy",
      "paste",
      "pasteText",
      "selectAll",
      "-",
      "find",
      "replace",
      "findNext",
      "findPrevious",
    ],
  ],
  [
    "menu.view",
    parts => [
      "zoomIn",
      "zoomOut",
      "zoomReset",
      "zoomWidth",
      "-",
      { text: "menu.theme", entries: () => appearanceCommands },
      { text: "menu.language", entries: () => languageCommands(parts) },
    ],
  ],
  [
    "menu.insert",
    () => [
      { text: "insert.table", entries: () => [], panel: tableGrid },
      "insertTable",
      "image",
      "link",
      "removeLink",
      "-",
      "pageBreak",
      "section",
      "-",
      "header",
      "footer",
      "body",
      "-",
      "pageNumber",
      "footnote",
      "rule",
      "date",
      { text: "insert.symbol", entries: () => [], panel: symbolGrid },
    ],
  ],
  [
    "menu.format",
    () => [
      "bold",
      "italic",
      "underline",
      "strike",
      "superscript",
      "subscript",
      "clear",
      "-",
      { text: "menu.style", entries: () => named(styles.map(id => `style.${id}`)) },
      { text: "menu.align", entries: () => named(["alignStart", "alignCenter", "alignEnd", "justify"]) },
      { text: "format.lineSpacing", entries: () => lineSpacingCommands },
      "bullets",
      "numbers",
      "indent",
      "outdent",
      "-",
      "paragraph",
      "pageSetup",
    ],
  ],
  [
    "menu.table",
    () => [
      { text: "table.insert", entries: () => [], panel: tableGrid },
      "-",
      "rowAbove",
      "rowBelow",
      "columnBefore",
      "columnAfter",
      "headerRow",
      "footerRow",
      "-",
      "deleteRows",
      "deleteColumn",
      "deleteTable",
      "-",
      "merge",
      "split",
      "selectTable",
      "-",
      { text: "menu.borders", entries: () => borderCommands },
      "equalColumns",
      "tableProperties",
    ],
  ],
  [
    "menu.help",
    parts => ["keys", "words", "-", "nextMisspelt", { text: "menu.spelling", entries: () => spellingCommands(parts) }],
  ],
];

/** In the toolbar; what is no name makes its control. */
const toolTable: (string | ControlMaker)[][] = [
  ["new", "open", "save", "print"],
  ["undo", "redo"],
  [stylePicker, fontPicker, sizePicker],
  ["bold", "italic", "underline", "strike", "superscript", "subscript", textColor, backgroundColor, "clear"],
  [
    "alignStart",
    "alignCenter",
    "alignEnd",
    "justify",
    menuOpener("format.lineSpacing", "lineSpacing", () => lineSpacingCommands),
  ],
  ["bullets", "numbers", "outdent", "indent"],
  ["link", "image", tableOpener, "pageBreak"],
  ["find"],
];

/** For the place of a click; commands that make no sense there are left out. */
const contextTable = ["cut", "copy", "paste", "-", "openLink", "link", "removeLink"];
const contextInTable = [
  "-",
  "rowAbove",
  "rowBelow",
  "columnBefore",
  "columnAfter",
  "deleteRows",
  "deleteColumn",
  "-",
  "merge",
  "split",
  "tableProperties",
];

let byName = new Map<string, Command>();

/** All commands; menus and toolbar speak of these from now on. */
export function makeCommands(parts: Parts): Command[] {
  const all = [
    ...fileCommands(parts),
    ...editCommands(parts),
    ...formatCommands,
    ...insertCommands,
    ...tableCommands,
    ...viewCommands(parts),
  ];
  byName = new Map(all.map(command => [command.id, command]));
  return all;
}

function named(ids: string[]): Command[] {
  return ids.map(commandNamed);
}

export function commandNamed(id: string): Command {
  const found = byName.get(id);
  if (!found) throw new Error(`no command is called ${id}`);
  return found;
}

function entriesOf(lines: Line[]): MenuEntry[] {
  return lines.map(line => (typeof line !== "string" ? line : line === separator ? separator : commandNamed(line)));
}

export function menusOf(parts: Parts): Submenu[] {
  return menuTables.map(([text, lines]) => ({ text, entries: () => entriesOf(lines(parts)) }));
}

/** The commands of each menu, for the list of keys. */
export function commandsByMenu(parts: Parts): { text: TextKey; commands: Command[] }[] {
  return menuTables.map(([text, lines]) => ({
    text,
    commands: lines(parts).flatMap(line =>
      typeof line === "string" && line !== separator ? [commandNamed(line)] : [],
    ),
  }));
}

export function tools(): (Command | ControlMaker)[][] {
  return toolTable.map(group => group.map(each => (typeof each === "string" ? commandNamed(each) : each)));
}

export function contextEntries(isInTable: boolean, isInLink: boolean): MenuEntry[] {
  const lines = contextTable.filter(id => isInLink || !["openLink", "removeLink"].includes(id));
  return entriesOf([...lines, ...(isInTable ? contextInTable : ["-", "paragraph"])]);
}
