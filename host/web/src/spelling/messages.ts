// What the page and the worker that knows the dictionaries say to each other.

export type Question =
  | { id: number; kind: "load"; dictionary: string }
  | { id: number; kind: "check"; dictionary: string; words: string[] }
  | { id: number; kind: "suggest"; dictionary: string; word: string };

/** `wrong` are the misspelt ones of the words, `suggestions` for the one word. */
export interface Answer {
  id: number;
  wrong?: string[];
  suggestions?: string[];
  failure?: string;
}
