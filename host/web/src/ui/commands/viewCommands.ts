// How the editor itself looks, and help.

import { language, languageNames, setLanguage } from "../../texts/texts.ts";
import type { Command } from "../Command.ts";
import type { Parts } from "../Parts.ts";
import { dictionaries } from "../Spelling.ts";
import { text } from "../../texts/texts.ts";
import { appearance, setAppearance, type Appearance } from "../appearance.ts";

const appearances: Appearance[] = ["system", "light", "dark"];

export function viewCommands(parts: Parts): Command[] {
  const { zoom } = parts;
  return [
    { id: "zoomIn", text: "view.zoomIn", icon: "plus", keys: "Ctrl+Alt++", run: () => zoom.in() },
    { id: "zoomOut", text: "view.zoomOut", icon: "minus", keys: "Ctrl+Alt+-", run: () => zoom.out() },
    { id: "zoomReset", text: "view.zoomReset", run: () => zoom.set(100) },
    { id: "zoomWidth", text: "view.zoomWidth", run: () => zoom.fitWidth() },
    { id: "words", text: "words.title", run: () => parts.words.show() },
    { id: "keys", text: "help.keys", keys: "F1", run: () => parts.showKeys() },
    { id: "menuBar", text: "bar.menu", keys: "F10", run: () => parts.focusMenuBar() },
    { id: "contextMenu", text: "help.contextMenu", keys: "Shift+F10", run: () => parts.openContextMenu() },
  ];
}

export const appearanceCommands: Command[] = appearances.map(each => ({
  id: `appearance.${each}`,
  text: `view.${each}`,
  pressed: () => appearance() === each,
  run: () => setAppearance(each),
}));

export function languageCommands(parts: Parts): Command[] {
  return languageNames.map(([id, name]) => ({
    id: `language.${id}`,
    text: "menu.language",
    label: name,
    pressed: () => language() === id,
    run() {
      setLanguage(id);
      parts.speak(id);
    },
  }));
}

export function spellingCommands({ spelling }: Parts): Command[] {
  return ["", ...dictionaries].map(dictionary => ({
    id: `spelling.${dictionary || "off"}`,
    text: "menu.spelling",
    label: text(dictionary ? `spelling.${dictionary as (typeof dictionaries)[number]}` : "spelling.off"),
    pressed: () => spelling.dictionary === dictionary,
    run: () => spelling.choose(dictionary),
  }));
}
