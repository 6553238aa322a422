// Which element of HTML shows an element of the document. What is not here is shown as a block.

export interface ElementLook {
  tag: string;
  className: string;
  isInline?: boolean;
  /** The attribute that says what a part of a template depends on. */
  label?: string;
}

export const looks: Record<string, ElementLook> = {
  "fo:block": { tag: "div", className: "block" },
  "fo:block-container": { tag: "div", className: "block container" },
  "fo:inline": { tag: "span", className: "", isInline: true },
  "fo:inline-container": { tag: "span", className: "", isInline: true },
  "fo:wrapper": { tag: "span", className: "", isInline: true },
  "fo:bidi-override": { tag: "span", className: "", isInline: true },
  "fo:basic-link": { tag: "span", className: "link", isInline: true },
  "fo:footnote": { tag: "span", className: "", isInline: true },
  "fo:footnote-body": { tag: "div", className: "footnote" },
  "fo:marker": { tag: "span", className: "hidden", isInline: true },
  "fo:list-block": { tag: "div", className: "list" },
  "fo:list-item": { tag: "div", className: "item" },
  "fo:list-item-label": { tag: "div", className: "label" },
  "fo:list-item-body": { tag: "div", className: "body" },
  "fo:table-and-caption": { tag: "div", className: "block" },
  "fo:table-caption": { tag: "div", className: "block" },
  "fo:table": { tag: "table", className: "table" },
  "fo:table-column": { tag: "col", className: "" },
  "fo:table-header": { tag: "thead", className: "" },
  "fo:table-body": { tag: "tbody", className: "" },
  "fo:table-footer": { tag: "tfoot", className: "" },
  "fo:table-row": { tag: "tr", className: "" },
  "fo:table-cell": { tag: "td", className: "" },
  "qfd:table-row-repeat": { tag: "tr", className: "repeat", label: "xpath" },
  "qfd:table-body-repeat": { tag: "tbody", className: "repeat", label: "xpath" },
  "qfd:conditional-table-row": { tag: "tr", className: "section", label: "test" },
  "qfd:block-repeat": { tag: "div", className: "template repeat", label: "xpath" },
  "qfd:list-item-repeat": { tag: "div", className: "template repeat", label: "xpath" },
  "qfd:inline-repeat": { tag: "span", className: "template repeat", isInline: true, label: "xpath" },
  "qfd:conditional-block-sequence": { tag: "div", className: "sequence" },
  "qfd:conditional-block": { tag: "div", className: "template section", label: "test" },
  "qfd:conditional-inline-sequence": { tag: "span", className: "sequence", isInline: true },
  "qfd:conditional-inline": { tag: "span", className: "template section", isInline: true, label: "test" },
  "qf:form": { tag: "div", className: "form" },
};

const roles: Record<string, string> = {
  "fo:list-block": "list",
  "fo:list-item": "listitem",
  "fo:basic-link": "link",
  "fo:footnote-body": "note",
  "fo:block": "paragraph",
};

export function lookOfElement(name: string): ElementLook {
  return looks[name] ?? { tag: "div", className: "block" };
}

export function roleOf(name: string): string | undefined {
  return roles[name];
}
