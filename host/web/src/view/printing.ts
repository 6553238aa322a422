// The browser prints the pages as they are, each on a sheet of its own size.

import type { DocumentView } from "./DocumentView.ts";

export function preparePrinting(view: DocumentView): void {
  const sheet = document.createElement("style");
  document.head.append(sheet);
  window.addEventListener("beforeprint", () => {
    view.showAllPages();
    sheet.textContent = view.sheetRules;
  });
  window.addEventListener("afterprint", () => {
    sheet.textContent = "";
    view.redrawAll();
  });
}
