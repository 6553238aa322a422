// Makes the tree of what a piece shows from what the library says is drawn there.

import { DrawnKind, type Drawn } from "../library/Drawn.ts";
import type { Change, FormeDocument } from "../library/FormeDocument.ts";
import { attributesOf, type Attributes } from "../markup/Markup.ts";
import { isBox, type Box, type BreakKind, type PieceBox, type Run } from "./Box.ts";
import { lookOfElement, roleOf } from "./ElementLooks.ts";
import { lookOf } from "./ObjectLabels.ts";
import { cssOf, fontSizeOf, insetOf, spaceOf } from "./Properties.ts";
import { Spaces } from "./Spaces.ts";
import { attributesOfCell, styleOfTable, widthsOfColumns } from "./TableLook.ts";

/** An element whose content is being read. */
interface Open {
  name: string;
  box: Box;
  attributes: Attributes;
  fontSize: number;
  startIndent: number;
  endIndent: number;
  columns: Attributes[];
}

const resetsIndents = new Set(["fo:table-cell", "fo:list-item-label", "fo:list-item-body", "fo:block-container"]);

/** What was around the cells when they were made. */
const surroundings = new WeakMap<Box, Open>();

/** Makes anew only the cell that holds all that was edited; false if there is none. */
export function rebuildWithin(document: FormeDocument, piece: PieceBox, start: number, edit: Change): boolean {
  const found = cellAround(piece.root, edit);
  const around = found && surroundings.get(found.cell);
  if (!found || !around || piece.footnotes.length > 0) return false;
  const { cell, parent } = found;
  shift(piece.root, edit.start + edit.removed, edit.inserted - edit.removed);
  const made = new BoxBuilder(document, start, start + cell.end, start + cell.start).buildPart(around);
  if (!made) return false;
  surroundings.set(made, around);
  parent.children[parent.children.indexOf(cell)] = made;
  piece.replaced = { old: cell, box: made };
  return true;
}

function cellAround(root: Box, { start, removed }: Change): { cell: Box; parent: Box } | null {
  let found: { cell: Box; parent: Box } | null = null;
  for (let box: Box | undefined = root; box;) {
    const parent: Box = box;
    box = parent.children.filter(isBox).find(each => each.start < start && start + removed < each.end && !each.object);
    if (box?.tag === "td") found = { cell: box, parent };
  }
  return found;
}

/** Moves what lies behind a change. */
function shift(box: Box, from: number, by: number): void {
  for (const child of box.children) {
    if (child.end < from || child.start < 0) continue;
    if (isBox(child)) shift(child, from, by);
    else moveEnds(child, from, by);
  }
  moveEnds(box, from, by);
}

function moveEnds(node: Box | Run, from: number, by: number): void {
  if (node.start >= from) node.start += by;
  if (node.end >= from) node.end += by;
}

export class BoxBuilder {
  #text = "";
  #open: Open[] = [];
  #footnotes: Box[] = [];
  #spaces = new Spaces();

  /** Offsets count from `start`; what is read begins at `from`. */
  constructor(
    private readonly document: FormeDocument,
    private readonly start: number,
    private readonly end: number,
    private readonly from = start,
  ) {}

  build(fontSize: number): PieceBox {
    const root: Box = {
      tag: "div",
      className: "piece",
      style: "",
      attributes: {},
      start: 0,
      end: this.end - this.start,
      children: [],
    };
    this.#read({ name: "", box: root, attributes: new Map(), fontSize, startIndent: 0, endIndent: 0, columns: [] });
    return { root, footnotes: this.#footnotes, ...this.#spaces.settle(root), ...this.#breaks(root) };
  }

  /** One element, as it is within those around. */
  buildPart(around: Open): Box | null {
    const parent: Box = { ...around.box, children: [] };
    this.#read({ ...around, box: parent, columns: [] });
    this.#spaces.settle(parent);
    const [made, ...others] = parent.children;
    return made && isBox(made) && others.length === 0 && this.#footnotes.length === 0 ? made : null;
  }

  #read(around: Open): void {
    this.#text = this.document.call<string>("getContent", this.from, this.end);
    this.#open = [around];
    for (const drawn of this.#drawn()) this.#take(drawn);
  }

  *#drawn(): Generator<Drawn> {
    const tags = this.#text.split("<").length + this.#text.split("&").length;
    for (let from = this.from; from < this.end;) {
      const count = Math.min(600, 2 * tags + 1 + (this.#text.length >> 10));
      const pieces = this.document.call<Drawn[]>("getDrawn", from, count);
      if (pieces.length === 0) return;
      for (const drawn of pieces) {
        if (drawn.start >= this.end) return;
        yield drawn;
      }
      from = pieces[pieces.length - 1].end;
    }
  }

  get #around(): Open {
    return this.#open[this.#open.length - 1];
  }

  #take(drawn: Drawn): void {
    switch (drawn.kind) {
      case DrawnKind.Start:
        return this.#begin(drawn);
      case DrawnKind.End:
        return this.#finish(drawn);
      case DrawnKind.Empty:
        this.#begin(drawn);
        return this.#finish(drawn);
      case DrawnKind.Text:
        return this.#addRun(drawn, drawn.text, true);
      case DrawnKind.Character:
        return this.#addRun(drawn, drawn.text, false);
      case DrawnKind.Placeholder:
        return this.#addRun(drawn, "\u200b", false);
      case DrawnKind.Object:
        return this.#addObject(drawn);
      case DrawnKind.Hidden:
        return;
    }
  }

  #addRun(drawn: Drawn, text: string, isPlain: boolean): void {
    const run: Run = {
      text,
      start: drawn.start - this.start,
      end: drawn.end - this.start,
      isPlain,
      isStop: drawn.isStop,
    };
    this.#around.box.children.push(run);
  }

  #addObject(drawn: Drawn): void {
    const markup = this.#text.slice(drawn.start - this.from, drawn.end - this.from);
    const look = lookOf(drawn.text, markup);
    const [start, end] = [drawn.start - this.start, drawn.end - this.start];
    const css = look.style + cssOf(attributesOf(markup.slice(0, markup.indexOf(">") + 1)));
    const isShown = look.className === "image" && /^(data:image\/|https?:)/.test(look.text);
    this.#around.box.children.push({
      tag: isShown ? "img" : "span",
      className: `object ${look.className}`,
      style: css,
      start,
      end,
      attributes: isShown ? { src: look.text, alt: "" } : look.title ? { title: look.title } : {},
      object:
        drawn.text === "fo:page-number"
          ? "page-number"
          : drawn.text === "fo:page-number-citation"
            ? "page-citation"
            : "other",
      children: isShown ? [] : [{ text: look.text, start, end, isPlain: false, isStop: false }],
    });
  }

  #begin(drawn: Drawn): void {
    const around = this.#around;
    const attributes = attributesOf(this.#text.slice(drawn.start - this.from, drawn.end - this.from));
    const look = lookOfElement(drawn.text);
    const fontSize = fontSizeOf(attributes, around.fontSize);
    const box: Box = {
      tag: look.tag,
      className: look.className,
      style: "",
      start: drawn.start - this.start,
      end: drawn.end - this.start,
      attributes: this.#attributesFor(drawn.text, attributes, look.label),
      children: [],
    };
    const open: Open = {
      name: drawn.text,
      box,
      attributes,
      fontSize,
      columns: [],
      startIndent: around.startIndent,
      endIndent: around.endIndent,
    };
    if (drawn.text === "fo:table-column")
      this.#open.findLast(each => each.name === "fo:table")?.columns.push(attributes);
    else if (drawn.text === "fo:footnote-body") this.#footnotes.push(box);
    else around.box.children.push(box);
    box.style = cssOf(attributes);
    box.hasStopBefore = drawn.isStop && !look.isInline;
    box.hasStopBehind = drawn.text === "fo:footnote"; // behind its body, which is shown elsewhere
    if (!look.isInline) this.#place(open, around);
    if (drawn.text === "fo:table-cell") surroundings.set(box, around);
    if (resetsIndents.has(drawn.text)) open.startIndent = open.endIndent = 0;
    this.#open.push(open);
  }

  #attributesFor(name: string, attributes: Attributes, label?: string): Record<string, string> {
    const given: Record<string, string> = {};
    const role = roleOf(name);
    if (role) given.role = role;
    if (label) given["data-label"] = attributes.get(label) ?? "…";
    if (name === "fo:table-cell") Object.assign(given, attributesOfCell(attributes));
    return given;
  }

  /** Spaces, indents and what else depends on the elements around a block. */
  #place(open: Open, around: Open): void {
    const { box, attributes, fontSize } = open;
    if (open.name === "fo:list-item") {
      const list = around.attributes;
      box.style += `grid-template-columns:${list.get("provisional-distance-between-starts") ?? "24pt"} minmax(0,1fr);`;
      box.style += `column-gap:0;--gap:${list.get("provisional-label-separation") ?? "6pt"};`;
    }
    if ((!box.tag.startsWith("t") && box.className !== "label" && box.className !== "body") || box.tag === "table") {
      const start = insetOf(attributes, "start", around.startIndent, fontSize);
      const end = insetOf(attributes, "end", around.endIndent, fontSize);
      if (start !== 0) box.style += `margin-inline-start:${start}px;`;
      if (end !== 0) box.style += `margin-inline-end:${end}px;`;
      if (attributes.has("start-indent")) open.startIndent = around.startIndent + start;
      if (attributes.has("end-indent")) open.endIndent = around.endIndent + end;
      this.#spaces.note(
        box,
        spaceOf(attributes, "before", fontSize),
        spaceOf(attributes, "after", fontSize),
        open.name,
        attributes,
      );
    }
    box.hasStopBehind = open.name === "fo:table";
  }

  #finish(drawn: Drawn): void {
    if (this.#open.length === 1) return;
    const open = this.#open.pop()!;
    open.box.end = drawn.end - this.start;
    if (open.name === "fo:table") {
      open.box.style += styleOfTable(open.attributes, open.columns);
      const columns = widthsOfColumns(open.columns);
      if (columns) open.box.children.unshift(columns);
    }
  }

  /** Where pages begin and end, as the first and the last elements of the piece say. */
  #breaks(root: Box): Pick<PieceBox, "breakBefore" | "breakAfter" | "keepWithNext" | "keepTogether"> {
    const first = this.#spaces.attributesAlong(root, "first");
    const last = this.#spaces.attributesAlong(root, "last");
    const value = (along: Attributes[], name: string) =>
      along.map(each => each.get(name)).find(each => each !== undefined && each !== "auto");
    const keeps = (along: Attributes[], name: string) =>
      [name, `${name}.within-page`, `${name}.within-column`].some(each => value(along, each) !== undefined);
    return {
      breakBefore: (value(first, "break-before") ?? "") as BreakKind,
      breakAfter: (value(last, "break-after") ?? "") as BreakKind,
      keepWithNext: keeps(last, "keep-with-next"),
      keepTogether: keeps(first.slice(0, 1), "keep-together"),
    };
  }
}
