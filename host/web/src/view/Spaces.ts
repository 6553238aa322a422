// The spaces before and behind blocks. Those at the edges of a piece are taken from its elements, since
// between two pieces the larger one counts, and at the top of a page none.

import type { Attributes } from "../markup/Markup.ts";
import { isBox, type Box } from "./Box.ts";

interface Noted {
  before: number;
  after: number;
  attributes: Attributes;
  isClosed: boolean;
}

const edges = /border|padding|height/;

export class Spaces {
  #noted = new Map<Box, Noted>();

  note(box: Box, before: number, after: number, name: string, attributes: Attributes): void {
    const isClosed = name === "fo:block-container" || [...attributes.keys()].some(each => edges.test(each));
    this.#noted.set(box, { before, after, attributes, isClosed });
  }

  /** Writes all spaces but those at the piece's edges into the styles, and gives these. */
  settle(root: Box): { spaceBefore: number; spaceAfter: number } {
    const firsts = new Set(this.#along(root, "first"));
    const lasts = new Set(this.#along(root, "last"));
    let spaceBefore = 0;
    let spaceAfter = 0;
    for (const [box, { before, after }] of this.#noted) {
      if (firsts.has(box)) spaceBefore = Math.max(spaceBefore, before);
      else if (before !== 0) box.style += `margin-block-start:${before}px;`;
      if (lasts.has(box)) spaceAfter = Math.max(spaceAfter, after);
      else if (after !== 0) box.style += `margin-block-end:${after}px;`;
    }
    return { spaceBefore, spaceAfter };
  }

  /** What the elements say that begin, or end, where the piece does. */
  attributesAlong(root: Box, side: "first" | "last"): Attributes[] {
    return this.#along(root, side).map(box => this.#noted.get(box)!.attributes);
  }

  #along(root: Box, side: "first" | "last"): Box[] {
    const found: Box[] = [];
    for (let box = root; ;) {
      const child = side === "first" ? box.children[0] : box.children[box.children.length - 1];
      if (!child || !isBox(child) || !this.#noted.has(child)) return found;
      found.push(child);
      if (this.#noted.get(child)!.isClosed || child.tag === "table") return found;
      box = child;
    }
  }
}
