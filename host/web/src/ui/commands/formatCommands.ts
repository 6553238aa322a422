// How text and paragraphs look.

import type { TextKey } from "../../texts/texts.ts";
import { clearFormats } from "../clearFormats.ts";
import type { Command } from "../Command.ts";
import { openParagraphDialog } from "../dialogs/paragraph.ts";
import type { Editor, Property } from "../Editor.ts";
import { ListType, type Pressed } from "../EditingState.ts";
import type { IconName } from "../icons.ts";
import { indent, toggleList } from "../lists.ts";
import { applyStyle, currentStyle, isAtEndOfHeading, setOnParagraphs, styles } from "../styles.ts";

interface Toggle {
  id: string;
  text: TextKey;
  icon: IconName;
  keys?: string;
  format: string;
  on: string;
  off: string;
}

const toggles: Toggle[] = [
  {
    id: "bold",
    text: "format.bold",
    icon: "bold",
    keys: "Ctrl+B",
    format: "fo:font-weight",
    on: "bold",
    off: "normal",
  },
  {
    id: "italic",
    text: "format.italic",
    icon: "italic",
    keys: "Ctrl+I",
    format: "fo:font-style",
    on: "italic",
    off: "normal",
  },
  {
    id: "superscript",
    text: "format.superscript",
    icon: "superscript",
    keys: "Ctrl+.",
    format: "fo:baseline-shift",
    on: "super",
    off: "baseline",
  },
  {
    id: "subscript",
    text: "format.subscript",
    icon: "subscript",
    keys: "Ctrl+,",
    format: "fo:baseline-shift",
    on: "sub",
    off: "baseline",
  },
];

function toggleCommand(toggle: Toggle): Command {
  const pressed = (editor: Editor): Pressed => {
    const format = editor.format(toggle.format);
    return format?.isMixed ? "mixed" : format?.value === toggle.on;
  };
  return {
    ...toggle,
    edits: true,
    pressed,
    run(editor) {
      const value = pressed(editor) === true ? toggle.off : toggle.on;
      const formats: Property[] = [[toggle.format, value]];
      if (toggle.format === "fo:baseline-shift")
        formats.push(["fo:font-size", value === toggle.off ? "inherit" : "65%"]);
      editor.setFormats(...formats);
    },
  };
}

/** Lines that one property draws together. */
const lines = { underline: "fo:text-underline-style", "line-through": "fo:text-line-through-style" };
type Line = keyof typeof lines;

function linePressed(editor: Editor, line: Line): Pressed {
  const decoration = editor.document.typingFormats.find(([name]) => name === "fo:text-decoration");
  if (decoration) return decoration[1].split(" ").includes(line);
  const format = editor.format(lines[line]);
  return format?.isMixed ? "mixed" : (format?.value ?? "none") !== "none";
}

function lineCommand(line: Line, id: string, text: TextKey, icon: IconName, keys?: string): Command {
  return {
    id,
    text,
    icon,
    ...(keys && { keys }),
    edits: true,
    pressed: editor => linePressed(editor, line),
    run(editor) {
      const isOn = (each: Line): boolean =>
        each === line ? linePressed(editor, line) !== true : linePressed(editor, each) === true;
      const drawn = (Object.keys(lines) as Line[]).filter(isOn).join(" ");
      editor.setFormats(["fo:text-decoration", drawn || "none"]);
    },
  };
}

function alignCommand(id: string, text: TextKey, icon: IconName, keys: string, value: string): Command {
  return {
    id,
    text,
    icon,
    keys,
    edits: true,
    pressed(editor) {
      const format = editor.format("fo:text-align");
      if (format?.isMixed) return "mixed";
      const shown = format?.value.replace("left", "start").replace("right", "end");
      return shown === value;
    },
    run: editor => setOnParagraphs(editor, { "text-align": value }),
  };
}

function listCommand(id: string, text: TextKey, icon: IconName, keys: string, type: ListType): Command {
  return {
    id,
    text,
    icon,
    keys,
    edits: true,
    pressed: editor => editor.state.list === type,
    run: editor => toggleList(editor, type),
  };
}

const styleCommands: Command[] = styles.map(style => ({
  id: `style.${style.id}`,
  text: style.text,
  ...(style.keys && { keys: style.keys }),
  edits: true,
  pressed: editor => currentStyle(editor) === style,
  run: editor => applyStyle(editor, style),
}));

const spacings = ["1", "1.15", "1.5", "2"];

export const lineSpacingCommands: Command[] = spacings.map(value => ({
  id: `spacing.${value}`,
  text: "format.lineSpacing",
  label: value,
  edits: true,
  pressed: editor => editor.properties("fo:block").get("fo:line-height") === value,
  run: editor => setOnParagraphs(editor, { "line-height": value }),
}));

export const formatCommands: Command[] = [
  ...toggles.map(toggleCommand),
  lineCommand("underline", "underline", "format.underline", "underline", "Ctrl+U"),
  lineCommand("line-through", "strike", "format.strike", "strike", "Ctrl+Shift+X"),
  alignCommand("alignStart", "format.alignStart", "alignStart", "Ctrl+L", "start"),
  alignCommand("alignCenter", "format.alignCenter", "alignCenter", "Ctrl+E", "center"),
  alignCommand("alignEnd", "format.alignEnd", "alignEnd", "Ctrl+R", "end"),
  alignCommand("justify", "format.justify", "justify", "Ctrl+J", "justify"),
  listCommand("bullets", "format.bullets", "bullets", "Ctrl+Shift+8", ListType.Bullets),
  listCommand("numbers", "format.numbers", "numbers", "Ctrl+Shift+7", ListType.Numbers),
  {
    id: "indent",
    text: "format.indent",
    icon: "indent",
    keys: "Ctrl+M",
    edits: true,
    run: editor => indent(editor, 1),
  },
  {
    id: "outdent",
    text: "format.outdent",
    icon: "outdent",
    keys: "Ctrl+Shift+M",
    edits: true,
    run: editor => indent(editor, -1),
  },
  ...styleCommands,
  ...lineSpacingCommands,
  {
    id: "bodyAfterHeading",
    text: "help.enter",
    keys: "Enter",
    edits: true,
    takesKeys: isAtEndOfHeading,
    run: editor => editor.step(() => (editor.call("insertBreak", 5, false), applyStyle(editor, styles[0]!))),
  },
  { id: "paragraph", text: "format.paragraph", edits: true, run: openParagraphDialog },
  {
    id: "clear",
    text: "format.clear",
    icon: "clear",
    keys: "Ctrl+Space",
    edits: true,
    isEnabled: editor => editor.state.hasSelection,
    run: clearFormats,
  },
];
