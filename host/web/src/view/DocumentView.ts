// The document on its pages: follows what the library tells of changes and draws what they reach.

import type { Change, FormeDocument, Reply } from "../library/FormeDocument.ts";
import { CaretDisplay } from "./CaretDisplay.ts";
import { Measuring } from "./Measuring.ts";
import { Outline, type Region } from "./Outline.ts";
import { Pager, type Enough } from "./Pager.ts";
import { Pages } from "./Pages.ts";
import { PageShapes } from "./PageShapes.ts";
import type { Piece } from "./Piece.ts";
import { Positions } from "./Positions.ts";
import type { View } from "./View.ts";

export class DocumentView implements View {
  readonly #outline: Outline;
  readonly #measuring: Measuring;
  readonly #pager: Pager;
  readonly #pages: Pages;
  readonly positions: Positions;
  readonly caret: CaretDisplay;
  #listeners: (() => void)[] = [];
  /** What has changed since pages were filled. */
  #changed = new Map<Region, Set<Piece>>();
  #changedFrom = Infinity;
  #isAllStale = true;
  #isScheduled = false;
  #mustScroll = false;
  #goalX: number | null = null;
  onFocus = () => {};
  /** Told when a phase of drawing begins, so that it can be measured; "" ends the last one. */
  onPhase = (_name: "markup" | "pages" | "elements" | "caret" | "listeners" | "") => {};

  constructor(
    private readonly doc: FormeDocument,
    readonly scroller: HTMLElement,
  ) {
    this.#outline = new Outline(doc);
    this.#measuring = new Measuring(doc, scroller);
    this.#pager = new Pager(this.#outline, this.#measuring, new PageShapes(""));
    this.#pages = new Pages(scroller, this.#pager, this.#measuring);
    this.positions = new Positions(this.#outline, this.#pages.element);
    this.caret = new CaretDisplay(doc, this.positions, this.#pages.element, scroller);
    doc.listen(reply => this.#follow(reply));
    scroller.addEventListener("scroll", () => this.#drawPages());
    window.addEventListener("resize", () => this.#drawPages());
    document.fonts.addEventListener("loadingdone", () => this.redrawAll());
    this.redrawAll();
  }

  get pagesElement(): HTMLElement {
    return this.#pages.element;
  }
  get pageCount(): number {
    return this.#pager.pages.length;
  }
  get caretPage(): number {
    const piece = this.#outline.pieceAt(this.doc.caret);
    return piece ? this.#pager.pageOf(piece) + 1 : 0;
  }

  get visible(): { start: number; end: number } {
    this.flush();
    const [first, last] = this.#pages.near(0);
    const begin = this.#pager.pages[first]?.begin.piece?.start ?? 0;
    const pieces = this.#pager.pages
      .slice(first, last + 1)
      .flatMap(page => page.columns.flat())
      .map(each => each.piece);
    return { start: pieces[0]?.start ?? begin, end: pieces[pieces.length - 1]?.end ?? begin };
  }

  focus(): void {
    this.onFocus();
  }
  onDrawn(listener: () => void): void {
    this.#listeners.push(listener);
  }
  rangesOf(start: number, end: number): Range[] {
    this.flush();
    return this.positions.rangesOf(start, end);
  }
  offsetAt(x: number, y: number): number | null {
    this.flush();
    return this.positions.offsetAt(x, y);
  }

  elementAt(start: number): HTMLElement | null {
    this.flush();
    const piece = this.#outline.pieceAt(start);
    for (const { mounted } of piece?.mounts ?? []) {
      const found = mounted.elementAt(start - piece!.start);
      if (found) return found;
    }
    return null;
  }

  /** Where Up and Down aim at: kept while only they are pressed. */
  get goalX(): number | null {
    return this.#goalX;
  }
  set goalX(x: number | null) {
    this.#goalX = x;
  }

  scrollToCaret(): void {
    this.flush();
    const piece = this.#outline.pieceAt(this.doc.caret);
    if (piece && piece.region.isFlow && piece.mounts.size === 0) {
      while (this.#pager.pageOf(piece) < 0 && !this.#pager.isFilled) this.#pager.fillOn(this.#enough(50));
      this.#drawPages();
      const page = this.#pager.pageOf(piece);
      if (page >= 0) {
        this.scroller.scrollTop = this.#pages.top(page) * (this.#pages.element.currentCSSZoom ?? 1);
        this.#drawPages();
      }
    }
    this.caret.scrollIntoView();
    this.#drawPages();
  }

  /** Reads and draws everything anew. */
  redrawAll(): void {
    this.#isAllStale = true;
    this.#outline.read();
    this.#schedule();
  }

  /** Draws now what waits to be drawn. */
  flush(): void {
    if (!this.#isScheduled) return;
    this.#isScheduled = false;
    this.#fillPages();
    this.#drawPages();
    if (this.#mustScroll) {
      this.#mustScroll = false;
      this.scrollToCaret();
    }
  }

  /** How large the sheets are that the pages are printed on. */
  get sheetRules(): string {
    const sizes = new Map(this.#pager.pages.map(({ shape }) => [shape.name, shape]));
    const rules = [...sizes.values()].map(
      ({ width, height }, i) =>
        `@page sheet${i} { size: ${width}px ${height}px; margin: 0; } .page[data-sheet="${i}"] { page: sheet${i}; }`,
    );
    const names = [...sizes.keys()];
    for (const shown of this.#pages.shown) shown.element.dataset.sheet = String(names.indexOf(shown.page.shape.name));
    return rules.join("\n");
  }

  /** Every page in the window, as for printing. */
  showAllPages(): void {
    this.flush();
    this.#pager.fillOn(() => false);
    this.#pages.draw(true);
    this.caret.draw();
  }

  #follow(reply: Reply): void {
    if (reply.notices.includes("caret") || reply.change) {
      this.caret.atLineEnd = false;
      this.#mustScroll = true;
    }
    if (reply.change) {
      this.onPhase("markup");
      this.#takeUp(reply.change);
      this.onPhase("");
    }
    this.#schedule();
  }

  #takeUp(change: Change): void {
    const followed = this.#outline.follow(change);
    if (followed.all) {
      this.#isAllStale = true;
      return;
    }
    const region = followed.region!;
    const changed = this.#changed.get(region) ?? new Set();
    this.#changed.set(region, changed);
    for (const piece of followed.changed) changed.add(piece);
    for (const piece of followed.removed) changed.delete(piece);
    this.#changedFrom = Math.min(this.#changedFrom, change.start);
  }

  #schedule(): void {
    if (this.#isScheduled) return;
    this.#isScheduled = true;
    queueMicrotask(() => this.flush());
  }

  #fillPages(): void {
    if (this.#isAllStale) this.#fillAnew();
    else for (const [region, pieces] of this.#changed) this.#refill(region, [...pieces]);
    this.#changed.clear();
    this.#changedFrom = Infinity;
  }

  #fillAnew(): void {
    this.#isAllStale = false;
    this.#measuring.rootAttributes = this.#outline.rootAttributes;
    this.#pager.shapes = new PageShapes(this.#outline.masters);
    this.#pages.clear();
    this.#pager.fillAll(this.#enough());
  }

  #refill(region: Region, pieces: Piece[]): void {
    this.onPhase("elements");
    for (const piece of pieces) piece.refresh(this.#measuring.boxOf(piece));
    if (!region.isFlow) return this.#pages.updateStatics();
    this.onPhase("pages");
    this.#pager.refill(region, pieces, Math.min(this.#changedFrom, ...pieces.map(each => each.start)), this.#enough());
  }

  /** Pages in the window are filled at once, others as long as a key may take and then in idle time. */
  #enough(milliseconds = 8): Enough {
    const last = this.#pages.near()[1] + 1;
    const until = performance.now() + milliseconds;
    return page => page > last && performance.now() > until;
  }

  #fillWhenIdle(): void {
    if (this.#isFilling || this.#pager.isFilled) return;
    this.#isFilling = true;
    requestIdleCallback(
      idle => {
        this.#isFilling = false;
        this.flush();
        this.#pager.fillOn(this.#enough(Math.max(5, idle.timeRemaining() - 10)));
        this.#drawPages();
      },
      { timeout: 500 },
    );
  }

  /** Behind the frame that shows what was drawn, so that nobody who listens makes a key wait. */
  #tellDrawn(): void {
    if (this.#isTelling) return;
    this.#isTelling = true;
    requestAnimationFrame(() =>
      setTimeout(() => {
        this.#isTelling = false;
        this.onPhase("listeners");
        for (const listener of this.#listeners) listener();
        this.onPhase("");
      }),
    );
  }

  #isTelling = false;
  #isFilling = false;

  #drawPages(): void {
    this.flush();
    this.onPhase("elements");
    this.#pages.draw();
    this.onPhase("caret");
    this.caret.draw();
    this.onPhase("");
    this.#fillWhenIdle();
    this.#tellDrawn();
  }
}
