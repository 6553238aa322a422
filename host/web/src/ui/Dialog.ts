// Dialogs that are described by their fields. The browser's own <dialog> keeps the focus inside; it
// goes back to where it was when the dialog closes.

import { text, type TextKey } from "../texts/texts.ts";
import { freshId, h } from "./elements.ts";
import { asLength } from "./lengths.ts";

export interface Field {
  name: string;
  label: TextKey;
  /** Of a colour "" is none. */
  value: string;
  kind?: "text" | "length" | "number" | "select" | "check" | "color" | "lines";
  options?: (readonly [value: string, label: string])[];
  /** Called with what the user made of it, to bring other fields up to date. */
  onChange?(value: string, fields: Fields): void;
}

export interface FieldGroup {
  legend?: TextKey;
  fields: Field[];
}

/** The fields of an open dialog by their names. */
export interface Fields {
  get(name: string): string;
  set(name: string, value: string): void;
}

export type Values = Record<string, string>;

/** What the user made of the fields; null where the dialog was given up. */
export function askFields(title: TextKey, groups: FieldGroup[], ok: TextKey = "dialog.ok"): Promise<Values | null> {
  const inputs = new Map<string, Input>();
  const fields: Fields = {
    get: name => inputs.get(name)!.read(),
    set: (name, value) => inputs.get(name)!.write(value),
  };
  const body = groups.map(group =>
    h(
      "fieldset",
      {},
      group.legend && h("legend", {}, text(group.legend)),
      ...group.fields.map(field => fieldRow(field, inputs, fields)),
    ),
  );
  const isValid = (): boolean => [...inputs.values()].map(input => input.validate()).every(Boolean);
  return showDialog(title, body, ok, isValid).then(confirmed =>
    confirmed ? Object.fromEntries([...inputs].map(([name, input]) => [name, input.read()])) : null,
  );
}

/** Whether the user said yes. Without `ok` there is nothing but a button to close it. */
export async function showDialog(
  title: TextKey,
  body: (Node | string)[],
  ok: TextKey | null = "dialog.ok",
  isValid = () => true,
): Promise<boolean> {
  return (await showChoice(title, body, ok ? [ok] : [], isValid)) !== null;
}

/** Which of the buttons was pressed, of which Enter is the first; null where the user gave it up. */
export function showChoice(
  title: TextKey,
  body: (Node | string)[],
  choices: TextKey[],
  isValid = () => true,
): Promise<TextKey | null> {
  const focused = document.activeElement;
  const heading = h("h2", { id: freshId() }, text(title).replace("…", ""));
  const buttons = choices.map((choice, i) =>
    h("button", { class: i ? "" : "ui-primary", value: choice }, text(choice)),
  );
  const cancel = h(
    "button",
    { type: "button", class: choices.length ? "" : "ui-primary", onclick: () => dialog.close("") },
    text(choices.length ? "dialog.cancel" : "dialog.close"),
  );
  const form = h(
    "form",
    {
      method: "dialog",
      onsubmit(event: SubmitEvent) {
        if (!isValid()) event.preventDefault();
      },
    },
    heading,
    h("div", { class: "ui-dialog-body" }, ...body),
    h("div", { class: "ui-dialog-buttons" }, ...buttons, cancel),
  );
  const dialog = h("dialog", { class: "ui-dialog", "aria-labelledby": heading.id }, form);
  document.body.append(dialog);
  dialog.showModal();
  const first = dialog.querySelector<HTMLElement>("input, select, textarea, [data-first]");
  first?.focus();
  if (first instanceof HTMLInputElement) first.select();
  return new Promise(done => {
    dialog.addEventListener("close", () => {
      dialog.remove();
      if (focused instanceof HTMLElement) giveFocusBack(focused);
      done((dialog.returnValue || null) as TextKey | null);
    });
  });
}

/** The browser has given it back already, but without the place where typing goes. */
function giveFocusBack(element: HTMLElement): void {
  element.blur();
  element.focus({ preventScroll: true });
}

/** A message and its reason. */
export function tell(title: TextKey, words: string): Promise<boolean> {
  return showDialog(title, [h("p", {}, words)], null);
}

interface Input {
  element: HTMLElement;
  read(): string;
  write(value: string): void;
  validate(): boolean;
}

function fieldRow(field: Field, inputs: Map<string, Input>, fields: Fields): HTMLElement {
  const input = inputFor(field);
  inputs.set(field.name, input);
  const focusable = input.element.matches("input, select, textarea")
    ? input.element
    : input.element.querySelector("input")!;
  focusable.id = freshId();
  focusable.setAttribute("name", field.name);
  input.element.addEventListener("change", () => field.onChange?.(input.read(), fields));
  const label = h("label", { for: focusable.id }, text(field.label));
  const isCheck = field.kind === "check";
  return h(
    "div",
    { class: `ui-field${isCheck ? " ui-check" : ""}` },
    ...(isCheck ? [input.element, label] : [label, input.element]),
  );
}

function inputFor(field: Field): Input {
  switch (field.kind) {
    case "check":
      return checkInput(field);
    case "color":
      return colorInput(field);
    case "select":
      return valueInput(
        h(
          "select",
          {},
          ...field.options!.map(([value, label]) => h("option", { value, selected: value === field.value }, label)),
        ),
      );
    case "lines":
      return valueInput(h("textarea", { rows: 3 }, field.value));
    case "length":
      return lengthInput(field);
    default:
      return valueInput(h("input", { type: field.kind ?? "text", value: field.value, min: 1 }));
  }
}

function valueInput(element: HTMLInputElement | HTMLSelectElement | HTMLTextAreaElement): Input {
  return {
    element,
    read: () => element.value,
    write: value => (element.value = value),
    validate: () => element.reportValidity(),
  };
}

/** What is empty is no length and allowed. */
function lengthInput(field: Field): Input {
  const input = h("input", { type: "text", value: field.value, class: "ui-length" });
  input.addEventListener("input", () => input.setCustomValidity(""));
  return {
    ...valueInput(input),
    read: () => (input.value.trim() ? (asLength(input.value) ?? input.value) : ""),
    validate() {
      const isGood = !input.value.trim() || asLength(input.value) !== null || input.value === field.value;
      input.setCustomValidity(isGood ? "" : text("dialog.badLength", { value: input.value }));
      return input.reportValidity();
    },
  };
}

function checkInput(field: Field): Input {
  const input = h("input", { type: "checkbox", checked: field.value === "true" });
  return {
    element: input,
    read: () => String(input.checked),
    write: value => (input.checked = value === "true"),
    validate: () => true,
  };
}

function colorInput(field: Field): Input {
  const color = h("input", { type: "color", value: hexColor(field.value) ?? "#000000" });
  const none = h("input", { type: "checkbox", checked: hexColor(field.value) === null });
  color.addEventListener("input", () => (none.checked = false));
  return {
    element: h("span", { class: "ui-color-field" }, color, h("label", {}, none, text("color.none"))),
    read: () => (none.checked ? "" : color.value),
    write: value => {
      none.checked = hexColor(value) === null;
      color.value = hexColor(value) ?? "#000000";
    },
    validate: () => true,
  };
}

/** "#rrggbb"; null for what is none, as "transparent". */
export function hexColor(value: string): string | null {
  if (!value || value === "transparent") return null;
  const context = document.createElement("canvas").getContext("2d")!;
  context.fillStyle = "#000000";
  context.fillStyle = value;
  const shown = context.fillStyle;
  return typeof shown === "string" && shown.startsWith("#") ? shown : null;
}
