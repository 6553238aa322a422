// The page masters of a document: how large pages are and where their regions lie.

import { pixels, sides } from "../markup/Lengths.ts";
import { descendants, elementsOf, type Attributes, type Element } from "../markup/Markup.ts";
import { cssOf } from "./Properties.ts";

export interface Area {
  left: number;
  top: number;
  width: number;
  height: number;
}
export interface RegionShape extends Area {
  name: string;
  style: string;
  align: string;
}
export interface PageShape {
  name: string;
  width: number;
  height: number;
  body: RegionShape & { columns: number; gap: number };
  regions: RegionShape[];
}

const unbounded = 1e9;

export class PageShapes {
  #simple = new Map<string, PageShape>();
  #sequences = new Map<string, Element[]>();

  constructor(masters: string) {
    for (const element of descendants(elementsOf(masters))) {
      const name = element.attributes.get("master-name");
      if (name === undefined) continue;
      if (element.name === "fo:simple-page-master") this.#simple.set(name, shapeOf(name, element));
      else if (element.name === "fo:page-sequence-master") this.#sequences.set(name, element.children);
    }
  }

  /** The shape of a page by what its sequence refers to. */
  shape(reference: string, number: number, index: number, isBlank: boolean): PageShape {
    const name = this.#sequences.has(reference)
      ? this.#select(this.#sequences.get(reference)!, number, index, isBlank)
      : reference;
    return this.#simple.get(name) ?? this.#simple.values().next().value ?? plainShape();
  }

  #select(parts: Element[], number: number, index: number, isBlank: boolean): string {
    let first = 0;
    let last = "";
    for (const part of parts) {
      const count = repeatsOf(part);
      const name =
        part.name === "fo:repeatable-page-master-alternatives"
          ? alternative(part, number, index, isBlank)
          : (part.attributes.get("master-reference") ?? "");
      if (index < first + count) return name;
      last = name;
      first += count;
    }
    return last;
  }
}

function repeatsOf(part: Element): number {
  if (part.name === "fo:single-page-master-reference") return 1;
  const most = Number(part.attributes.get("maximum-repeats") ?? "no-limit");
  return Number.isFinite(most) ? most : unbounded;
}

function alternative(part: Element, number: number, index: number, isBlank: boolean): string {
  const fits = (attributes: Attributes) => {
    const position = attributes.get("page-position") ?? "any";
    const parity = attributes.get("odd-or-even") ?? "any";
    const blank = attributes.get("blank-or-not-blank") ?? "any";
    return (
      (position === "any" || position === (index === 0 ? "first" : "rest")) &&
      (parity === "any" || parity === (number % 2 ? "odd" : "even")) &&
      (blank === "any" || blank === (isBlank ? "blank" : "not-blank"))
    );
  };
  const found = part.children.find(each => fits(each.attributes)) ?? part.children[0];
  return found?.attributes.get("master-reference") ?? "";
}

interface Margins {
  top: number;
  right: number;
  bottom: number;
  left: number;
}

function marginsOf(attributes: Attributes): Margins {
  const [top, right, bottom, left] = sides(attributes.get("margin") ?? "0");
  const margin = (name: string, shorthand: string) => pixels(attributes.get(`margin-${name}`) ?? shorthand, 0);
  return {
    top: margin("top", top),
    right: margin("right", right),
    bottom: margin("bottom", bottom),
    left: margin("left", left),
  };
}

function within(area: Area, margins: Margins): Area {
  return {
    left: area.left + margins.left,
    top: area.top + margins.top,
    width: area.width - margins.left - margins.right,
    height: area.height - margins.top - margins.bottom,
  };
}

function shapeOf(name: string, master: Element): PageShape {
  const a4 = { width: (210 * 96) / 25.4, height: (297 * 96) / 25.4 };
  const width = pixels(master.attributes.get("page-width"), a4.width);
  const height = pixels(master.attributes.get("page-height"), a4.height);
  const page = within({ left: 0, top: 0, width, height }, marginsOf(master.attributes));
  const region = (side: string) => master.children.find(each => each.name === `fo:region-${side}`);
  const body = region("body");
  const shape: PageShape = { name, width, height, regions: [], body: bodyShape(body, page) };
  for (const side of ["before", "after", "start", "end"]) {
    const found = region(side);
    if (found) shape.regions.push(outerShape(found, side, page, side => region(side)));
  }
  return shape;
}

function bodyShape(body: Element | undefined, page: Area): PageShape["body"] {
  const attributes = body?.attributes ?? new Map<string, string>();
  return {
    ...within(page, marginsOf(attributes)),
    name: attributes.get("region-name") ?? "xsl-region-body",
    style: cssOf(withoutBox(attributes)),
    align: attributes.get("display-align") ?? "before",
    columns: Math.max(1, Number(attributes.get("column-count") ?? 1) || 1),
    gap: pixels(attributes.get("column-gap"), 16),
  };
}

function outerShape(
  region: Element,
  side: string,
  page: Area,
  other: (side: string) => Element | undefined,
): RegionShape {
  const { attributes } = region;
  const across = side === "before" || side === "after";
  const reference = across ? page.height : page.width;
  const extentOf = (element?: Element) => pixels(element?.attributes.get("extent"), 0, 16, reference);
  const extent = extentOf(region);
  const isFirst = (each?: Element) => each?.attributes.get("precedence") === "true";
  const area = { ...page };
  if (across) {
    area.height = extent;
    if (!isFirst(region)) {
      area.left += extentOf(other("start"));
      area.width -= extentOf(other("start")) + extentOf(other("end"));
    }
  } else {
    area.width = extent;
    for (const neighbour of ["before", "after"].map(other).filter(isFirst)) {
      area.height -= extentOf(neighbour);
      if (neighbour!.name.endsWith("before")) area.top += extentOf(neighbour);
    }
  }
  if (side === "after") area.top = page.top + page.height - extent;
  if (side === "end") area.left = page.left + page.width - extent;
  return {
    ...area,
    name: attributes.get("region-name") ?? `xsl-region-${side}`,
    style: cssOf(withoutBox(attributes)),
    align: attributes.get("display-align") ?? "before",
  };
}

function withoutBox(attributes: Attributes): Attributes {
  return new Map([...attributes].filter(([name]) => !/^(margin|width|height|display-align)/.test(name)));
}

function plainShape(): PageShape {
  return shapeOf("", elementsOf('<m margin="20mm"><fo:region-body/></m>')[0]);
}

/** A page number as its sequence writes it. */
export function formattedNumber(number: number, format: string): string {
  if (/^[aA]$/.test(format)) {
    const letter = String.fromCharCode(97 + ((number - 1) % 26));
    return format === "A" ? letter.toUpperCase() : letter;
  }
  if (/^[iI]$/.test(format)) {
    const roman = romanNumber(number);
    return format === "I" ? roman.toUpperCase() : roman;
  }
  return String(number).padStart(/^0+1$/.test(format) ? format.length : 1, "0");
}

function romanNumber(number: number): string {
  const signs: [number, string][] = [
    [1000, "m"],
    [900, "cm"],
    [500, "d"],
    [400, "cd"],
    [100, "c"],
    [90, "xc"],
    [50, "l"],
    [40, "xl"],
    [10, "x"],
    [9, "ix"],
    [5, "v"],
    [4, "iv"],
    [1, "i"],
  ];
  let text = "";
  for (const [value, sign] of signs) for (; number >= value; number -= value) text += sign;
  return text;
}
