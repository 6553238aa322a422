// Colours stretches of the drawn text without touching what draws it.

import type { Editor } from "./Editor.ts";
import type { Range as Stretch } from "./markup.ts";

/** The colours are in ui.css, under `::highlight(name)`. */
export type MarkName = "found" | "misspelt";

/** In the place of what the name has marked so far. */
export function mark(editor: Editor, name: MarkName, stretches: Stretch[]): void {
  if (!("highlights" in CSS)) return;
  const ranges = stretches.flatMap(({ start, end }) => editor.view.rangesOf(start, end));
  CSS.highlights.set(name, new Highlight(...ranges));
}
