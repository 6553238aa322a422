// Between offsets of the text and places in the window.

import type { Outline } from "./Outline.ts";
import type { Leaf } from "./Mounted.ts";
import type { Piece, Mount } from "./Piece.ts";

export interface Place {
  piece: Piece;
  mount: Mount;
  leaf: Leaf;
}
export interface CaretBox {
  left: number;
  top: number;
  height: number;
}

export class Positions {
  constructor(
    private readonly outline: Outline,
    private readonly pages: HTMLElement,
  ) {}

  /** Where an offset is shown; of several places the one that is really seen. */
  placeOf(offset: number, piece = this.outline.pieceAt(offset)): Place | null {
    if (!piece) return null;
    const inPiece = offset - piece.start;
    const note = piece.box?.footnotes.findIndex(each => inPiece >= each.start && inPiece <= each.end) ?? -1;
    let found: Place | null = null;
    for (const mount of piece.mounts) {
      if (mount.part !== note) continue;
      const leaf = mount.mounted.leafAt(inPiece);
      if (!leaf) continue;
      const place = { piece, mount, leaf };
      if (piece.mounts.size === 1 || this.#isSeen(place, offset)) return place;
      found ??= place;
    }
    return found;
  }

  /** Where the caret is drawn; `atLineEnd` at the end of the line before where it could be either. */
  caretBox(offset: number, atLineEnd = false): CaretBox | null {
    const place = this.placeOf(offset);
    return place && this.#boxIn(place, offset, atLineEnd);
  }

  /** The offset shown at a point of the window; null beside all pages. */
  offsetAt(x: number, y: number): number | null {
    const hit = document.elementFromPoint(x, y);
    const page = hit?.closest<HTMLElement>(".page");
    if (!page || !this.pages.contains(page)) return null;
    const caret = document.caretPositionFromPoint(x, y);
    const node = caret?.offsetNode;
    const object = hit!.closest<HTMLElement>(".object");
    if (object) return this.#offsetBeside(object, x);
    if (node && node.nodeType === Node.TEXT_NODE && page.contains(node)) {
      const inText = this.#offsetIn(node as Text, caret!.offset, x);
      if (inText !== null) return inText;
    }
    return this.#nearestOffset(hit!, page, x, y);
  }

  /** The ranges of the window that show the units from start up to end. */
  rangesOf(start: number, end: number): Range[] {
    const ranges: Range[] = [];
    for (const region of this.outline.regions) {
      if (region.contentEnd < start || region.contentStart > end) continue;
      for (
        let i = firstEndingBehind(region.pieces, start);
        i < region.pieces.length && region.pieces[i].start < end;
        ++i
      )
        for (const mount of region.pieces[i].mounts)
          addRanges(ranges, mount, start - region.pieces[i].start, end - region.pieces[i].start);
    }
    return ranges;
  }

  #isSeen(place: Place, offset: number): boolean {
    const box = this.#boxIn(place, offset, false);
    const clip = place.mount.mounted.element.closest(".cut, .region")?.getBoundingClientRect();
    const middle = box ? box.top + box.height / 2 : 0;
    return box !== null && clip !== undefined && middle >= clip.top && middle <= clip.bottom;
  }

  #boxIn({ piece, leaf }: Place, offset: number, atLineEnd: boolean): CaretBox {
    if (leaf.kind !== "text") return boxBeside(leaf, offset - piece.start);
    const text = leaf.node as Text;
    const inPiece = offset - piece.start;
    const index = leaf.isPlain
      ? Math.max(0, Math.min(inPiece - leaf.start, text.length))
      : inPiece > leaf.start && text.data !== "\u200b"
        ? text.length
        : 0;
    return boxInText(text, index, atLineEnd);
  }

  #leafOf(node: Node): { piece: Piece; leaf: Leaf } | null {
    const root = (node instanceof Element ? node : node.parentElement)?.closest(".slice, .piece, .footnote");
    for (const region of this.outline.regions)
      for (const piece of region.pieces)
        for (const { mounted } of piece.mounts)
          if (mounted.element.contains(node) || mounted.element === root) {
            const leaf = mounted.leafOf(node);
            if (leaf) return { piece, leaf };
          }
    return null;
  }

  #offsetIn(node: Text, index: number, x: number): number | null {
    const found = this.#leafOf(node);
    if (!found) return null;
    const { piece, leaf } = found;
    if (leaf.isPlain) return piece.start + leaf.start + index;
    if (node.data === "\u200b") return piece.start + leaf.start;
    const range = document.createRange();
    range.selectNode(node);
    const rect = range.getBoundingClientRect();
    return piece.start + (x > (rect.left + rect.right) / 2 ? leaf.end : leaf.start);
  }

  #offsetBeside(object: HTMLElement, x: number): number | null {
    const found = this.#leafOf(object);
    const rect = object.getBoundingClientRect();
    return found && found.piece.start + (x > (rect.left + rect.right) / 2 ? found.leaf.end : found.leaf.start);
  }

  /** Beside or below the text: the line that is nearest in height, and in it the nearest place. */
  #nearestOffset(hit: Element, page: HTMLElement, x: number, y: number): number | null {
    const around = hit.closest(".label, .body, td, .region, .footnotes") ?? page.querySelector(".region.body");
    let best: { distance: number; offset: number } | null = null;
    for (const { piece, mount } of this.#mountsIn(around ?? page)) {
      const rect = mount.mounted.element.closest(".cut, .piece, .footnote")!.getBoundingClientRect();
      if (best && distanceTo(rect, x, y) > best.distance) continue;
      for (const leaf of mount.mounted.leaves) {
        const element = leaf.node instanceof Element ? leaf.node : leaf.node.parentElement!;
        if (around && around.matches("td, .label, .body:not(.region)") && !around.contains(element)) continue;
        for (const part of rectsOf(leaf)) {
          const distance = distanceTo(part, x, y);
          if (!best || distance < best.distance)
            best = { distance, offset: piece.start + this.#offsetInLeaf(leaf, part, x, y) };
        }
      }
    }
    return best ? best.offset : null;
  }

  #offsetInLeaf(leaf: Leaf, rect: DOMRect, x: number, y: number): number {
    if (leaf.kind === "text" && leaf.isPlain) {
      const caret = document.caretPositionFromPoint(
        Math.max(rect.left + 0.5, Math.min(x, rect.right - 0.5)),
        (rect.top + rect.bottom) / 2,
      );
      if (caret?.offsetNode === leaf.node)
        return (
          leaf.start +
          caret.offset +
          (x >= rect.right &&
          caret.offset < (leaf.node as Text).length &&
          isLastOfLine(leaf.node as Text, caret.offset, rect)
            ? 1
            : 0)
        );
    }
    if (leaf.kind === "text" && (leaf.node as Text).data === "\u200b") return leaf.start;
    return y > rect.bottom || x > (rect.left + rect.right) / 2 ? leaf.end : leaf.start;
  }

  *#mountsIn(around: Element): Generator<{ piece: Piece; mount: Mount }> {
    for (const region of this.outline.regions)
      for (const piece of region.pieces)
        for (const mount of piece.mounts)
          if (around.contains(mount.mounted.element) || mount.mounted.element.contains(around)) yield { piece, mount };
  }
}

function isLastOfLine(text: Text, index: number, rect: DOMRect): boolean {
  const range = document.createRange();
  range.setStart(text, index);
  range.setEnd(text, index + 1);
  const unit = range.getBoundingClientRect();
  return Math.abs(unit.top - rect.top) < 2 && Math.abs(unit.right - rect.right) < 1 && !/\s/.test(text.data[index]);
}

function distanceTo(rect: DOMRect, x: number, y: number): number {
  const dx = Math.max(rect.left - x, 0, x - rect.right);
  const dy = Math.max(rect.top - y, 0, y - rect.bottom);
  return dy * 1000 + dx;
}

function rectsOf(leaf: Leaf): DOMRect[] {
  if (leaf.kind === "before" || leaf.kind === "after") {
    const { left, right, top, height } = (leaf.node as Element).getBoundingClientRect();
    return [new DOMRect(leaf.kind === "before" ? left - 2 : right, top, 2, height)];
  }
  if (leaf.kind === "object") return [(leaf.node as Element).getBoundingClientRect()];
  const range = document.createRange();
  range.selectNodeContents(leaf.node);
  return [...range.getClientRects()];
}

function boxBeside(leaf: Leaf, inPiece: number): CaretBox {
  const rect = (leaf.node as Element).getBoundingClientRect();
  const isBehind = leaf.kind === "after" || (leaf.kind === "object" && inPiece >= leaf.end);
  const left = isBehind ? rect.right : rect.left - (leaf.kind === "before" ? 2 : 0);
  return { left, top: rect.top, height: rect.height || parseFloat(getComputedStyle(leaf.node as Element).fontSize) };
}

function boxInText(text: Text, index: number, atLineEnd: boolean): CaretBox {
  const range = document.createRange();
  const unit = (from: number) => {
    range.setStart(text, from);
    range.setEnd(text, from + 1);
    const rects = range.getClientRects();
    return rects[rects.length - 1];
  };
  const isRight = getComputedStyle(text.parentElement!).direction === "rtl";
  const before = index > 0 ? unit(index - 1) : undefined;
  const behind = index < text.length ? unit(index) : undefined;
  const isFeed = index > 0 && text.data[index - 1] === "\n";
  if (before && !isFeed && (atLineEnd || !behind || Math.abs(before.top - behind.top) < 2))
    return { left: isRight ? before.left : before.right, top: before.top, height: before.height };
  const rect = behind ?? before ?? text.parentElement!.getBoundingClientRect();
  return { left: isRight ? rect.right : rect.left, top: rect.top, height: rect.height };
}

function firstEndingBehind(pieces: Piece[], offset: number): number {
  let low = 0;
  let high = pieces.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (pieces[middle].end > offset) high = middle;
    else low = middle + 1;
  }
  return low;
}

function addRanges(ranges: Range[], { mounted }: Mount, start: number, end: number): void {
  for (const leaf of mounted.leaves) {
    if (leaf.end <= start || leaf.start >= end || leaf.kind === "before" || leaf.kind === "after") continue;
    const range = document.createRange();
    if (leaf.kind === "text" && leaf.isPlain) {
      const { length } = leaf.node as Text;
      range.setStart(leaf.node, Math.min(length, Math.max(0, start - leaf.start)));
      range.setEnd(leaf.node, Math.min(length, end - leaf.start));
    } else {
      range.selectNode(leaf.node);
    }
    ranges.push(range);
  }
}
