// Documents as wholes.

import { askFields } from "../Dialog.ts";
import type { Command } from "../Command.ts";
import type { Editor, Property } from "../Editor.ts";
import { escaped } from "../markup.ts";
import type { Parts } from "../Parts.ts";

export function fileCommands({ files }: Parts): Command[] {
  return [
    { id: "new", text: "file.new", icon: "new", run: () => files.new() },
    { id: "open", text: "file.open", icon: "open", keys: "Ctrl+O", run: () => files.open() },
    { id: "save", text: "file.save", icon: "save", keys: "Ctrl+S", run: () => void files.save() },
    { id: "saveAs", text: "file.saveAs", keys: "Ctrl+Shift+S", run: () => void files.saveAs() },
    { id: "export", text: "file.export", run: () => files.export() },
    { id: "print", text: "file.print", icon: "print", keys: "Ctrl+P", run: () => window.print() },
    { id: "properties", text: "file.properties", edits: true, run: openProperties },
  ];
}

const names = ["title", "author", "subject", "keywords"] as const;
const labels = {
  title: "properties.name",
  author: "properties.author",
  subject: "properties.subject",
  keywords: "properties.keywords",
} as const;

async function openProperties(editor: Editor): Promise<void> {
  const known = editor.call<Property[]>("getDocumentInformationAttributes");
  const shown = new Map(known.map(([name, value]) => [name.replace(/^qf:/, ""), value]));
  const values = await askFields("properties.title", [
    { fields: names.map(name => ({ name, label: labels[name], value: unescaped(shown.get(name) ?? "") })) },
  ]);
  if (!values) return;
  const kept = known.filter(([name]) => !names.includes(name.replace(/^qf:/, "") as (typeof names)[number]));
  const given = names.filter(name => values[name]).map((name): Property => [`qf:${name}`, escaped(values[name]!)]);
  editor.step(() => {
    if (!editor.call<boolean>("hasDocumentInformation")) editor.call("insertDocumentInformation", "<qf:info/>");
    editor.call("setDocumentInformationProperties", [...kept, ...given]);
  });
}

function unescaped(value: string): string {
  return new DOMParser().parseFromString(`<a>${value}</a>`, "text/xml").documentElement.textContent ?? value;
}
