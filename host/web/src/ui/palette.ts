// The colours that are offered, and the way to any other.

import { text, type TextKey } from "../texts/texts.ts";
import { h } from "./elements.ts";

const colors: [TextKey, string][] = [
  ["color.black", "#000000"],
  ["color.grey", "#606060"],
  ["color.silver", "#c0c0c0"],
  ["color.white", "#ffffff"],
  ["color.darkRed", "#8b1a1a"],
  ["color.red", "#d62828"],
  ["color.orange", "#e07b00"],
  ["color.yellow", "#ffe066"],
  ["color.brown", "#7a5230"],
  ["color.green", "#2b8a3e"],
  ["color.teal", "#0b7285"],
  ["color.sky", "#a5d8ff"],
  ["color.navy", "#204060"],
  ["color.blue", "#1c6dd0"],
  ["color.purple", "#7048a8"],
  ["color.pink", "#f4a6c0"],
];
const columns = 4;

export function palette(hasNone: boolean, choose: (value: string) => void): HTMLElement {
  const cells = colors.map(([name, value]) =>
    h("button", {
      class: "ui-swatch",
      role: "menuitem",
      title: text(name),
      "aria-label": text(name),
      style: `background:${value}`,
      onclick: () => choose(value),
    }),
  );
  const other = h("input", {
    type: "color",
    tabindex: -1,
    class: "ui-hidden-input",
    onchange: () => choose(other.value),
  });
  const box = h(
    "div",
    { class: "ui-palette" },
    hasNone &&
      h("button", { class: "ui-wide", role: "menuitem", onclick: () => choose("transparent") }, text("color.none")),
    h("div", { class: "ui-swatches" }, ...cells),
    h("button", { class: "ui-wide", role: "menuitem", onclick: () => other.click() }, text("color.other")),
    other,
  );
  box.addEventListener("keydown", event => moveInGrid(event, box, columns));
  return box;
}

/** Arrow keys go through buttons that stand in a grid. */
export function moveInGrid(event: KeyboardEvent, box: HTMLElement, width: number): void {
  const all = [...box.querySelectorAll<HTMLElement>("button")];
  const at = all.indexOf(document.activeElement as HTMLElement);
  const steps: Record<string, number> = { ArrowLeft: -1, ArrowRight: 1, ArrowUp: -width, ArrowDown: width };
  const step = steps[event.key];
  if (at < 0 || step === undefined) return;
  all[Math.max(0, Math.min(all.length - 1, at + step))]!.focus();
  event.preventDefault();
  event.stopPropagation();
}
