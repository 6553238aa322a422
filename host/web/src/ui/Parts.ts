// The parts of the interface that commands speak to.

import type { Language } from "../texts/texts.js";
import type { Files } from "./files/Files.js";
import type { FindBar } from "./find/FindBar.js";
import type { Spelling } from "./Spelling.js";
import type { WordCount } from "./WordCount.js";
import type { Zoom } from "./Zoom.js";

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
