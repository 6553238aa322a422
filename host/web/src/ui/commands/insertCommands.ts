// What is put into the text, and the pages it stands on.

import type { Command } from "../Command.ts";
import { openPageSetup } from "../dialogs/pageSetup.ts";
import { openInsertTable } from "../dialogs/tableProperties.ts";
import { addSection, backToText, editRegion } from "../headers.ts";
import { editLink, insertDate, insertFootnote, insertImage, insertMarkup, linkAddress, removeLink } from "../insert.ts";
import { around } from "../markup.ts";

const rule = '<fo:leader leader-pattern="rule" leader-length="100%" rule-thickness="0.5pt"/>';

export const insertCommands: Command[] = [
  { id: "image", text: "insert.image", icon: "image", edits: true, run: insertImage },
  {
    id: "link",
    text: "insert.link",
    icon: "link",
    keys: "Ctrl+K",
    edits: true,
    pressed: editor => around(editor, "fo:basic-link") >= 0,
    run: editLink,
  },
  {
    id: "removeLink",
    text: "insert.link.remove",
    edits: true,
    isEnabled: editor => around(editor, "fo:basic-link") >= 0,
    run: removeLink,
  },
  {
    id: "openLink",
    text: "insert.link.open",
    isEnabled: editor => /^https?:|^mailto:/.test(linkAddress(editor)),
    run: editor => void window.open(linkAddress(editor), "_blank", "noopener"),
  },
  {
    id: "insertTable",
    text: "insert.tableDialog",
    icon: "table",
    edits: true,
    isEnabled: editor => editor.state.canPaste,
    run: openInsertTable,
  },
  {
    id: "pageBreak",
    text: "insert.pageBreak",
    icon: "pageBreak",
    keys: "Ctrl+Enter",
    edits: true,
    run: editor => editor.call("insertBreak", 0, false),
  },
  { id: "section", text: "insert.section", edits: true, run: addSection },
  { id: "header", text: "insert.header", edits: true, run: editor => editRegion(editor, "header") },
  { id: "footer", text: "insert.footer", edits: true, run: editor => editRegion(editor, "footer") },
  { id: "body", text: "insert.body", isEnabled: editor => editor.state.isInStaticContent, run: backToText },
  {
    id: "pageNumber",
    text: "insert.pageNumber",
    edits: true,
    run: editor => insertMarkup(editor, "<fo:page-number/>"),
  },
  {
    id: "footnote",
    text: "insert.footnote",
    edits: true,
    isEnabled: editor => !editor.state.isInStaticContent,
    run: insertFootnote,
  },
  { id: "rule", text: "insert.rule", edits: true, run: editor => insertMarkup(editor, rule) },
  { id: "date", text: "insert.date", edits: true, run: insertDate },
  { id: "pageSetup", text: "format.pageSetup", icon: "page", edits: true, run: openPageSetup },
];
