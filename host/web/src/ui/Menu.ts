// Menus that open at a place, with menus in them, driven by mouse and keys.

import { text, type TextKey } from "../texts/texts.ts";
import { isEnabled, type Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { h, placeBox } from "./elements.ts";
import { icon } from "./icons.ts";
import { runCommand } from "./runCommand.ts";
import { shownKeys } from "./keys.ts";

export type MenuEntry = Command | Submenu | "-";

/** What it holds is asked for when it opens. */
export interface Submenu {
  text: TextKey;
  entries(editor: Editor): MenuEntry[];
  /** In place of entries, as a grid for the size of a table. */
  panel?(editor: Editor, close: () => void): HTMLElement;
}

export interface MenuOptions {
  /** Keys that the menu does not know, as Left and Right in a menu bar. */
  onKey?(key: string): boolean;
  onClose?(): void;
  label?: string;
}

/** A command may bring a text of its own in the place of the table's. */
export function labelOf(command: Command): string {
  return command.label ?? text(command.text);
}

export class Menu {
  /** The one that is open, if any, without those that were opened from it. */
  private static shown: Menu | undefined;

  static closeShown(): void {
    Menu.shown?.close();
  }

  readonly element: HTMLElement;
  private child: Menu | undefined;

  constructor(
    private readonly editor: Editor,
    entries: MenuEntry[],
    private readonly options: MenuOptions = {},
    private readonly parent?: Menu,
    private readonly opener?: HTMLElement,
  ) {
    this.element = h("div", {
      class: "ui-menu",
      role: "menu",
      "aria-label": options.label,
      onkeydown: (event: KeyboardEvent) => this.onKey(event),
    });
    this.element.append(...entries.map(entry => this.item(entry)));
    document.body.append(this.element);
    if (!parent) {
      Menu.closeShown();
      Menu.shown = this;
      this.onOutside = this.onOutside.bind(this);
      document.addEventListener("pointerdown", this.onOutside, true);
    }
  }

  openAt(x: number, y: number, above = y): this {
    placeBox(this.element, x, y, above);
    return this;
  }

  focusItem(index: number): void {
    const items = this.items();
    items[(index + items.length) % items.length]?.focus();
  }

  /** Closes it and all that it was opened from, unless only itself is meant. */
  close(all = true): void {
    this.child?.close(false);
    this.element.remove();
    if (this.parent) {
      this.parent.child = undefined;
      if (all) this.parent.close();
      return;
    }
    if (Menu.shown === this) Menu.shown = undefined;
    document.removeEventListener("pointerdown", this.onOutside, true);
    this.options.onClose?.();
  }

  private onOutside(event: Event): void {
    if (!(event.target as Element).closest(".ui-menu, .ui-menubar")) this.close();
  }

  private items(): HTMLElement[] {
    return [...this.element.querySelectorAll<HTMLElement>(":scope > [role^=menuitem]")];
  }

  private item(entry: MenuEntry): HTMLElement {
    if (entry === "-") return h("div", { role: "separator" });
    return "run" in entry ? this.commandItem(entry) : this.submenuItem(entry);
  }

  private commandItem(command: Command): HTMLElement {
    const enabled = isEnabled(command, this.editor);
    const pressed = command.pressed?.(this.editor);
    const item = h(
      "button",
      {
        role: pressed === undefined ? "menuitem" : "menuitemcheckbox",
        "aria-checked": pressed === undefined ? undefined : String(pressed),
        "aria-disabled": enabled ? undefined : "true",
        tabindex: -1,
        "data-command": command.id,
        onclick: () => enabled && this.run(command),
        onpointermove: (event: PointerEvent) => this.hover(event, item),
      },
      h("span", { class: "ui-mark" }, pressed === true ? icon("check") : command.icon ? icon(command.icon) : null),
      h("span", { class: "ui-label" }, labelOf(command)),
      h("kbd", {}, command.keys ? shownKeys(command.keys) : ""),
    );
    return item;
  }

  private submenuItem(entry: Submenu): HTMLElement {
    const item = h(
      "button",
      {
        role: "menuitem",
        "aria-haspopup": "menu",
        tabindex: -1,
        onclick: () => this.openChild(entry, item, true),
        onpointermove: (event: PointerEvent) => this.hover(event, item) && this.openChild(entry, item, false),
      },
      h("span", { class: "ui-mark" }),
      h("span", { class: "ui-label" }, text(entry.text)),
      h("span", { class: "ui-more" }, icon("chevron")),
    );
    item.addEventListener("keydown", event => {
      if (event.key !== "ArrowRight") return;
      event.stopPropagation();
      event.preventDefault();
      this.openChild(entry, item, true);
    });
    return item;
  }

  /** Whether the pointer has come to the item; a menu that opens below it does not count. */
  private hover(event: PointerEvent, item: HTMLElement): boolean {
    const isThere = document.activeElement === item || this.child?.opener === item;
    if (isThere || !(event.movementX || event.movementY)) return false;
    this.child?.close(false);
    item.focus({ preventScroll: true });
    return true;
  }

  private openChild(entry: Submenu, item: HTMLElement, focus: boolean): void {
    this.child?.close(false);
    this.child = new Menu(this.editor, entry.entries(this.editor), { label: text(entry.text) }, this, item);
    if (entry.panel) this.child.element.append(entry.panel(this.editor, () => this.closeToText()));
    const box = item.getBoundingClientRect();
    this.child.openAt(box.right - 2, box.top - 5);
    if (focus) this.child.element.querySelector<HTMLElement>("button")?.focus();
  }

  private closeToText(): void {
    this.close();
    this.editor.view.focus();
  }

  private run(command: Command): void {
    this.closeToText();
    void runCommand(command, this.editor);
  }

  private onKey(event: KeyboardEvent): void {
    const at = this.items().indexOf(document.activeElement as HTMLElement);
    const moves: Record<string, () => void> = {
      ArrowDown: () => this.focusItem(at + 1),
      ArrowUp: () => this.focusItem(at < 0 ? -1 : at - 1),
      Home: () => this.focusItem(0),
      End: () => this.focusItem(-1),
      Escape: () => this.leave(),
      Tab: () => this.close(),
    };
    const move = moves[event.key];
    if (move) move();
    else if (event.key === "ArrowLeft" && this.parent) this.leave();
    else if (!this.rootOptions().onKey?.(event.key) && !this.focusLetter(event.key, at)) return;
    event.preventDefault();
    event.stopPropagation();
  }

  private rootOptions(): MenuOptions {
    return this.parent ? this.parent.rootOptions() : this.options;
  }

  /** Back to what it was opened from. */
  private leave(): void {
    this.close(false);
    if (this.opener) this.opener.focus();
    else this.editor.view.focus();
  }

  private focusLetter(key: string, at: number): boolean {
    if (key.length !== 1 || key === " ") return false;
    const items = this.items();
    const order = [...items.slice(at + 1), ...items.slice(0, at + 1)];
    const found = order.find(item => item.textContent!.trim().toLowerCase().startsWith(key.toLowerCase()));
    found?.focus();
    return found !== undefined;
  }
}
