// The buttons above the text. What they show follows the caret.

import { text } from "../texts/texts.ts";
import { isEnabled, type Command } from "./Command.ts";
import type { Editor } from "./Editor.ts";
import { runCommand } from "./runCommand.ts";
import { h } from "./elements.ts";
import { icon } from "./icons.ts";
import { shownKeys } from "./keys.ts";
import { rove } from "./roving.ts";

/** A part of a toolbar that keeps itself up to date. */
export interface Control {
  element: HTMLElement;
  update(): void;
}

export type ControlMaker = (editor: Editor) => Control;

export class Toolbar {
  readonly element: HTMLElement;
  private readonly controls: Control[];

  constructor(editor: Editor, groups: (Command | ControlMaker)[][]) {
    const made = groups.map(group =>
      group.map(each => (typeof each === "function" ? each(editor) : commandButton(editor, each))),
    );
    this.controls = made.flat();
    this.element = h(
      "div",
      { class: "ui-toolbar", role: "toolbar", "aria-label": text("bar.tools") },
      ...made.map(group => h("div", { class: "ui-group", role: "group" }, ...group.map(control => control.element))),
    );
    const focusable = (): HTMLElement[] =>
      this.controls
        .map(({ element }) => (element.matches("button, select") ? element : element.querySelector("button, select")))
        .filter((each): each is HTMLElement => each !== null && !each.matches(":disabled"));
    rove(this.element, focusable, () => editor.view.focus());
    this.update();
  }

  update(): void {
    for (const control of this.controls) control.update();
  }
}

function commandButton(editor: Editor, command: Command): Control {
  const button = h(
    "button",
    {
      class: "ui-tool",
      title: titleOf(command),
      "aria-label": text(command.text),
      "data-command": command.id,
      onclick: () => runFromButton(editor, command),
    },
    command.icon ? icon(command.icon) : text(command.text),
  );
  return {
    element: button,
    update() {
      setAttribute(button, "aria-disabled", isEnabled(command, editor) ? null : "true");
      const pressed = command.pressed?.(editor);
      if (pressed !== undefined) setAttribute(button, "aria-pressed", String(pressed));
    },
  };
}

function runFromButton(editor: Editor, command: Command): void {
  void runCommand(command, editor);
  if (!document.querySelector("dialog[open], .ui-menu, .ui-find:focus-within")) editor.view.focus();
}

export function titleOf(command: Command): string {
  return command.keys ? `${text(command.text)} (${shownKeys(command.keys)})` : text(command.text);
}

/** Writes only what is not so already, so that a key that changes nothing costs no layout. */
export function setAttribute(element: Element, name: string, value: string | null): void {
  if (element.getAttribute(name) === value) return;
  if (value === null) element.removeAttribute(name);
  else element.setAttribute(name, value);
}
