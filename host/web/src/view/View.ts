// What the interface around the pages knows of them.

export interface View {
  focus(): void;
  scrollToCaret(): void;
  /** The ranges of the window that show the units from start up to end; only what is drawn now. */
  rangesOf(start: number, end: number): Range[];
  /** What shows the element whose start tag is at the offset, if it is drawn now. */
  elementAt(start: number): HTMLElement | null;
  /** The offset of the text shown at a point of the window. */
  offsetAt(x: number, y: number): number | null;
  /** Called whenever something was drawn anew. */
  onDrawn(listener: () => void): void;
  readonly visible: { start: number; end: number };
  readonly pageCount: number;
  /** The number of the page with the caret, from 1. */
  readonly caretPage: number;
}
