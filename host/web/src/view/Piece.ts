// A child of a flow or static content: what is drawn, laid out and measured by itself.

import type { Change } from "../library/FormeDocument.ts";
import type { PieceBox } from "./Box.ts";
import type { Mounted } from "./Mounted.ts";
import type { Region } from "./Outline.ts";

/** What layout has told of a piece, in pixels. */
export interface Measures {
  /** Without the space before and behind, which depends on the neighbours. */
  height: number;
  /** Where a page may end in it, from its top; known once they were asked for. */
  breaks: number[] | null;
  header: Header | null;
  footnotes: { y: number; height: number }[];
}

/** From where in a piece, and how high, the header of its table is. */
export interface Header {
  top: number;
  height: number;
}

/** One place where a piece is shown, or with a part from 0 one of its footnotes. */
export interface Mount {
  mounted: Mounted;
  part: number;
}

export class Piece {
  start = 0;
  end = 0;
  box: PieceBox | null = null;
  /** What has changed since the box was made, with its start within the piece. */
  edit: Change | null = null;
  measures: Measures | null = null;
  /** As it was measured before a change. */
  formerMeasures: Measures | null = null;
  /** For which width it was measured. */
  measuredWidth = 0;
  /** Where it is shown now: once on each page it stands on, static content on many. */
  readonly mounts = new Set<Mount>();

  constructor(public region: Region) {}

  /** Takes up a place, and forgets what was known of another text there. */
  begin(start: number, end: number): void {
    this.start = start;
    this.end = end;
    this.box = null;
    this.edit = null;
    this.#forgetMeasures();
  }

  /** Takes up a change of text within. */
  change({ start, removed, inserted }: Change): void {
    this.end += inserted - removed;
    if (this.edit) this.box = this.edit = null;
    else if (this.box) this.edit = { start: start - this.start, removed, inserted };
    this.#forgetMeasures();
  }

  #forgetMeasures(): void {
    this.formerMeasures = this.measures ?? this.formerMeasures;
    this.measures = null;
  }

  move(by: number): void {
    this.start += by;
    this.end += by;
  }

  /** Shows in every place what the text says now. */
  refresh(box: PieceBox): void {
    const { replaced } = box;
    box.replaced = undefined;
    for (const { mounted, part } of this.mounts) {
      if (replaced) {
        mounted.replace(replaced.old, replaced.box);
        continue;
      }
      const shown = part === -1 ? box.root : box.footnotes[part];
      if (shown) mounted.update(shown);
    }
  }
}
