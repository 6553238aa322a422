// The controls of the toolbar that are more than a button.

import { text, type TextKey } from "../texts/texts.ts";
import type { Command } from "./Command.ts";
import { hexColor } from "./Dialog.ts";
import type { Editor } from "./Editor.ts";
import { h, placeBox } from "./elements.ts";
import { icon, type IconName } from "./icons.ts";
import { Menu, type MenuEntry } from "./Menu.ts";
import { palette } from "./palette.ts";
import { applyStyle, currentStyle, styles } from "./styles.ts";
import { setAttribute, type Control, type ControlMaker } from "./Toolbar.ts";
import { tableGrid } from "./tables/tableGrid.ts";

type Option = readonly [value: string, label: string];

function picker(
  editor: Editor,
  label: TextKey,
  name: string,
  options: Option[],
  shown: () => string | null,
  choose: (value: string) => void,
): Control {
  const select = h(
    "select",
    {
      class: `ui-picker ui-${name}`,
      title: text(label),
      "aria-label": text(label),
      onchange() {
        choose(select.value);
        editor.view.focus();
      },
    },
    ...options.map(([value, each]) => h("option", { value }, each)),
  );
  return {
    element: select,
    update() {
      const value = shown();
      if (value !== null && ![...select.options].some(option => option.value === value))
        select.prepend(h("option", { value }, value));
      if (value === null) select.selectedIndex = -1;
      else if (select.value !== value) select.value = value;
      select.disabled = editor.state.isProtected;
    },
  };
}

export const stylePicker: ControlMaker = editor =>
  picker(
    editor,
    "menu.style",
    "style",
    styles.map(style => [style.id, text(style.text)]),
    () => currentStyle(editor).id,
    id =>
      applyStyle(
        editor,
        styles.find(style => style.id === id)!,
      ),
  );

const fonts = [
  "Liberation Serif",
  "Liberation Sans",
  "Liberation Mono",
  "Times New Roman",
  "Georgia",
  "Garamond",
  "Arial",
  "Helvetica",
  "Verdana",
  "Calibri",
  "Cambria",
  "Courier New",
  "serif",
  "sans-serif",
  "monospace",
];

export const fontPicker: ControlMaker = editor =>
  picker(
    editor,
    "format.font",
    "font",
    fonts.map(font => [font, font]),
    () => unmixed(editor, "fo:font-family")?.replace(/^['"]|['"]$/g, "") || null,
    font => editor.setFormats(["fo:font-family", font]),
  );

const sizes = [8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72];

export const sizePicker: ControlMaker = editor =>
  picker(
    editor,
    "format.size",
    "size",
    sizes.map(size => [String(size), String(size)]),
    () => unmixed(editor, "fo:font-size")?.replace(/pt$/, "") || null,
    size => editor.setFormats(["fo:font-size", /^[\d.]+$/.test(size) ? `${size}pt` : size]),
  );

function unmixed(editor: Editor, name: string): string | undefined {
  const format = editor.format(name);
  return format?.isMixed ? undefined : format?.value;
}

/** A button that opens a box below it. */
function opener(editor: Editor, label: TextKey, iconName: IconName, open: (button: HTMLElement) => void): Control {
  const button = h(
    "button",
    {
      class: "ui-tool ui-opener",
      title: text(label),
      "aria-label": text(label),
      "aria-haspopup": "menu",
      onclick: () => editor.state.isProtected || open(button),
    },
    icon(iconName),
    icon("chevron"),
  );
  return {
    element: button,
    update: () => setAttribute(button, "aria-disabled", editor.state.isProtected ? "true" : null),
  };
}

function menuBelow(editor: Editor, button: HTMLElement, entries: MenuEntry[], label: string): Menu {
  const box = button.getBoundingClientRect();
  const menu = new Menu(editor, entries, { label }, undefined, button);
  menu.openAt(box.left, box.bottom + 2, box.top);
  return menu;
}

export function menuOpener(label: TextKey, iconName: IconName, entries: () => Command[]): ControlMaker {
  return editor =>
    opener(editor, label, iconName, button => menuBelow(editor, button, entries(), text(label)).focusItem(0));
}

/** A box that is filled by a panel and closes when something in it was chosen. */
function panelOpener(
  label: TextKey,
  iconName: IconName,
  panel: (editor: Editor, close: () => void) => HTMLElement,
): ControlMaker {
  return editor =>
    opener(editor, label, iconName, button => {
      const menu = menuBelow(editor, button, [], text(label));
      menu.element.append(panel(editor, () => (menu.close(), editor.view.focus())));
      const box = button.getBoundingClientRect();
      placeBox(menu.element, box.left, box.bottom + 2, box.top);
      menu.element.querySelector("button")?.focus();
    });
}

function colorOpener(label: TextKey, iconName: IconName, property: string): ControlMaker {
  const choose = (editor: Editor, value: string): void => editor.setFormats([property, value]);
  const make = panelOpener(label, iconName, (editor, close) =>
    palette(property === "fo:background-color", value => (close(), choose(editor, value))),
  );
  return editor => {
    const control = make(editor);
    const bar = h("span", { class: "ui-swatch-bar" });
    control.element.prepend(bar);
    return {
      element: control.element,
      update() {
        control.update();
        const shown = hexColor(unmixed(editor, property) ?? "");
        bar.style.background = shown ?? (property === "fo:color" ? "currentColor" : "transparent");
      },
    };
  };
}

export const textColor = colorOpener("format.color", "color", "fo:color");
export const backgroundColor = colorOpener("format.background", "background", "fo:background-color");
export const tableOpener = panelOpener("insert.table", "table", tableGrid);
