// Paper, margins and columns of the pages around the caret.

import { text } from "../../texts/texts.ts";
import { askFields, type Field, type FieldGroup, type Fields, type Values } from "../Dialog.ts";
import type { Editor } from "../Editor.ts";
import { lengthInMm, mm } from "../lengths.ts";

const papers: [name: string, width: number, height: number][] = [
  ["A3", 297, 420],
  ["A4", 210, 297],
  ["A5", 148, 210],
  ["A6", 105, 148],
  ["B5", 176, 250],
  ["Letter", 215.9, 279.4],
  ["Legal", 215.9, 355.6],
  ["DL", 110, 220],
];
const sides = ["top", "bottom", "left", "right"] as const;
const sideTexts = { top: "page.top", bottom: "page.bottom", left: "page.left", right: "page.right" } as const;

type Margins = Record<(typeof sides)[number], string>;

export async function openPageSetup(editor: Editor): Promise<void> {
  editor.call("masters.open");
  try {
    const master = currentMaster(editor);
    const shown = read(editor, master);
    const values = await askFields("page.title", groups(shown));
    if (values) write(editor, master, shown, values);
  } finally {
    editor.call("masters.close");
  }
}

/** That of the pages around the caret; of a complex one the first that it picks. */
export function currentMaster(editor: Editor): string {
  const named = editor.properties("fo:page-sequence").get("fo:master-reference") ?? "";
  const simple = editor.call<string[]>("masters.getAllSimplePageMasters");
  if (simple.includes(named)) return named;
  const entries = editor.call<{ master: string }[]>("masters.getComplexPageMasterEntries", named);
  return entries.find(entry => simple.includes(entry.master))?.master ?? simple[0] ?? named;
}

interface Length {
  width: string;
  height: string;
}

function read(editor: Editor, master: string): Values {
  const size = editor.call<Length>("masters.getPageSize", master);
  const page = editor.call<Margins>("masters.getPageMargins", master);
  const body = editor.call<Margins>("masters.getMarginsForBodyRegion", master);
  const [, , before, after] = editor.call<string[]>("masters.getRegionsForPageMaster", master);
  const extent = (region: string | undefined): string =>
    region ? editor.call<string>("masters.getExtentForRegion", master, region) : "";
  const values: Values = {
    width: size.width,
    height: size.height,
    columns: editor.call<string>("masters.getColumnCountForBodyRegion", master) || "1",
    gap: editor.call<string>("masters.getColumnGapForBodyRegion", master),
    before: extent(before),
    after: extent(after),
  };
  for (const side of sides) {
    values[`page-${side}`] = page[side];
    values[`body-${side}`] = body[side];
  }
  return values;
}

function groups(shown: Values): FieldGroup[] {
  const margin = (of: string): Field[] =>
    sides.map(side => ({
      name: `${of}-${side}`,
      label: sideTexts[side],
      kind: "length",
      value: shown[`${of}-${side}`]!,
    }));
  return [
    { fields: paperFields(shown) },
    { legend: "page.margins", fields: margin("page") },
    { legend: "page.bodyMargins", fields: margin("body") },
    {
      fields: [
        ...extentField("before", "page.header", shown),
        ...extentField("after", "page.footer", shown),
        { name: "columns", label: "page.columns", kind: "number", value: shown["columns"]! },
        { name: "gap", label: "page.columnGap", kind: "length", value: shown["gap"]! },
      ],
    },
  ];
}

/** None where the page has no such region. */
function extentField(name: string, label: "page.header" | "page.footer", shown: Values): Field[] {
  return shown[name] ? [{ name, label, kind: "length", value: shown[name] }] : [];
}

function paperFields(shown: Values): Field[] {
  const follow = (_: string, fields: Fields): void => {
    const [name, orientation] = paperOf(fields.get("width"), fields.get("height"));
    fields.set("paper", name);
    fields.set("orientation", orientation);
  };
  const setSize = (fields: Fields): void => {
    const isWide = fields.get("orientation") === "landscape";
    const paper = papers.find(([name]) => name === fields.get("paper"));
    const now = [fields.get("width"), fields.get("height")].sort(
      (a, b) => (lengthInMm(a) ?? 0) - (lengthInMm(b) ?? 0),
    ) as [string, string];
    const [short, long] = paper ? [mm(paper[1]), mm(paper[2])] : now;
    fields.set("width", isWide ? long : short);
    fields.set("height", isWide ? short : long);
  };
  const [name, orientation] = paperOf(shown["width"]!, shown["height"]!);
  const options = papers.map(([each, width, height]): [string, string] => [each, `${each} (${width} × ${height} mm)`]);
  return [
    {
      name: "paper",
      label: "page.size",
      kind: "select",
      value: name,
      options: [...options, ["", text("page.custom")]],
      onChange: (_, fields) => setSize(fields),
    },
    {
      name: "orientation",
      label: "page.orientation",
      kind: "select",
      value: orientation,
      options: [
        ["portrait", text("page.portrait")],
        ["landscape", text("page.landscape")],
      ],
      onChange: (_, fields) => setSize(fields),
    },
    { name: "width", label: "page.width", kind: "length", value: shown["width"]!, onChange: follow },
    { name: "height", label: "page.height", kind: "length", value: shown["height"]!, onChange: follow },
  ];
}

function paperOf(width: string, height: string): [name: string, orientation: string] {
  const size = [lengthInMm(width) ?? 0, lengthInMm(height) ?? 0] as const;
  const [short, long] = [Math.min(...size), Math.max(...size)];
  const found = papers.find(([, w, h]) => Math.abs(w - short) < 0.6 && Math.abs(h - long) < 0.6);
  return [found?.[0] ?? "", size[0] > size[1] ? "landscape" : "portrait"];
}

function write(editor: Editor, master: string, shown: Values, values: Values): void {
  const differs = (...names: string[]): boolean => names.some(name => name in values && values[name] !== shown[name]);
  const [, , before, after] = editor.call<string[]>("masters.getRegionsForPageMaster", master);
  const margins = (of: string): string[] => ["left", "right", "top", "bottom"].map(side => values[`${of}-${side}`]!);
  if (differs("width", "height")) editor.call("masters.setPageDimensions", master, values["width"], values["height"]);
  if (differs(...sides.map(side => `page-${side}`))) editor.call("masters.setPageMargins", master, ...margins("page"));
  if (differs(...sides.map(side => `body-${side}`)))
    editor.call("masters.setMarginsForBodyRegion", master, ...margins("body"));
  if (differs("columns")) editor.call("masters.setColumnCountForBodyRegion", master, values["columns"]);
  if (differs("gap")) editor.call("masters.setColumnGapForBodyRegion", master, values["gap"]);
  if (differs("before") && before) editor.call("masters.setExtentForRegion", master, before, values["before"]);
  if (differs("after") && after) editor.call("masters.setExtentForRegion", master, after, values["after"]);
  editor.call("masters.commit");
}
