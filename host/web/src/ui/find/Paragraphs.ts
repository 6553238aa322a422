// The text of a document as a reader sees it, paragraph by paragraph, and where its characters stand.

import type { Editor } from "../Editor.ts";
import { DrawnKind, type Drawn } from "../markup.ts";

/** The character at `i` stands in the document from `starts[i]` up to `ends[i]`, which is excluded. */
export interface Paragraph {
    text: string;
    starts: number[];
    ends: number[];
}

const inlines = new Set([
    "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override",
    "qfd:inline-repeat", "qfd:conditional-inline", "qfd:conditional-inline-sequence",
]);
const piecesAtOnce = 500;

/** Line breaks within a paragraph are "\n", objects U+FFFC. */
export function* paragraphsOf(editor: Editor, start: number, end = Infinity): Generator<Paragraph> {
    let current: Paragraph = { text: "", starts: [], ends: [] };
    for (let from = start; from < end; ) {
        const pieces = editor.call<Drawn[]>("getDrawn", from, piecesAtOnce);
        if (!pieces.length) break;
        for (const piece of pieces) {
            if (piece.start >= end) break;
            if (!endsParagraph(piece)) take(current, piece);
            else if (current.text) {
                yield current;
                current = { text: "", starts: [], ends: [] };
            }
        }
        from = pieces[pieces.length - 1]!.end;
    }
    if (current.text) yield current;
}

function endsParagraph(piece: Drawn): boolean {
    return (piece.kind === DrawnKind.Start || piece.kind === DrawnKind.End) && !inlines.has(piece.text);
}

function take(paragraph: Paragraph, piece: Drawn): void {
    if (piece.kind === DrawnKind.Text) {
        for (let i = 0; i < piece.text.length; ++i) add(paragraph, piece.text[i]!, piece.start + i, piece.start + i + 1);
    } else if (piece.kind === DrawnKind.Character) {
        for (const unit of piece.text.split("")) add(paragraph, unit, piece.start, piece.end);
    } else if (piece.kind === DrawnKind.Empty) {
        add(paragraph, "\n", piece.start, piece.end);
    } else if (piece.kind === DrawnKind.Object) {
        add(paragraph, "\ufffc", piece.start, piece.end);
    }
}

function add(paragraph: Paragraph, unit: string, start: number, end: number): void {
    paragraph.text += unit;
    paragraph.starts.push(start);
    paragraph.ends.push(end);
}

/** Where the pages begin, headers included. */
export function beginOfPages(editor: Editor): number {
    return Math.max(0, editor.call<number>("getFirstPageGeneratorPos"));
}
