// XSL-FO's properties as CSS's. Most have the same name and mean the same.

import type { Attributes } from "../markup/Markup.ts";
import { pixels, round } from "../markup/Lengths.ts";

const same = new Set([
  "color",
  "background-color",
  "font-size",
  "font-style",
  "font-weight",
  "font-variant",
  "font-stretch",
  "text-indent",
  "text-decoration",
  "text-transform",
  "text-align-last",
  "vertical-align",
  "direction",
  "unicode-bidi",
  "visibility",
  "min-height",
  "min-width",
  "max-height",
  "max-width",
  "height",
  "width",
  "padding",
  "padding-top",
  "padding-bottom",
  "padding-left",
  "padding-right",
  "border",
  "border-top",
  "border-bottom",
  "border-left",
  "border-right",
  "border-color",
  "border-style",
  "border-width",
  "border-collapse",
  "border-spacing",
  "table-layout",
  "caption-side",
  "empty-cells",
  "box-shadow",
  "border-radius",
  "opacity",
  ...["top", "bottom", "left", "right"].flatMap(side =>
    ["color", "style", "width"].map(what => `border-${side}-${what}`),
  ),
]);

/** The sides that turn with the direction of writing. */
const turning: Record<string, string> = {
  before: "block-start",
  after: "block-end",
  start: "inline-start",
  end: "inline-end",
};

const renamed: Record<string, string> = {
  "block-progression-dimension": "height",
  "inline-progression-dimension": "width",
};

const alignments: Record<string, string> = { inside: "start", outside: "end", left: "left", right: "right" };
const displayAlignments: Record<string, string> = { before: "top", center: "middle", after: "bottom" };
const shifts: Record<string, string> = { super: "super", sub: "sub", baseline: "baseline" };
const lines: [property: string, line: string][] = [
  ["text-underline-style", "underline"],
  ["text-overline-style", "overline"],
  ["text-line-through-style", "line-through"],
];

type Declare = (name: string, value: string) => void;

const special: Record<string, (value: string, declare: Declare) => void> = {
  "font-family": (value, declare) => declare("font-family", `${value}, ${fallbackFor(value)}`),
  "text-align": (value, declare) => declare("text-align", alignments[value] ?? value),
  "display-align": (value, declare) => declare("vertical-align", displayAlignments[value] ?? "top"),
  "baseline-shift": (value, declare) => {
    declare("vertical-align", shifts[value] ?? value);
    if (value === "super" || value === "sub") declare("line-height", "0");
  },
  "line-height": (value, declare) =>
    declare("line-height", value.endsWith("%") ? String(parseFloat(value) / 100) : value),
  "letter-spacing": (value, declare) => declare("letter-spacing", value),
  "word-spacing": (value, declare) => declare("word-spacing", value),
  "wrap-option": (value, declare) => declare("text-wrap-mode", value === "no-wrap" ? "nowrap" : "wrap"),
  hyphenate: (value, declare) => declare("hyphens", value === "true" ? "auto" : "manual"),
  "writing-mode": (value, declare) => declare("direction", value.startsWith("rl") ? "rtl" : "ltr"),
  background: (value, declare) => declare("background-color", value),
};

/** Fonts of the same widths, for readers who have not the one that is asked for. */
function fallbackFor(families: string): string {
  if (/mono|courier/i.test(families)) return '"Liberation Mono", "Courier New", monospace';
  return /sans|arial|helvetica|verdana|calibri/i.test(families)
    ? '"Liberation Sans", Arial, Helvetica, sans-serif'
    : '"Liberation Serif", "Times New Roman", serif';
}

function safe(value: string): string {
  return value.replace(/[;{}\\]/g, "").replace(/url\s*\(/gi, "");
}

/** Declarations of CSS. Spaces and indents are not among them; they depend on what is around. */
export function cssOf(attributes: Attributes): string {
  let css = "";
  const declare: Declare = (name, value) => {
    css += `${name}:${safe(value)};`;
  };
  for (const [name, value] of attributes) {
    if (same.has(name)) declare(name, value);
    else if (name in special) special[name](value, declare);
    else if (name in renamed) declare(renamed[name], value);
    else declareTurning(name, value, declare);
  }
  const drawn = lines.filter(([property]) => (attributes.get(property) ?? "none") !== "none");
  if (drawn.length > 0) declare("text-decoration-line", drawn.map(([, line]) => line).join(" "));
  return css;
}

function declareTurning(name: string, value: string, declare: Declare): void {
  const found = name.match(/^(border|padding)-(before|after|start|end)(-color|-style|-width)?$/);
  if (found) declare(`${found[1]}-${turning[found[2]]}${found[3] ?? ""}`, value);
}

/** The size of the letters in an element, in pixels. */
export function fontSizeOf(attributes: Attributes, around: number): number {
  const value = attributes.get("font-size");
  return value === undefined ? around : pixels(value, around, around, around);
}

/** What a block is moved in from what is around it: its margin, or how much its indent is larger. */
export function insetOf(attributes: Attributes, side: "start" | "end", aroundIndent: number, fontSize: number): number {
  const indent = attributes.get(`${side}-indent`);
  if (indent !== undefined) return round(pixels(indent, aroundIndent, fontSize) - aroundIndent);
  const all = attributes.get("margin")?.trim().split(/\s+/) ?? [];
  const [physical, shorthand] =
    side === "start" ? ["margin-left", all[3] ?? all[1] ?? all[0]] : ["margin-right", all[1] ?? all[0]];
  return round(pixels(attributes.get(physical) ?? shorthand, 0, fontSize));
}

/** A space, whose best size may be told by a property of its own. */
export function spaceOf(attributes: Attributes, side: "before" | "after", fontSize: number): number {
  const value =
    attributes.get(`space-${side}.optimum`) ??
    attributes.get(`space-${side}`) ??
    attributes.get(side === "before" ? "margin-top" : "margin-bottom") ??
    marginOf(attributes, side);
  return round(pixels(value, 0, fontSize));
}

function marginOf(attributes: Attributes, side: "before" | "after"): string | undefined {
  const all = attributes.get("margin")?.trim().split(/\s+/);
  return side === "before" ? all?.[0] : (all?.[2] ?? all?.[0]);
}
