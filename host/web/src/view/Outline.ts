// Where the pages' contents stand in the text: page sequences, in them flows and static contents,
// in these the pieces that are drawn and measured each by itself. It follows the text by what the
// replies tell of changes, and reads no more of it than the pieces that changed.

import { attributesOf, tagsOf, type Attributes, type Tag } from "../markup/Markup.ts";
import type { Change, FormeDocument } from "../library/FormeDocument.ts";
import { Piece } from "./Piece.ts";

export interface Sequence {
  name: string;
  attributes: Attributes;
  regions: Region[];
}

/** A flow or a static content. */
export interface Region {
  sequence: Sequence;
  isFlow: boolean;
  flowName: string;
  attributes: Attributes;
  contentStart: number;
  contentEnd: number;
  pieces: Piece[];
}

export interface OutlineChange {
  /** Whether page masters or sequences may have changed; then all was read anew. */
  all: boolean;
  region?: Region;
  changed: Piece[];
  removed: Piece[];
}

const sequenceNames = new Set(["fo:page-sequence", "qfd:page-sequence-repeat"]);

export class Outline {
  sequences: Sequence[] = [];
  regions: Region[] = [];
  rootAttributes: Attributes = new Map();
  masters = "";

  constructor(private readonly document: FormeDocument) {}

  /** Reads the whole text. Pieces that a change has not touched stay the same objects. */
  read(change?: Change): void {
    const text = this.document.call<string>("getContent");
    const kept = change ? this.#untouchedPieces(change) : new Map<string, Piece>();
    this.sequences = [];
    this.regions = [];
    const reader = new OutlineReader(text, kept);
    reader.read(this);
  }

  /** The region around an offset. */
  regionAt(offset: number): Region | undefined {
    return this.regions.find(each => offset >= each.contentStart && offset <= each.contentEnd);
  }

  /** The piece that holds the offset, or else the nearest in its region. */
  pieceAt(offset: number): Piece | undefined {
    const region = this.regionAt(offset);
    if (!region || region.pieces.length === 0) return undefined;
    const pieces = region.pieces;
    const behind = firstIndex(pieces, each => each.end >= offset);
    return pieces[Math.min(behind, pieces.length - 1)];
  }

  follow(change: Change): OutlineChange {
    const end = change.start + change.removed;
    const region = this.regions.find(each => change.start >= each.contentStart && end <= each.contentEnd);
    const done = region && (this.#changeWithin(region, change) ?? this.#replacePieces(region, change));
    if (done) return done;
    this.read(change);
    return { all: true, changed: [], removed: [] };
  }

  /** Text that comes or goes within a piece leaves it one element, so that nothing of it need be read. */
  #changeWithin(region: Region, change: Change): OutlineChange | null {
    const index = firstIndex(region.pieces, each => each.end > change.start);
    const piece = region.pieces[index];
    if (!piece || piece.start >= change.start || piece.end <= change.start + change.removed) return null;
    if (/[<>]/.test(this.document.call<string>("getContent", change.start, change.start + change.inserted)))
      return null;
    piece.change(change);
    this.#shift(region, index + 1, change.inserted - change.removed);
    return { all: false, region, changed: [piece], removed: [] };
  }

  #replacePieces(region: Region, change: Change): OutlineChange | null {
    const { pieces } = region;
    const changeEnd = change.start + change.removed;
    const first = firstIndex(
      pieces,
      each => each.end > change.start || (each.end === change.start && change.inserted > 0),
    );
    const last = firstIndex(
      pieces,
      each => each.start > changeEnd || (each.start === changeEnd && each.start > change.start),
    );
    const start = Math.min(change.start, pieces[first]?.start ?? change.start);
    const end = Math.max(changeEnd, last > first ? pieces[last - 1].end : changeEnd);
    const grown = change.inserted - change.removed;
    const text = this.document.call<string>("getContent", start, end + grown);
    const found = childrenOf(text);
    if (!found) return null;
    const old = pieces.slice(first, Math.max(first, last));
    const changed = found.map(([from, to], index) => {
      const piece = old[index] ?? new Piece(region);
      piece.begin(start + from, start + to);
      return piece;
    });
    this.#shift(region, first + old.length, grown);
    pieces.splice(first, old.length, ...changed);
    return { all: false, region, changed, removed: old.slice(found.length) };
  }

  #shift(region: Region, from: number, by: number): void {
    region.contentEnd += by;
    if (by === 0) return;
    for (let i = from; i < region.pieces.length; ++i) region.pieces[i].move(by);
    for (const other of this.regions) {
      if (other === region || other.contentStart < region.contentStart) continue;
      other.contentStart += by;
      other.contentEnd += by;
      for (const piece of other.pieces) piece.move(by);
    }
  }

  /** By where they stand in the new text. */
  #untouchedPieces(change: Change): Map<string, Piece> {
    const kept = new Map<string, Piece>();
    const grown = change.inserted - change.removed;
    for (const { pieces } of this.regions)
      for (const piece of pieces) {
        if (piece.start >= change.start + change.removed) piece.move(grown);
        else if (piece.end > change.start) continue;
        kept.set(`${piece.start} ${piece.end}`, piece);
      }
    return kept;
  }
}

function firstIndex<T>(items: T[], test: (item: T) => boolean): number {
  let low = 0;
  let high = items.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (test(items[middle])) high = middle;
    else low = middle + 1;
  }
  return low;
}

/** Where the outermost elements of a text stand; null where tags are left open or closed twice. */
function childrenOf(text: string): [start: number, end: number][] | null {
  const children: [number, number][] = [];
  let depth = 0;
  let start = 0;
  for (const tag of tagsOf(text)) {
    if (tag.kind === "end" && --depth < 0) return null;
    if (depth === 0 && tag.kind !== "end") start = tag.start;
    if (tag.kind === "start") ++depth;
    if (depth === 0) children.push([start, tag.end]);
  }
  return depth === 0 ? children : null;
}

/** One walk over all tags of the text. */
class OutlineReader {
  #depth = 0;
  #sequence: Sequence | null = null;
  #region: Region | null = null;
  #regionDepth = 0;
  #pieceStart = 0;
  #mastersStart = 0;

  constructor(
    private readonly text: string,
    private readonly kept: Map<string, Piece>,
  ) {}

  read(outline: Outline): void {
    for (const tag of tagsOf(this.text)) {
      if (tag.kind === "end") --this.#depth;
      this.#take(outline, tag);
      if (tag.kind === "start") ++this.#depth;
    }
  }

  #take(outline: Outline, tag: Tag): void {
    if (this.#region) return this.#takeInRegion(tag);
    if (this.#depth === 0 && tag.kind === "start") outline.rootAttributes = this.#attributes(tag);
    if (tag.name === "fo:layout-master-set") {
      if (tag.kind === "start") this.#mastersStart = tag.start;
      else outline.masters = this.text.slice(this.#mastersStart, tag.end);
    } else if (sequenceNames.has(tag.name)) {
      this.#sequence = tag.kind === "start" ? { name: tag.name, attributes: this.#attributes(tag), regions: [] } : null;
      if (this.#sequence) outline.sequences.push(this.#sequence);
    } else if (this.#sequence && tag.kind === "start" && (tag.name === "fo:flow" || tag.name === "fo:static-content")) {
      this.#open(outline, tag, this.#sequence);
    }
  }

  #open(outline: Outline, tag: Tag, sequence: Sequence): void {
    const attributes = this.#attributes(tag);
    this.#regionDepth = this.#depth;
    this.#region = {
      sequence,
      attributes,
      isFlow: tag.name === "fo:flow",
      flowName: attributes.get("flow-name") ?? "xsl-region-body",
      contentStart: tag.end,
      contentEnd: tag.end,
      pieces: [],
    };
    sequence.regions.push(this.#region);
    outline.regions.push(this.#region);
  }

  #takeInRegion(tag: Tag): void {
    const region = this.#region!;
    if (tag.kind === "end" && this.#depth === this.#regionDepth) {
      region.contentEnd = tag.start;
      this.#region = null;
      return;
    }
    if (this.#depth !== this.#regionDepth + 1) return;
    if (tag.kind !== "end") this.#pieceStart = tag.start;
    if (tag.kind !== "start") region.pieces.push(this.#piece(region, this.#pieceStart, tag.end));
  }

  #piece(region: Region, start: number, end: number): Piece {
    const known = this.kept.get(`${start} ${end}`);
    if (known) {
      known.region = region;
      return known;
    }
    const piece = new Piece(region);
    piece.begin(start, end);
    return piece;
  }

  #attributes(tag: Tag): Attributes {
    return attributesOf(this.text.slice(tag.start, tag.end));
  }
}
