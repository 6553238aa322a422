// All keys, in one list.

import { text, type TextKey } from "../../texts/texts.ts";
import type { Command } from "../Command.ts";
import { showDialog } from "../Dialog.ts";
import { h } from "../elements.ts";
import { shownKeys } from "../keys.ts";

/** What the text's own input carries out. */
const typed: [TextKey, [TextKey, string][]][] = [
  [
    "help.moving",
    [
      ["help.arrows", "← → ↑ ↓"],
      ["help.words", "Ctrl+←, Ctrl+→"],
      ["help.lineEnds", "Home, End"],
      ["help.documentEnds", "Ctrl+Home, Ctrl+End"],
      ["help.extend", "Shift+…"],
      ["edit.selectAll", "Ctrl+A"],
    ],
  ],
  [
    "help.typing",
    [
      ["help.enter", "Enter"],
      ["help.softBreak", "Shift+Enter"],
      ["help.tab", "Tab"],
      ["help.menuBar", "F10"],
      ["help.contextMenu", "Shift+F10"],
      ["help.backToText", "Escape"],
    ],
  ],
];

export async function openKeyboardHelp(menus: { text: TextKey; commands: Command[] }[]): Promise<void> {
  const section = (title: TextKey, rows: [string, string][]): HTMLElement =>
    h(
      "section",
      {},
      h("h3", {}, text(title)),
      h("dl", {}, ...rows.flatMap(([what, keys]) => [h("dt", {}, what), h("dd", {}, h("kbd", {}, keys))])),
    );
  const ofCommands = menus.map(({ text: title, commands }) =>
    section(
      title,
      commands.filter(each => each.keys).map(each => [text(each.text), shownKeys(each.keys!)]),
    ),
  );
  const ofInput = typed.map(([title, rows]) =>
    section(
      title,
      rows.map(([what, keys]) => [text(what), keys.split(", ").map(shownKeys).join(", ")]),
    ),
  );
  const list = h("div", { class: "ui-keys", tabindex: 0, "data-first": true }, ...ofInput, ...ofCommands);
  await showDialog("help.keys", [list], null);
}
