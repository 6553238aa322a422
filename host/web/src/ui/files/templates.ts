// What a new document can begin with. All but the blank one lie beside the page.

import type { TextKey } from "../../texts/texts.ts";

export interface Template {
  text: TextKey;
  /** The file in `templates/`; empty for the blank document. */
  file: string;
}

export const templates: Template[] = [
  { text: "new.blank", file: "" },
  { text: "new.letter", file: "letter.xml" },
  { text: "new.invoice", file: "invoice.xml" },
  { text: "new.minutes", file: "minutes.xml" },
  { text: "new.priceList", file: "price-list.xml" },
  { text: "new.manual", file: "manual.xml" },
  { text: "new.report", file: "annual-report.xml" },
];

export async function contentOf(template: Template): Promise<Uint8Array> {
  if (!template.file) return new TextEncoder().encode(blank(defaultPaper()));
  const answer = await fetch(`templates/${template.file}`);
  if (!answer.ok) throw new Error(`${template.file}: ${answer.status}`);
  return new Uint8Array(await answer.arrayBuffer());
}

function defaultPaper(): [width: string, height: string] {
  const usesLetter = /-(US|CA|MX|PH)$/i.test(navigator.language);
  return usesLetter ? ["8.5in", "11in"] : ["210mm", "297mm"];
}

function blank([width, height]: [string, string]): string {
  return `<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:xsl="http://www.w3.org/1999/XSL/Transform" xmlns:qf="urn:forme:qf/1.0" fo:font-family="Liberation Serif" fo:font-size="11pt" fo:line-height="1.3">
  <fo:layout-master-set>
    <fo:simple-page-master master-name="page" page-width="${width}" page-height="${height}" margin="20mm 25mm">
      <fo:region-body region-name="xsl-region-body"/>
    </fo:simple-page-master>
  </fo:layout-master-set>
  <fo:page-sequence master-reference="page">
    <fo:flow flow-name="xsl-region-body">
      <fo:block>&#x00A0;</fo:block>
    </fo:flow>
  </fo:page-sequence>
</qfd:document>
`;
}
