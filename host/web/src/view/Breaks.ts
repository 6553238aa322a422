// Where a page may end within a piece: between lines, though never with a line alone on either page,
// between blocks, and between the rows of a table.

import type { Header } from "./Piece.ts";
import { round } from "../markup/Lengths.ts";

/** How many lines stay together at both ends of a paragraph. */
const together = 2;

/** Distances from the top of the piece, growing. */
export function breaksIn(piece: HTMLElement): number[] {
  const top = piece.getBoundingClientRect().top;
  const zoom = piece.currentCSSZoom ?? 1;
  const found = new Set<number>();
  visit(piece, y => found.add(round((y - top) / zoom)));
  return [...found].sort((a, b) => a - b);
}

/** The header of the table that the piece is. */
export function headerIn(piece: HTMLElement): Header | null {
  const header = piece.querySelector(":scope > table > thead");
  const rect = header?.getBoundingClientRect();
  const zoom = piece.currentCSSZoom ?? 1;
  return rect
    ? { top: round((rect.top - piece.getBoundingClientRect().top) / zoom), height: round(rect.height / zoom) }
    : null;
}

type Add = (y: number) => void;

function isBlockLike(element: Element): boolean {
  return /^(DIV|TABLE)$/.test(element.tagName);
}

function visit(element: Element, add: Add): void {
  if (element.tagName === "TABLE") return visitTable(element as HTMLTableElement, add);
  if (element.classList.contains("item")) {
    const body = element.querySelector(":scope > .body");
    return body ? visit(body, add) : undefined;
  }
  const children = [...element.children].filter(isBlockLike);
  if (children.length === 0 || hasOwnText(element)) return visitLines(element, add);
  children.forEach((child, i) => {
    visit(child, add);
    if (i + 1 < children.length) add(child.getBoundingClientRect().bottom);
  });
}

function hasOwnText(element: Element): boolean {
  return [...element.childNodes].some(each => each.nodeType === Node.TEXT_NODE && (each as Text).data.trim() !== "");
}

function visitLines(element: Element, add: Add): void {
  const range = document.createRange();
  range.selectNodeContents(element);
  const lines: { top: number; bottom: number }[] = [];
  for (const rect of range.getClientRects()) {
    const last = lines[lines.length - 1];
    if (last && rect.top < (last.top + last.bottom) / 2) last.bottom = Math.max(last.bottom, rect.bottom);
    else if (rect.height > 0) lines.push({ top: rect.top, bottom: rect.bottom });
  }
  for (let i = together; i <= lines.length - together; ++i) add((lines[i - 1].bottom + lines[i].top) / 2);
}

/** Below rows over whose lower edge no cell reaches. */
function visitTable(table: HTMLTableElement, add: Add): void {
  for (const group of table.querySelectorAll<HTMLTableSectionElement>(":scope > tbody")) {
    let reach = 0;
    const rows = [...group.querySelectorAll<HTMLTableRowElement>("tr")].filter(row => row.closest("table") === table);
    rows.forEach((row, i) => {
      for (const cell of row.cells) reach = Math.max(reach, i + cell.rowSpan - 1);
      if (reach <= i && i + 1 < rows.length) add(row.getBoundingClientRect().bottom);
      if (rows.length === 1 || row.getBoundingClientRect().height > 700) for (const cell of row.cells) visit(cell, add);
    });
  }
}
