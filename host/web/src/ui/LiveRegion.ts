// What a screen reader is told of what happens, beside the text of the caret's line.

import { h } from "./elements.ts";

const region = h("div", { class: "ui-live", role: "status", "aria-live": "polite" });
let pending: ReturnType<typeof setTimeout> | undefined;

export function attachLiveRegion(): void {
  document.body.append(region);
}

/** The same words twice are said twice. */
export function announce(words: string): void {
  clearTimeout(pending);
  region.textContent = "";
  pending = setTimeout(() => (region.textContent = words), 50);
}
