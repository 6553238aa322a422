// The menus above the text.

import { text } from "../texts/texts.ts";
import type { Editor } from "./Editor.ts";
import { h } from "./elements.ts";
import { Menu, type Submenu } from "./Menu.ts";
import { rove } from "./roving.ts";

export class MenuBar {
  readonly element: HTMLElement;
  private readonly buttons: HTMLButtonElement[];
  private open: Menu | undefined;

  constructor(
    private readonly editor: Editor,
    private readonly menus: Submenu[],
  ) {
    this.buttons = menus.map((menu, i) => this.button(menu, i));
    this.element = h("div", { class: "ui-menubar", role: "menubar", "aria-label": text("bar.menu") }, ...this.buttons);
    rove(
      this.element,
      () => this.buttons,
      () => editor.view.focus(),
    );
  }

  focus(): void {
    this.buttons.find(button => button.tabIndex === 0)?.focus();
  }

  private button(menu: Submenu, i: number): HTMLButtonElement {
    return h(
      "button",
      {
        role: "menuitem",
        "aria-haspopup": "menu",
        "aria-expanded": "false",
        onclick: (event: MouseEvent) => (this.open ? this.open.close() : this.show(i, event.detail === 0)),
        onpointerenter: () => this.open && this.show(i, false),
        onkeydown: (event: KeyboardEvent) => this.onKey(event, i),
      },
      text(menu.text),
    );
  }

  /** A menu that the mouse has opened leaves the focus on its button. */
  private onKey(event: KeyboardEvent, i: number): void {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (event.key === "ArrowDown" || event.key === "ArrowUp") this.show(i, true);
    else if (this.open && event.key === "Escape") this.open.close();
    else if (this.open && step) this.showBeside(i, step);
    else return;
    event.preventDefault();
    event.stopPropagation();
  }

  private showBeside(i: number, step: number): void {
    this.show((i + step + this.buttons.length) % this.buttons.length, true);
  }

  private show(i: number, byKey: boolean): void {
    this.open?.close();
    const button = this.buttons[i]!;
    const menu = new Menu(
      this.editor,
      this.menus[i]!.entries(this.editor),
      {
        label: text(this.menus[i]!.text),
        onClose: () => {
          this.open = undefined;
          button.setAttribute("aria-expanded", "false");
        },
        onKey: key => {
          const step = { ArrowLeft: -1, ArrowRight: 1 }[key];
          if (step) this.showBeside(i, step);
          return step !== undefined;
        },
      },
      undefined,
      button,
    );
    this.open = menu;
    button.setAttribute("aria-expanded", "true");
    const box = button.getBoundingClientRect();
    menu.openAt(box.left, box.bottom + 1);
    if (byKey) menu.focusItem(0);
    else button.focus();
  }
}
