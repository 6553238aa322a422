// Widths of tables and columns, and how far cells reach.

import { pixels, round } from "../markup/Lengths.ts";
import type { Attributes } from "../markup/Markup.ts";
import type { Box } from "./Box.ts";

const proportional = /proportional-column-width\(\s*([\d.]+)\s*\)/;

function repeats(column: Attributes): number {
  return Math.max(1, Number(column.get("number-columns-repeated") ?? 1) || 1);
}

/** Columns with fixed widths that fill the table exactly; without them the browser decides. */
export function styleOfTable(attributes: Attributes, columns: Attributes[]): string {
  const widths = columns.map(each => each.get("column-width") ?? "");
  const collapse = attributes.has("border-collapse") ? "" : "border-collapse:collapse;";
  const areLengths = widths.length > 0 && widths.every(each => pixels(each, -1) >= 0 && !each.endsWith("%"));
  const own = attributes.get("width") ?? attributes.get("inline-progression-dimension");
  if (areLengths && (own === undefined || own === "auto" || own === "100%")) {
    const sum = columns.reduce((total, each, i) => total + pixels(widths[i], 0) * repeats(each), 0);
    return `${collapse}table-layout:fixed;width:${round(sum)}px;`;
  }
  const width = own === undefined || own === "auto" ? "width:100%;" : "";
  return collapse + width + (widths.some(each => each !== "") ? "table-layout:fixed;" : "");
}

export function widthsOfColumns(columns: Attributes[]): Box | null {
  if (columns.length === 0) return null;
  const shares = columns.map(each => Number(each.get("column-width")?.match(proportional)?.[1] ?? 0));
  const all = shares.reduce((total, share, i) => total + share * repeats(columns[i]), 0);
  const children = columns.map((column, i): Box => {
    const width = shares[i] > 0 ? `${round((100 * shares[i]) / all)}%` : (column.get("column-width") ?? "auto");
    const attributes: Record<string, string> = repeats(column) > 1 ? { span: String(repeats(column)) } : {};
    return {
      tag: "col",
      className: "",
      style: `width:${width.replace(/[^\w.%]/g, "")};`,
      attributes,
      start: -1,
      end: -1,
      children: [],
    };
  });
  return { tag: "colgroup", className: "", style: "", attributes: {}, start: -1, end: -1, children };
}

export function attributesOfCell(attributes: Attributes): Record<string, string> {
  const given: Record<string, string> = {};
  for (const [name, as] of [
    ["number-columns-spanned", "colspan"],
    ["number-rows-spanned", "rowspan"],
  ]) {
    const value = attributes.get(name);
    if (value && value !== "1") given[as] = value;
  }
  return given;
}
