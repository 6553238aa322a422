// What a piece shows, as a tree without a place on any page: it is mounted wherever the piece is shown,
// and compared with what was mounted before. Offsets count from the piece's start.

export interface Box {
  tag: string;
  className: string;
  style: string;
  attributes: Record<string, string>;
  start: number;
  end: number;
  children: (Box | Run)[];
  /** Shown as one thing that the caret passes: an image, a field, a page number. */
  object?: ObjectKind;
  /** The caret can stand beside it: a table. */
  hasEdges?: boolean;
}

export type ObjectKind = "page-number" | "page-citation" | "other";

export interface Run {
  text: string;
  start: number;
  end: number;
  /** Whether the unit i of the text is the one at start + i; otherwise the caret passes it as one. */
  isPlain: boolean;
  isStop: boolean;
}

export function isBox(node: Box | Run): node is Box {
  return "tag" in node;
}

/** A piece's tree with what is shown elsewhere or decides where pages end. */
export interface PieceBox {
  root: Box;
  spaceBefore: number;
  spaceAfter: number;
  breakBefore: BreakKind;
  breakAfter: BreakKind;
  keepWithNext: boolean;
  keepTogether: boolean;
  footnotes: Box[];
}

export type BreakKind = "" | "column" | "page" | "odd-page" | "even-page";
