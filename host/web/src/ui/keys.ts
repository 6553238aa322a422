// Combinations of keys, as commands name them, as events tell them and as people read them.

import { language } from "../texts/texts.ts";

const isMac = /Mac|iPhone|iPad/.test(navigator.platform);

/** "Ctrl+Shift+8" of an event. A key that types with AltGr is none. */
export function keysOf(event: KeyboardEvent): string {
  if (event.getModifierState("AltGraph")) return "";
  const digit = /^Digit(\d)$/.exec(event.code);
  const key = digit ? digit[1]! : event.key === " " ? "Space" : event.key;
  return [
    (isMac ? event.metaKey : event.ctrlKey) && "Ctrl",
    event.altKey && "Alt",
    event.shiftKey && "Shift",
    key.length === 1 ? key.toUpperCase() : key,
  ]
    .filter(Boolean)
    .join("+");
}

const german: Record<string, string> = {
  Ctrl: "Strg",
  Shift: "Umschalt",
  Space: "Leertaste",
  Enter: "Eingabe",
  Tab: "Tab",
  Home: "Pos1",
  End: "Ende",
};
const mac: Record<string, string> = { Ctrl: "⌘", Alt: "⌥", Shift: "⇧" };

export function shownKeys(keys: string): string {
  const names = isMac ? mac : language() === "de" ? german : {};
  return keys
    .split("+")
    .map(key => names[key] ?? key)
    .join(isMac ? "" : "+");
}
