// Paragraph styles: what a document says of a paragraph, as a set of attributes. The attribute
// `role` tells readers of the PDF, and this editor, which style it is.

import { DrawnKind, type Drawn } from "../library/Drawn.ts";
import type { TextKey } from "../texts/texts.ts";
import type { Editor } from "./Editor.ts";
import { around, keepingSelection, paragraphs, setAttributes, type Attributes } from "./markup.ts";

export interface ParagraphStyle {
  id: string;
  text: TextKey;
  keys?: string;
  attributes: Record<string, string>;
}

const heading = { "font-weight": "bold", "keep-with-next.within-page": "always" };

export const styles: ParagraphStyle[] = [
  { id: "body", text: "style.body", keys: "Ctrl+Alt+0", attributes: {} },
  {
    id: "title",
    text: "style.title",
    attributes: { role: "Title", "font-size": "26pt", "space-after": "4mm", "line-height": "1.15" },
  },
  {
    id: "subtitle",
    text: "style.subtitle",
    attributes: { role: "Subtitle", "font-size": "14pt", color: "#606060", "space-after": "6mm" },
  },
  {
    id: "heading1",
    text: "style.heading1",
    keys: "Ctrl+Alt+1",
    attributes: { role: "H1", "font-size": "18pt", "space-before": "8mm", "space-after": "3mm", ...heading },
  },
  {
    id: "heading2",
    text: "style.heading2",
    keys: "Ctrl+Alt+2",
    attributes: { role: "H2", "font-size": "14pt", "space-before": "6mm", "space-after": "2mm", ...heading },
  },
  {
    id: "heading3",
    text: "style.heading3",
    keys: "Ctrl+Alt+3",
    attributes: { role: "H3", "font-size": "12pt", "space-before": "4mm", "space-after": "1mm", ...heading },
  },
  {
    id: "quote",
    text: "style.quote",
    attributes: {
      role: "BlockQuote",
      "font-style": "italic",
      "start-indent": "10mm",
      "end-indent": "10mm",
      "space-before": "2mm",
      "space-after": "2mm",
    },
  },
  {
    id: "code",
    text: "style.code",
    attributes: {
      role: "Code",
      "font-family": "monospace",
      "white-space": "pre",
      "space-before": "2mm",
      "space-after": "2mm",
    },
  },
];

/** What some style sets and another takes away. */
const all = [...new Set(styles.flatMap(style => Object.keys(style.attributes)))];

export function applyStyle(editor: Editor, style: ParagraphStyle): void {
  const attributes: Attributes = {};
  for (const name of all) attributes[name] = style.attributes[name] ?? null;
  setOnParagraphs(editor, attributes);
}

/** One undo step; caret and selection stay where they are. */
export function setOnParagraphs(editor: Editor, attributes: Attributes): void {
  const starts = paragraphs(editor);
  editor.step(() =>
    keepingSelection(editor, () => {
      for (const start of starts.reverse()) setAttributes(editor, start, attributes);
    }),
  );
}

/** Where Enter begins a paragraph of body text. */
export function isAtEndOfHeading(editor: Editor): boolean {
  if (editor.state.hasSelection || editor.state.isProtected) return false;
  const [next] = editor.call<Drawn[]>("getDrawn", editor.document.caret, 1);
  const isAtEnd = next?.kind === DrawnKind.End && next.text === "fo:block";
  return isAtEnd && /^(H\d|Title|Subtitle)$/.test(currentStyle(editor).attributes["role"] ?? "");
}

/** The style of the paragraph around the caret. */
export function currentStyle(editor: Editor): ParagraphStyle {
  const start = around(editor, "fo:block");
  const role = start < 0 ? undefined : editor.properties("fo:block", start).get("fo:role");
  return styles.find(style => role && style.attributes["role"] === role) ?? styles[0]!;
}
