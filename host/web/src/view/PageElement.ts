// A page in the window: its regions, and the pieces that stand on it.

import type { Measuring } from "./Measuring.ts";
import { Mounted } from "./Mounted.ts";
import type { Region } from "./Outline.ts";
import type { Page, Slice } from "./Pager.ts";
import type { Area, RegionShape } from "./PageShapes.ts";
import type { Mount, Piece } from "./Piece.ts";

interface SliceElement {
  piece: Piece;
  element: HTMLElement;
  mount: Mount;
  /** The header of a table that began on an earlier page. */
  repeated?: Mount;
  look: string;
}

function placed(area: Area, className: string): HTMLElement {
  const element = document.createElement("div");
  element.className = className;
  element.style.cssText = `left:${area.left}px;top:${area.top}px;width:${area.width}px;height:${area.height}px;`;
  return element;
}

export class PageElement {
  readonly element = document.createElement("div");
  #columns: { element: HTMLElement; slices: SliceElement[] }[] = [];
  #notes: { element: HTMLElement; mounts: SliceElement[] };
  #statics: { region: Region; element: HTMLElement; shown: SliceElement[] }[] = [];
  /** The columns that it showed last. */
  drawn: unknown = null;

  constructor(
    public page: Page,
    private readonly measuring: Measuring,
  ) {
    const { shape } = page;
    this.element.className = "page";
    this.element.role = "region";
    this.element.ariaLabel = page.label;
    this.element.style.width = `${shape.width}px`;
    this.element.style.height = `${shape.height}px`;
    for (const region of shape.regions) this.#addStatic(region);
    const flow = page.sequence?.regions.find(each => each.isFlow);
    const style = flow ? measuring.styleOf(flow) : "";
    this.#addColumns(style);
    this.#notes = { element: placed(shape.body, "footnotes"), mounts: [] };
    this.#notes.element.style.cssText += style;
    this.element.append(this.#notes.element);
    this.update(page);
  }

  /** Shows what stands on the page now; what stood there before stays where it is. */
  update(page: Page): void {
    this.page = page;
    this.#columns.forEach((column, i) => this.#updateColumn(column, page.columns[i] ?? []));
    this.#updateNotes(page);
  }

  /** Shows changed headers and footers. */
  updateStatics(): void {
    for (const { region, element, shown } of this.#statics) {
      if (shown.length !== region.pieces.length || shown.some(({ piece }, i) => piece !== region.pieces[i])) {
        shown.splice(0).forEach(unmount);
        this.#fillStatic(region, element, shown);
      }
      for (const { piece, mount } of shown) mount.mounted.update(this.measuring.boxOf(piece).root, this.page.label);
    }
  }

  remove(): void {
    for (const { slices } of this.#columns) slices.forEach(unmount);
    for (const { shown } of this.#statics) shown.forEach(unmount);
    this.#notes.mounts.forEach(unmount);
    this.element.remove();
  }

  #addColumns(style: string): void {
    const { body } = this.page.shape;
    const width = (body.width - body.gap * (body.columns - 1)) / body.columns;
    for (let i = 0; i < body.columns; ++i) {
      const element = placed({ ...body, left: body.left + i * (width + body.gap), width }, "region body");
      element.style.cssText += body.style + style;
      this.#columns.push({ element, slices: [] });
      this.element.append(element);
    }
  }

  #addStatic(shape: RegionShape): void {
    const region = this.page.sequence?.regions.find(each => !each.isFlow && each.flowName === shape.name);
    const element = placed(shape, `region outer ${shape.align}`);
    element.style.cssText += shape.style + (region ? this.measuring.styleOf(region) : "");
    this.element.append(element);
    if (!region) return;
    const shown: SliceElement[] = [];
    this.#statics.push({ region, element, shown });
    this.#fillStatic(region, element, shown);
  }

  #fillStatic(region: Region, element: HTMLElement, shown: SliceElement[]): void {
    for (const piece of region.pieces) {
      const mounted = new Mounted(this.measuring.boxOf(piece).root, this.page.label);
      shown.push(mount(piece, mounted, mounted.element, -1));
      element.append(mounted.element);
    }
  }

  #updateColumn(column: { element: HTMLElement; slices: SliceElement[] }, slices: Slice[]): void {
    const known = new Map(column.slices.map(each => [each.piece, each]));
    const shown = slices.map(slice => {
      const found = known.get(slice.piece);
      known.delete(slice.piece);
      const element = found ?? this.#mountSlice(slice);
      this.#look(element, slice);
      return element;
    });
    known.forEach(unmount);
    shown.forEach((each, i) => {
      if (column.element.children[i] !== each.element)
        column.element.insertBefore(each.element, column.element.children[i] ?? null);
    });
    column.slices = shown;
  }

  /** A whole piece takes the height it has; a part of one is cut out of it. */
  #look(shown: SliceElement, { gap, isWhole, from, to, header }: Slice): void {
    const key = `${gap} ${isWhole || `${from} ${to} ${header?.top} ${header?.height}`}`;
    if (shown.look === key) return;
    shown.look = key;
    const piece = shown.mount.mounted.element;
    const cut = piece.parentElement!;
    shown.element.style.marginTop = `${gap}px`;
    cut.style.cssText = isWhole ? "" : `height:${to - from}px;overflow:clip;`;
    piece.style.marginTop = from > 0 ? `${-from}px` : "";
    this.#repeatHeader(shown, header);
  }

  #repeatHeader(shown: SliceElement, header: Slice["header"]): void {
    if (shown.repeated) {
      shown.piece.mounts.delete(shown.repeated);
      shown.repeated.mounted.element.parentElement!.remove();
      shown.repeated = undefined;
    }
    if (!header) return;
    const mounted = new Mounted(this.measuring.boxOf(shown.piece).root, this.page.label);
    const cut = document.createElement("div");
    cut.className = "cut";
    cut.ariaHidden = "true";
    cut.style.cssText = `height:${header.height}px;overflow:clip;`;
    mounted.element.style.marginTop = `${-header.top}px`;
    cut.append(mounted.element);
    shown.element.prepend(cut);
    shown.repeated = { mounted, part: -1 };
    shown.piece.mounts.add(shown.repeated);
  }

  #mountSlice({ piece }: Slice): SliceElement {
    const mounted = new Mounted(this.measuring.boxOf(piece).root, this.page.label);
    const cut = document.createElement("div");
    cut.className = "cut";
    cut.append(mounted.element);
    const element = document.createElement("div");
    element.className = "slice";
    element.append(cut);
    return mount(piece, mounted, element, -1);
  }

  #updateNotes(page: Page): void {
    const wanted = page.columns
      .flat()
      .filter(each => each.from === 0 && this.measuring.boxOf(each.piece).footnotes.length > 0);
    const pieces = wanted.flatMap(({ piece }) =>
      this.measuring.boxOf(piece).footnotes.map((_, part) => ({ piece, part })),
    );
    const isSame =
      pieces.length === this.#notes.mounts.length &&
      pieces.every(
        ({ piece, part }, i) => this.#notes.mounts[i].piece === piece && this.#notes.mounts[i].mount.part === part,
      );
    if (isSame) return;
    this.#notes.mounts.forEach(unmount);
    this.#notes.mounts = pieces.map(({ piece, part }) => {
      const mounted = new Mounted(this.measuring.boxOf(piece).footnotes[part], page.label);
      return mount(piece, mounted, mounted.element, part);
    });
    this.#notes.element.replaceChildren(...this.#notes.mounts.map(each => each.element));
  }
}

function mount(piece: Piece, mounted: Mounted, element: HTMLElement, part: number): SliceElement {
  const made = { mounted, part };
  piece.mounts.add(made);
  return { piece, element, mount: made, look: "" };
}

function unmount(shown: SliceElement): void {
  shown.piece.mounts.delete(shown.mount);
  if (shown.repeated) shown.piece.mounts.delete(shown.repeated);
  shown.element.remove();
}
