// The pages that are near the window are in it; of the others only their place is kept.

import type { Measuring } from "./Measuring.ts";
import { zoomOf } from "./Measuring.ts";
import { PageElement } from "./PageElement.ts";
import type { Page, Pager } from "./Pager.ts";

const gap = 16;

export class Pages {
  readonly element = document.createElement("div");
  #shown = new Map<Page, PageElement>();
  #tops: number[] = [];

  constructor(
    private readonly scroller: HTMLElement,
    private readonly pager: Pager,
    private readonly measuring: Measuring,
  ) {
    this.element.className = "pages";
    this.element.dataset.pages = "";
    scroller.append(this.element);
  }

  /** What is near the window, as numbers of pages, the last one included. */
  near(margin = 0.6): [first: number, last: number] {
    const zoom = zoomOf(this.element);
    const height = this.scroller.clientHeight;
    const from = (this.scroller.scrollTop - margin * height) / zoom;
    const to = (this.scroller.scrollTop + (1 + margin) * height) / zoom;
    const first = Math.max(
      0,
      this.#tops.findIndex((top, i) => top + this.pager.pages[i].shape.height >= from),
    );
    let last = first;
    while (last + 1 < this.#tops.length && this.#tops[last + 1] <= to) ++last;
    return [first, last];
  }

  top(index: number): number {
    return this.#tops[index] ?? 0;
  }

  /** Brings the window up to what the pages hold. */
  draw(all = false): void {
    this.#place();
    const [first, last] = all ? [0, this.pager.pages.length - 1] : this.near();
    const wanted = new Set(this.pager.pages.slice(first, last + 1));
    for (const [page, element] of this.#shown)
      if (!wanted.has(page)) {
        element.remove();
        this.#shown.delete(page);
      }
    let before: Element | null = null;
    for (let i = first; i <= last; ++i) {
      const page = this.pager.pages[i];
      const shown = this.#shown.get(page) ?? this.#show(page);
      if (shown.drawn !== page.columns) shown.update(page);
      shown.drawn = page.columns;
      const style = `translate(${(this.#width - page.shape.width) / 2}px, ${this.#tops[i]}px)`;
      if (shown.element.style.transform !== style) shown.element.style.transform = style;
      const next: Element | null = before ? before.nextElementSibling : this.element.firstElementChild;
      if (next !== shown.element) this.element.insertBefore(shown.element, next);
      before = shown.element;
    }
  }

  updateStatics(): void {
    for (const shown of this.#shown.values()) shown.updateStatics();
  }

  clear(): void {
    for (const shown of this.#shown.values()) shown.remove();
    this.#shown.clear();
  }

  pageAt(element: Element): PageElement | undefined {
    const page = element.closest(".page");
    return [...this.#shown.values()].find(each => each.element === page);
  }

  get shown(): PageElement[] {
    return this.pager.pages.flatMap(page => this.#shown.get(page) ?? []);
  }

  #width = 0;

  #show(page: Page): PageElement {
    const made = new PageElement(page, this.measuring);
    this.#shown.set(page, made);
    return made;
  }

  #place(): void {
    let top = gap;
    this.#width = 0;
    this.#tops = this.pager.pages.map(({ shape }) => {
      const own = top;
      top += shape.height + gap;
      this.#width = Math.max(this.#width, shape.width);
      return own;
    });
    const css = `width:${this.#width}px;height:${top}px;`;
    if (this.#css !== css)
      this.element.style.cssText = `${(this.#css = css)}${this.element.style.zoom ? `zoom:${this.element.style.zoom};` : ""}`;
  }

  #css = "";
}
