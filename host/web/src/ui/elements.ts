// Makes elements of the page in one expression.

type Attributes = Record<string, string | number | boolean | undefined | ((event: never) => void)>;
type Child = Node | string | null | undefined | false;

/** An attribute that is false or undefined is left out; a function listens to the event `on…`. */
export function h<K extends keyof HTMLElementTagNameMap>(
  name: K,
  attributes: Attributes = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const made = document.createElement(name);
  for (const [attribute, value] of Object.entries(attributes)) {
    if (typeof value === "function") made.addEventListener(attribute.slice(2), value as EventListener);
    else if (value !== undefined && value !== false) made.setAttribute(attribute, value === true ? "" : String(value));
  }
  made.append(...children.filter((child): child is Node | string => !!child || child === ""));
  return made;
}

let lastId = 0;

/** An id of its own, for labels to point to. */
export function freshId(): string {
  return `ui-${++lastId}`;
}

/** Keeps a box that opens at a place inside the window. */
export function placeBox(box: HTMLElement, x: number, y: number, above = y): void {
  const { width, height } = box.getBoundingClientRect();
  const room = { width: innerWidth - 4, height: innerHeight - 4 };
  const top = y + height <= room.height ? y : above - height;
  box.style.left = `${Math.max(4, Math.min(x, room.width - width))}px`;
  box.style.top = `${Math.max(4, Math.min(top, room.height - height))}px`;
}
