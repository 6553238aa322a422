// The parts of the interface that commands speak to.

import type { Language } from "../texts/texts.ts";
import type { Files } from "./files/Files.ts";
import type { FindBar } from "./find/FindBar.ts";
import type { Spelling } from "./Spelling.ts";
import type { WordCount } from "./WordCount.ts";
import type { Zoom } from "./Zoom.ts";

export interface Parts {
  files: Files;
  findBar: FindBar;
  spelling: Spelling;
  zoom: Zoom;
  words: WordCount;
  /** Builds the interface anew in another language. */
  speak(language: Language): void;
  focusMenuBar(): void;
  showKeys(): void;
  openContextMenu(): void;
}
