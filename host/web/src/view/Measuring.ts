// How high pieces are and where a page may end in them. The browser lays each piece out once, on the
// page that shows it or, where none does, in a place that nobody sees.

import type { FormeDocument } from "../library/FormeDocument.ts";
import { BoxBuilder, rebuildWithin } from "./BoxBuilder.ts";
import type { PieceBox } from "./Box.ts";
import { Mounted } from "./Mounted.ts";
import type { Header, Piece } from "./Piece.ts";
import { fontSizeOf, cssOf } from "./Properties.ts";
import type { Region } from "./Outline.ts";
import type { Attributes } from "../markup/Markup.ts";
import { round } from "../markup/Lengths.ts";
import { breaksIn, headerIn } from "./Breaks.ts";

const defaultFontSize = 16;

export class Measuring {
  readonly #place = document.createElement("div");
  rootAttributes: Attributes = new Map();

  constructor(
    private readonly document: FormeDocument,
    around: HTMLElement,
  ) {
    this.#place.className = "measuring";
    this.#place.inert = true;
    this.#place.ariaHidden = "true";
    around.append(this.#place);
  }

  boxOf(piece: Piece): PieceBox {
    const { box, edit } = piece;
    piece.edit = null;
    if (!box || (edit && !rebuildWithin(this.document, box, piece.start, edit)))
      piece.box = new BoxBuilder(this.document, piece.start, piece.end).build(this.#fontSize(piece.region));
    return piece.box!;
  }

  /** What elements in a region inherit. */
  styleOf(region: Region): string {
    return [this.rootAttributes, region.sequence.attributes, region.attributes].map(cssOf).join("");
  }

  #fontSize(region: Region): number {
    return [this.rootAttributes, region.sequence.attributes, region.attributes].reduce(
      (size, each) => fontSizeOf(each, size),
      defaultFontSize,
    );
  }

  isMeasured(piece: Piece, width: number): boolean {
    return piece.measures !== null && piece.measuredWidth === width;
  }

  /** Measures pieces of one region at once, which lays out once. */
  measure(pieces: Piece[], width: number): void {
    if (pieces.length === 0) return;
    this.#withShown(pieces, width, elements => {
      pieces.forEach((piece, i) => {
        const notes = [...elements[i].querySelectorAll<HTMLElement>(":scope > .measured-note")];
        const element = elements[i].querySelector<HTMLElement>(":scope > .piece") ?? elements[i];
        piece.measuredWidth = width;
        piece.measures = {
          height: heightOf(element),
          breaks: null,
          header: null,
          footnotes: notes.map(note => ({ y: 0, height: heightOf(note) })),
        };
      });
    });
  }

  /** From what is shown of it already; false where nothing is. */
  measureShown(piece: Piece, width: number): boolean {
    const shown = this.#shown(piece);
    if (!shown || piece.measuredWidth !== width || this.boxOf(piece).footnotes.length > 0) return false;
    const height = heightOf(shown);
    const former = piece.formerMeasures;
    piece.measures =
      former?.height === height && former.footnotes.length === 0
        ? former
        : { height, breaks: null, header: null, footnotes: [] };
    return true;
  }

  breaksOf(piece: Piece): number[] {
    const measures = piece.measures!;
    if (!measures.breaks) {
      const read = (element: HTMLElement) => {
        measures.breaks = breaksIn(element);
        measures.header = headerIn(element);
      };
      const shown = this.#shown(piece);
      if (shown) read(shown);
      else
        this.#withShown([piece], piece.measuredWidth, ([element]) =>
          read(element.querySelector<HTMLElement>(":scope > .piece")!),
        );
    }
    return measures.breaks!;
  }

  headerOf(piece: Piece): Header | null {
    this.breaksOf(piece);
    return piece.measures!.header;
  }

  #shown(piece: Piece): HTMLElement | null {
    for (const { mounted, part } of piece.mounts)
      if (part === -1 && mounted.element.isConnected) return mounted.element;
    return null;
  }

  #withShown(pieces: Piece[], width: number, read: (elements: HTMLElement[]) => void): void {
    const place = this.#place;
    place.style.cssText = `${this.styleOf(pieces[0].region)}width:${width}px;`;
    const elements = pieces.map(piece => {
      const box = this.boxOf(piece);
      const element = document.createElement("div");
      element.append(new Mounted(box.root).element);
      for (const note of box.footnotes) {
        const noteElement = new Mounted(note).element;
        noteElement.classList.add("measured-note");
        element.append(noteElement);
      }
      return element;
    });
    place.replaceChildren(...elements);
    read(elements);
    place.replaceChildren();
  }
}

export function zoomOf(element: Element): number {
  return element.currentCSSZoom ?? 1;
}

function heightOf(element: HTMLElement): number {
  return round(element.getBoundingClientRect().height / zoomOf(element));
}
