// What is shown for an object that has no text of its own in the document.

import type { Attributes } from "../markup/Markup.ts";
import { attributesOf, elementsOf } from "../markup/Markup.ts";

export interface ObjectLook {
  className: string;
  text: string;
  title: string;
  style: string;
}

/** The path or the text that a field computes, as short as a reader needs it. */
function lastStep(path: string): string {
  const step = path.trim().split("/").pop() ?? path;
  return step.replace(/^\$|^@/, "") || path;
}

function fieldLook(markup: string): ObjectLook {
  const select = markup.match(/\b(?:select|xpath|dynamic-value)\s*=\s*(?:"([^"]*)"|'([^']*)')/);
  const path = select?.[1] ?? select?.[2] ?? "";
  const text = markup.replace(/<[^>]*>/g, "").trim();
  return { className: "field", text: path ? lastStep(path) : text || "ƒ", title: path || text, style: "" };
}

function controlLook(attributes: Attributes): ObjectLook {
  const type = attributes.get("type") ?? "text";
  const isOn = /^(true|1|yes|checked)$/.test(attributes.get("checked") ?? "");
  const text =
    type === "checkbox"
      ? isOn
        ? "☒"
        : "☐"
      : type === "radio" || type === "radio-button"
        ? isOn
          ? "◉"
          : "○"
        : (attributes.get("value") ?? attributes.get("qf:value") ?? "");
  const isMark = type === "checkbox" || type.startsWith("radio");
  return {
    className: isMark ? "control mark" : `control ${type === "button" ? "button" : "entry"}`,
    text,
    title: attributes.get("name") ?? "",
    style: isMark ? "" : `width:${attributes.get("width") ?? "40mm"}`,
  };
}

function leaderLook(attributes: Attributes): ObjectLook {
  const length = attributes.get("leader-length.optimum") ?? attributes.get("leader-length") ?? "30mm";
  return {
    className: `leader ${attributes.get("leader-pattern") ?? "space"}`,
    text: "",
    title: "",
    style: `width:${length.replace(/[^\w.%]/g, "")}`,
  };
}

function imageLook(attributes: Attributes): ObjectLook {
  const address = (attributes.get("src") ?? "").replace(/^url\(\s*['"]?|['"]?\s*\)$/g, "");
  const size = (["width", "height"] as const)
    .map(side => {
      const value = attributes.get(`content-${side}`) ?? attributes.get(side) ?? "";
      return /^[\d.]+(mm|cm|in|pt|px|pc|em|%)$/.test(value) ? `${side}:${value};` : "";
    })
    .join("");
  return { className: "image", text: address, title: address.startsWith("data:") ? "" : address, style: size };
}

export function lookOf(name: string, markup: string): ObjectLook {
  const tagEnd = markup.indexOf(">") + 1;
  const attributes = attributesOf(markup.slice(0, tagEnd));
  switch (name) {
    case "fo:page-number":
      return { className: "page-number", text: "1", title: "", style: "" };
    case "fo:page-number-citation":
      return { className: "page-number", text: "?", title: attributes.get("ref-id") ?? "", style: "" };
    case "qf:form-control":
      return controlLook(attributes);
    case "fo:leader":
      return leaderLook(attributes);
    case "fo:external-graphic":
    case "fo:instream-foreign-object":
      return imageLook(attributes);
    case "qf:tab":
      return { className: "tab", text: "", title: "", style: "" };
    case "qfd:field": {
      const text = elementsOf(markup).length > 0 ? markup.replace(/<[^>]*>/g, "") : "";
      return { className: "field", text: text || lastStep(attributes.get("xpath") ?? name), title: "", style: "" };
    }
    case "qfd:inline-xslt":
      return fieldLook(markup);
    default:
      return { className: "field", text: name.replace(/^.*:/, ""), title: name, style: "" };
  }
}
