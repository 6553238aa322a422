// The texts of the interface in the language that is chosen.

import { de } from "./de.ts";
import { en } from "./en.ts";

export type TextKey = keyof typeof en;
export type Texts = Record<TextKey, string>;
export type Language = "en" | "de";

const languages: Record<Language, Texts> = { en, de };
const remembered = "forme.language";

export const languageNames = (Object.keys(languages) as Language[]).map(
  id => [id, languages[id]["language.name"]] as const,
);

function chosenLanguage(): Language {
  const saved = localStorage.getItem(remembered);
  const wanted = [saved ?? "", ...navigator.languages].map(each => each.slice(0, 2));
  return wanted.find((each): each is Language => each in languages) ?? "en";
}

let current = chosenLanguage();

export function language(): Language {
  return current;
}

/** For texts that are asked for from now on; who shows some builds them anew. */
export function setLanguage(id: Language): void {
  current = id;
  localStorage.setItem(remembered, id);
  document.documentElement.lang = id;
}

/** The text, with `{name}` filled in. */
export function text(key: TextKey, values: Record<string, string | number> = {}): string {
  return languages[current][key].replace(/\{(\w+)\}/g, (all, name: string) =>
    name in values ? formatted(values[name]!) : all,
  );
}

function formatted(value: string | number): string {
  return typeof value === "number" ? value.toLocaleString(current) : value;
}
