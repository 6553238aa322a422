// Reading of markup where the library need not be asked: which elements stand next to each other,
// and what their start tags say.

export type Attributes = Map<string, string>;

export interface Tag {
  kind: "start" | "end" | "empty";
  name: string;
  start: number;
  end: number;
}

const markup =
  /<!--[^]*?-->|<!\[CDATA\[[^]*?\]\]>|<\?[^]*?\?>|<!DOCTYPE(?:\[[^]*?\]|[^>[])*>|<(\/?)([^\s>\/!?]+)((?:"[^"]*"|'[^']*'|[^"'>])*)>/g;

/** The tags of a text in their order; comments and the like are passed. */
export function* tagsOf(text: string, from = 0): Generator<Tag> {
  markup.lastIndex = from;
  for (let found = markup.exec(text); found; found = markup.exec(text)) {
    const name = found[2];
    const end = markup.lastIndex;
    if (name === undefined) continue;
    const kind = found[1] ? "end" : found[3].endsWith("/") ? "empty" : "start";
    yield { kind, name, start: found.index, end };
    markup.lastIndex = end;
  }
}

const named: Record<string, string> = { lt: "<", gt: ">", amp: "&", quot: '"', apos: "'" };

function decoded(value: string): string {
  if (!value.includes("&")) return value;
  return value.replace(/&(?:#x([0-9a-f]+)|#(\d+)|(\w+));/gi, (whole, hex, decimal, name) =>
    name ? (named[name] ?? whole) : String.fromCodePoint(hex ? parseInt(hex, 16) : Number(decimal)),
  );
}

/** What a start tag says. The prefix "fo:" is left out, as the elements of templates have it. */
export function attributesOf(tag: string): Attributes {
  const attributes: Attributes = new Map();
  for (const [, name, quoted, single] of tag.matchAll(/\s([^\s=\/>]+)\s*=\s*(?:"([^"]*)"|'([^']*)')/g))
    attributes.set(name.startsWith("fo:") ? name.slice(3) : name, decoded(quoted ?? single));
  return attributes;
}

export interface Element {
  name: string;
  attributes: Attributes;
  start: number;
  end: number;
  children: Element[];
}

/** The elements of a small stretch of markup; text is left out. */
export function elementsOf(text: string): Element[] {
  const root: Element = { name: "", attributes: new Map(), start: 0, end: text.length, children: [] };
  const open = [root];
  for (const tag of tagsOf(text)) {
    const around = open[open.length - 1];
    if (tag.kind === "end") {
      if (open.length > 1) open.pop()!.end = tag.end;
      continue;
    }
    const attributes = attributesOf(text.slice(tag.start, tag.end));
    const element = { name: tag.name, attributes, start: tag.start, end: tag.end, children: [] };
    around.children.push(element);
    if (tag.kind === "start") open.push(element);
  }
  return root.children;
}

export function* descendants(elements: Element[]): Generator<Element> {
  for (const element of elements) {
    yield element;
    yield* descendants(element.children);
  }
}
