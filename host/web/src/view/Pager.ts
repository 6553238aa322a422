// Fills pages with pieces in their order. It works with heights alone and touches no page that a
// change did not reach: it stops at the first page that begins as it did before.

import type { Measuring } from "./Measuring.ts";
import type { Outline, Region, Sequence } from "./Outline.ts";
import type { Header, Piece } from "./Piece.ts";
import { formattedNumber, type PageShape, type PageShapes } from "./PageShapes.ts";

/** A part of a piece, from a height up to another one, as it stands on a page. */
export interface Slice {
  piece: Piece;
  from: number;
  to: number;
  isWhole: boolean;
  /** The space above it. */
  gap: number;
  /** What of the piece is shown again above, the header of a table. */
  header: Header | null;
}

export interface Page {
  sequence: Sequence;
  shape: PageShape;
  number: number;
  label: string;
  columns: Slice[][];
  begin: Place;
}

/** Where the next page begins. */
interface Place {
  sequence: number;
  piece: Piece | null;
  index: number;
  from: number;
  number: number;
  pageInSequence: number;
}

const tolerance = 0.6;

/** Whether to stop ahead of a page, for now. */
export type Enough = (page: number) => boolean;

export class Pager {
  pages: Page[] = [];
  /** Pieces that have changed and stand on no page yet. */
  #pending = new Set<Piece>();
  /** Where filling stopped; the pages from there on are as they were before. */
  #rest: { page: number; place: Place } | null = null;

  constructor(
    private readonly outline: Outline,
    private readonly measuring: Measuring,
    public shapes: PageShapes,
  ) {}

  /** Fills all pages, as many as there is time for: `fillOn` goes on behind them. */
  fillAll(enough: Enough): void {
    this.pages = [];
    this.#rest = null;
    this.#pending.clear();
    this.#fill(0, { sequence: 0, piece: null, index: 0, from: 0, number: 1, pageInSequence: 0 }, [], enough);
  }

  /** Fills anew around pieces that have changed. */
  refill(region: Region, changed: Piece[], at: number, enough: Enough): void {
    const sequence = this.outline.sequences.indexOf(region.sequence);
    const first = Math.max(0, this.#pageBefore(sequence, at) - 1);
    const place = this.pages[first]?.begin;
    if (!place) return this.fillAll(enough);
    for (const piece of changed) this.#pending.add(piece);
    if (this.#rest && this.#rest.page <= first) return;
    this.#fill(first, this.#found(place), this.pages.splice(first), enough);
  }

  get isFilled(): boolean {
    return this.#rest === null;
  }

  /** Goes on where the filling of pages stopped. */
  fillOn(enough: Enough): void {
    if (!this.#rest) return;
    const { page, place } = this.#rest;
    this.#rest = null;
    this.#fill(page, this.#found(place), this.pages.splice(page), enough);
  }

  /** The pages that show a piece. */
  pageOf(piece: Piece, y = 0): number {
    const sequence = this.outline.sequences.indexOf(piece.region.sequence);
    for (let i = this.#pageBefore(sequence, piece.start); i < this.pages.length; ++i) {
      const slices = this.pages[i].columns.flat();
      if (slices.some(each => each.piece === piece && y >= each.from - tolerance && (y < each.to || each.isWhole)))
        return i;
      if (slices.length > 0 && slices[0].piece.start > piece.start) return -1;
    }
    return -1;
  }

  flowOf(sequence: Sequence): Region | undefined {
    return sequence.regions.find(each => each.isFlow);
  }

  widthOf(shape: PageShape): number {
    const { width, columns, gap } = shape.body;
    return (width - gap * (columns - 1)) / columns;
  }

  #pageBefore(sequence: number, offset: number): number {
    let low = 0;
    let high = this.pages.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      const { begin } = this.pages[middle];
      const isBefore =
        begin.sequence < sequence || (begin.sequence === sequence && (begin.piece?.start ?? -1) <= offset);
      if (isBefore) low = middle + 1;
      else high = middle;
    }
    return Math.max(0, low - 1);
  }

  /** The place in the pieces as they are now. */
  #found(place: Place): Place {
    const pieces = this.flowOf(this.outline.sequences[place.sequence])?.pieces ?? [];
    const index = place.piece ? pieces.indexOf(place.piece) : 0;
    return index >= 0 ? { ...place, index } : { ...place, index: Math.min(place.index, pieces.length), piece: null };
  }

  /** `old` are the pages as they were; where a page begins as it did, they still hold. */
  #fill(first: number, begin: Place, old: Page[], enough: Enough): void {
    const rest = this.#rest;
    this.#rest = null;
    for (let place: Place | null = begin; place;) {
      const index = this.pages.length;
      const before = old[index - first];
      if (this.#pending.size === 0 && before && isSame(before.begin, place)) {
        this.pages.push(...old.slice(index - first));
        this.#rest = rest && rest.page > index ? rest : null;
        return;
      }
      if (index > first && enough(index)) {
        this.pages.push(...old.slice(index - first));
        this.#rest = { page: index, place };
        return;
      }
      const filled: Filled = new PageFiller(this, this.outline, this.measuring, place).fill();
      this.pages.push(before && isSamePage(before, filled.page) ? Object.assign(before, filled.page) : filled.page);
      for (const slice of filled.page.columns.flat())
        if (filled.next?.piece !== slice.piece) this.#pending.delete(slice.piece);
      place = filled.next;
    }
    this.#pending.clear();
  }
}

interface Filled {
  page: Page;
  next: Place | null;
}

function isSame(a: Place, b: Place): boolean {
  return (
    a.piece === b.piece &&
    a.sequence === b.sequence &&
    Math.abs(a.from - b.from) < 0.1 &&
    a.number === b.number &&
    a.piece !== null
  );
}

function isSamePage(a: Page, b: Page): boolean {
  return a.shape === b.shape && a.label === b.label && a.sequence === b.sequence;
}

/** One page, column by column. */
class PageFiller {
  readonly #pieces: Piece[];
  readonly #shape: PageShape;
  readonly #sequence: Sequence;
  #index: number;
  #from: number;
  #notes = 0;
  #endsPage = false;

  constructor(
    private readonly pager: Pager,
    private readonly outline: Outline,
    private readonly measuring: Measuring,
    private readonly place: Place,
  ) {
    this.#sequence = outline.sequences[place.sequence];
    this.#pieces = this.#sequence ? (pager.flowOf(this.#sequence)?.pieces ?? []) : [];
    this.#index = place.index;
    this.#from = place.from;
    const reference = this.#sequence?.attributes.get("master-reference") ?? "";
    this.#shape = pager.shapes.shape(reference, this.#number, place.pageInSequence, false);
  }

  get #number(): number {
    const initial = Number(this.#sequence?.attributes.get("initial-page-number"));
    return this.place.pageInSequence === 0 && initial > 0 ? initial : this.place.number;
  }

  fill(): Filled {
    const columns: Slice[][] = [];
    this.#measureAhead();
    const isBlank = this.#mustStayBlank();
    for (let i = 0; i < this.#shape.body.columns; ++i)
      columns.push(isBlank || this.#endsPage ? [] : this.#fillColumn());
    const page: Page = {
      sequence: this.#sequence,
      shape: this.#shape,
      number: this.#number,
      columns,
      label: formattedNumber(this.#number, this.#sequence?.attributes.get("format") ?? "1"),
      begin: { ...this.place, piece: this.#pieces[this.place.index] ?? null },
    };
    return { page, next: this.#next() };
  }

  #next(): Place | null {
    const number = this.#number + 1;
    if (this.#index < this.#pieces.length)
      return {
        sequence: this.place.sequence,
        piece: this.#pieces[this.#index],
        index: this.#index,
        from: this.#from,
        number,
        pageInSequence: this.place.pageInSequence + 1,
      };
    const sequence = this.place.sequence + 1;
    return sequence < this.outline.sequences.length
      ? { sequence, piece: null, index: 0, from: 0, number, pageInSequence: 0 }
      : null;
  }

  /** A page is left empty where the next piece begins on one with another parity. */
  #mustStayBlank(): boolean {
    const piece = this.#pieces[this.#index];
    if (!piece || this.#from > 0) return false;
    const wanted = this.measuring.boxOf(piece).breakBefore;
    return (
      this.place.pageInSequence > 0 &&
      ((wanted === "odd-page" && this.#number % 2 === 0) || (wanted === "even-page" && this.#number % 2 === 1))
    );
  }

  #measureAhead(): void {
    const width = this.pager.widthOf(this.#shape);
    const wanted: Piece[] = [];
    for (let i = this.#index, height = 0; i < this.#pieces.length && height < 2 * this.#shape.body.height; ++i) {
      const piece = this.#pieces[i];
      if (!this.measuring.isMeasured(piece, width) && !this.measuring.measureShown(piece, width)) wanted.push(piece);
      height += piece.measures?.height ?? 20;
    }
    this.measuring.measure(wanted, width);
  }

  #fillColumn(): Slice[] {
    const slices: Slice[] = [];
    const width = this.pager.widthOf(this.#shape);
    let y = 0;
    let spaceAfter = 0;
    while (this.#index < this.#pieces.length) {
      const piece = this.#pieces[this.#index];
      if (!this.measuring.isMeasured(piece, width)) this.measuring.measure([piece], width);
      const box = this.measuring.boxOf(piece);
      const measures = piece.measures!;
      if (slices.length > 0 && this.#from === 0 && box.breakBefore) {
        this.#endsPage = box.breakBefore !== "column";
        break;
      }
      const gap = slices.length === 0 || this.#from > 0 ? 0 : Math.max(spaceAfter, box.spaceBefore);
      const notes = this.#from === 0 ? measures.footnotes.reduce((sum, each) => sum + each.height, 0) : 0;
      const header = this.#from > 0 ? this.#headerOf(piece) : null;
      const room = this.#shape.body.height - this.#notes - notes - y - gap - (header?.height ?? 0);
      if (measures.height - this.#from <= room + tolerance) {
        slices.push({ piece, from: this.#from, to: measures.height, isWhole: this.#from === 0, gap, header });
        this.#notes += notes;
        y += gap + measures.height - this.#from + (header?.height ?? 0);
        spaceAfter = box.spaceAfter;
        ++this.#index;
        this.#from = 0;
        if (box.breakAfter) {
          this.#endsPage = box.breakAfter !== "column";
          break;
        }
        continue;
      }
      this.#divide(piece, slices, { gap, header }, room, notes);
      break;
    }
    return slices;
  }

  /** Where there is room for more below it, the header of a table is shown on each of its pages. */
  #headerOf(piece: Piece): Header | null {
    const header = this.measuring.headerOf(piece);
    return header && header.height < this.#shape.body.height / 3 && this.#from >= header.top + header.height
      ? header
      : null;
  }

  /** As much of the piece as there is room for. */
  #divide(piece: Piece, slices: Slice[], above: Pick<Slice, "gap" | "header">, room: number, notes: number): void {
    const isFirst = slices.length === 0;
    const box = this.measuring.boxOf(piece);
    const most = this.#from + room + tolerance;
    const at =
      box.keepTogether && !isFirst
        ? undefined
        : this.measuring.breaksOf(piece).findLast(each => each > this.#from + tolerance && each <= most);
    const to = at ?? (isFirst ? this.#from + Math.max(room, 20) : undefined);
    if (to === undefined) return this.#takeBackKept(slices);
    slices.push({ piece, from: this.#from, to, isWhole: false, ...above });
    this.#notes += notes;
    this.#from = to;
  }

  /** Headings go to the next page with what they head. */
  #takeBackKept(slices: Slice[]): void {
    let kept = 0;
    while (kept < slices.length && this.measuring.boxOf(slices[slices.length - 1 - kept].piece).keepWithNext) ++kept;
    if (kept === 0 || kept === slices.length || slices.slice(-kept).some(each => !each.isWhole)) return;
    slices.length -= kept;
    this.#index -= kept;
  }
}
