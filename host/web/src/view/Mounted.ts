// A box's tree in the page, and how it becomes that of another box with as few changes as it takes.

import { isBox, type Box, type Run } from "./Box.ts";

interface Shown {
  box: Box | Run;
  node: Node;
  children: Shown[];
}

/** A text, an object, or a place beside what the caret passes, as it is shown. */
export class Leaf {
  constructor(
    private readonly shown: Shown,
    readonly kind: "text" | "object" | "before" | "after",
  ) {}

  get node(): Node {
    return this.shown.node;
  }
  get start(): number {
    return this.kind === "after" ? this.shown.box.end : this.shown.box.start;
  }
  get end(): number {
    return this.kind === "before" ? this.shown.box.start : this.shown.box.end;
  }
  /** Of text: whether each of its units is one of the document's. */
  get isPlain(): boolean {
    return this.kind === "text" && (this.shown.box as Run).isPlain;
  }
}

export class Mounted {
  readonly element: HTMLElement;
  #root: Shown;
  #leaves: Leaf[] | null = null;
  /** What page numbers show here. */
  #pageNumber = "";

  constructor(box: Box, pageNumber = "") {
    this.#pageNumber = pageNumber;
    this.#root = this.#make(box);
    this.element = this.#root.node as HTMLElement;
  }

  /** Shows another box in the same place. */
  update(box: Box, pageNumber = this.#pageNumber): void {
    const isNumberSame = pageNumber === this.#pageNumber;
    this.#pageNumber = pageNumber;
    if (box !== this.#root.box || !isNumberSame) this.#patch(this.#root, box);
  }

  /** Shows a part of the tree anew that another one has taken the place of. */
  replace(old: Box, box: Box): void {
    const shown = this.#shownOf(this.#root, old);
    if (shown) this.#patch(shown, box);
  }

  #shownOf(shown: Shown, box: Box): Shown | null {
    if (shown.box === box) return shown;
    const child =
      shown.children.find(each => each.box === box) ??
      shown.children.findLast(each => isBox(each.box) && each.box.start <= box.start);
    return child ? this.#shownOf(child, box) : null;
  }

  /** Texts and objects in the order in which they are shown. */
  get leaves(): Leaf[] {
    if (!this.#leaves) {
      this.#leaves = [];
      this.#collect(this.#root, this.#leaves);
    }
    return this.#leaves;
  }

  /** The last text or object that begins at or before the offset; the first, where none does. */
  leafAt(offset: number): Leaf | undefined {
    const leaves = this.leaves;
    let low = 0;
    let high = leaves.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (leaves[middle].start <= offset) low = middle + 1;
      else high = middle;
    }
    const before = leaves[low - 1];
    const behind = leaves[low];
    return before && (offset <= before.end || !behind) ? before : (behind ?? before);
  }

  leafOf(node: Node): Leaf | undefined {
    return this.leaves.find(each => each.node === node);
  }

  /** What shows the element whose start tag is at the offset. */
  elementAt(start: number): HTMLElement | null {
    const found = this.#find(this.#root, start);
    return found ? (found.node as HTMLElement) : null;
  }

  #find(shown: Shown, start: number): Shown | null {
    for (const child of shown.children) {
      if (!isBox(child.box)) continue;
      if (child.box.start === start) return child;
      if ((child.box.start < start && start < child.box.end) || child.box.start === -1) {
        const found = this.#find(child, start);
        if (found) return found;
      }
    }
    return null;
  }

  #collect(shown: Shown, leaves: Leaf[]): void {
    const { box } = shown;
    if (!isBox(box)) {
      leaves.push(new Leaf(shown, "text"));
      return;
    }
    if (box.object) {
      leaves.push(new Leaf(shown, "object"));
      return;
    }
    if (box.className === "hidden") return;
    if (box.hasStopBefore && leaves[leaves.length - 1]?.end !== box.start) leaves.push(new Leaf(shown, "before"));
    const children =
      box.tag === "table" ? shown.children.toSorted((a, b) => a.box.start - b.box.start) : shown.children;
    for (const child of children) this.#collect(child, leaves);
    if (box.hasStopBehind) leaves.push(new Leaf(shown, "after"));
  }

  #make(box: Box | Run): Shown {
    if (!isBox(box)) return { box, node: document.createTextNode(box.text), children: [] };
    const element = document.createElement(box.tag);
    if (box.className) element.className = box.className;
    if (box.style) element.style.cssText = box.style;
    for (const name in box.attributes) element.setAttribute(name, box.attributes[name]);
    const children = this.#childrenOf(box).map(child => this.#make(child));
    for (const child of children) element.append(child.node);
    return { box, node: element, children };
  }

  #childrenOf(box: Box): (Box | Run)[] {
    if (box.object !== "page-number" || !this.#pageNumber) return box.children;
    return [{ ...(box.children[0] as Run), text: this.#pageNumber }];
  }

  #patch(shown: Shown, box: Box | Run): void {
    if (isBox(box)) this.#patchElement(shown, box);
    else if ((shown.node as Text).data !== box.text) patchText(shown.node as Text, box.text);
    shown.box = box;
  }

  #patchElement(shown: Shown, box: Box): void {
    const old = shown.box as Box;
    const element = shown.node as HTMLElement;
    if (old.object || old.hasStopBefore !== box.hasStopBefore || old.hasStopBehind !== box.hasStopBehind)
      this.#leaves = null;
    if (old.className !== box.className) element.className = box.className;
    if (old.style !== box.style) element.style.cssText = box.style;
    for (const name in old.attributes) if (!(name in box.attributes)) element.removeAttribute(name);
    for (const name in box.attributes)
      if (old.attributes[name] !== box.attributes[name]) element.setAttribute(name, box.attributes[name]);
    this.#patchChildren(shown, this.#childrenOf(box));
  }

  /** Children of the same kind at the beginning and at the end stay; those between are made anew. */
  #patchChildren(shown: Shown, boxes: (Box | Run)[]): void {
    const old = shown.children;
    const most = Math.min(old.length, boxes.length);
    let first = 0;
    while (first < most && areAlike(old[first].box, boxes[first])) ++first;
    let last = 0;
    while (last < most - first && areAlike(old[old.length - 1 - last].box, boxes[boxes.length - 1 - last])) ++last;
    if (first + last < Math.max(old.length, boxes.length)) this.#leaves = null;
    const children = boxes.map((box, i) => {
      const kept = i < first ? old[i] : i >= boxes.length - last ? old[old.length - boxes.length + i] : null;
      if (!kept) return this.#make(box);
      this.#patch(kept, box);
      return kept;
    });
    for (const gone of old.slice(first, old.length - last)) (gone.node as ChildNode).remove();
    const behind = last > 0 ? old[old.length - last].node : null;
    for (const made of children.slice(first, boxes.length - last)) shown.node.insertBefore(made.node, behind);
    shown.children = children;
  }
}

function areAlike(a: Box | Run, b: Box | Run): boolean {
  if (isBox(a)) return isBox(b) && a.tag === b.tag && a.object === b.object;
  return !isBox(b);
}

/** Only the units that differ, so that ranges over the others stay. */
function patchText(node: Text, text: string): void {
  const old = node.data;
  const most = Math.min(old.length, text.length);
  let first = 0;
  while (first < most && old[first] === text[first]) ++first;
  let last = 0;
  while (last < most - first && old[old.length - 1 - last] === text[text.length - 1 - last]) ++last;
  node.replaceData(first, old.length - first - last, text.slice(first, text.length - last));
}
