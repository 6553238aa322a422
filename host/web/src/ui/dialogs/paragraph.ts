// Spacing, indents and page breaks of the paragraphs that are selected.

import type { Editor } from "../Editor.ts";
import { askFields, type FieldGroup, type Values } from "../Dialog.ts";
import { around, type Attributes } from "../markup.ts";
import { setOnParagraphs } from "../styles.ts";

const keepNext = "keep-with-next.within-page";
const keepTogether = "keep-together.within-page";

export async function openParagraphDialog(editor: Editor): Promise<void> {
  const start = around(editor, "fo:block");
  if (start < 0) return editor.sayRefused();
  const shown = read(editor, start);
  const values = await askFields("paragraph.title", groups(shown));
  if (values) setOnParagraphs(editor, changed(shown, values));
}

/** What the paragraph says itself, by the names of the attributes. */
function read(editor: Editor, start: number): Values {
  const own = editor.properties("fo:block", start);
  const value = (name: string): string => own.get(`fo:${name}`) ?? "";
  return {
    "space-before": value("space-before"),
    "space-after": value("space-after"),
    "line-height": value("line-height"),
    "start-indent": value("start-indent"),
    "end-indent": value("end-indent"),
    "text-indent": value("text-indent"),
    [keepNext]: String((value(keepNext) || value("keep-with-next")) === "always"),
    [keepTogether]: String((value(keepTogether) || value("keep-together")) === "always"),
    "break-before": String(value("break-before") === "page"),
    "background-color": value("background-color"),
    border: value("border"),
  };
}

function groups(shown: Values): FieldGroup[] {
  const length = (name: string): { name: string; value: string; kind: "length" } => ({
    name,
    value: shown[name]!,
    kind: "length",
  });
  const check = (name: string): { name: string; value: string; kind: "check" } => ({
    name,
    value: shown[name]!,
    kind: "check",
  });
  return [
    {
      legend: "paragraph.indents",
      fields: [
        { ...length("start-indent"), label: "paragraph.start" },
        { ...length("end-indent"), label: "paragraph.end" },
        { ...length("text-indent"), label: "paragraph.first" },
      ],
    },
    {
      legend: "paragraph.spacing",
      fields: [
        { ...length("space-before"), label: "paragraph.before" },
        { ...length("space-after"), label: "paragraph.after" },
        lineHeight(shown["line-height"]!),
      ],
    },
    {
      legend: "paragraph.flow",
      fields: [
        { ...check(keepNext), label: "paragraph.keepNext" },
        { ...check(keepTogether), label: "paragraph.keepTogether" },
        { ...check("break-before"), label: "paragraph.breakBefore" },
      ],
    },
    {
      legend: "paragraph.look",
      fields: [
        { name: "background-color", label: "paragraph.background", kind: "color", value: shown["background-color"]! },
        {
          name: "border",
          label: "paragraph.border",
          kind: "select",
          value: shown["border"]!,
          options: withOwn(["", "0.5pt solid #808080", "1pt solid #000000"], shown["border"]!),
        },
      ],
    },
  ];
}

function lineHeight(value: string): FieldGroup["fields"][number] {
  const options = withOwn(["", "1", "1.15", "1.5", "2"], value);
  return { name: "line-height", label: "paragraph.lineHeight", kind: "select", value, options };
}

function withOwn(values: string[], own: string): [string, string][] {
  return (values.includes(own) ? values : [...values, own]).map(each => [each, each || "–"]);
}

/** What was not touched is not written. */
function changed(shown: Values, values: Values): Attributes {
  const flags: Record<string, string> = { [keepNext]: "always", [keepTogether]: "always", "break-before": "page" };
  const attributes: Attributes = {};
  for (const [name, value] of Object.entries(values)) {
    if (value === shown[name]) continue;
    const flag = flags[name];
    attributes[name] = flag ? (value === "true" ? flag : null) : value || null;
    const shorthand = name.split(".")[0]!;
    if (shorthand !== name) attributes[shorthand] = null;
  }
  return attributes;
}
