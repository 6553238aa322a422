// The icons of the interface: outlines on a grid of 20 by 20, in the colour of the text around.

const outlines = {
  new: "M5 2.75h6.5L15.25 6.5v10.75H5zM11.25 3v3.75H15",
  open: "M2.75 15.5v-11h5l1.75 2h7.75v2.25M2.75 15.5l2.5-6.75h13l-2.5 6.75z",
  save: "M3.25 3.25h11l2.5 2.5v11H3.25zM6.5 3.5v4h6.5v-4M6 16.5v-5.25h8v5.25",
  print: "M6 7V2.75h8V7M6 14H3.25V7h13.5v7H14M6 11.5h8v5.75H6z",
  undo: "M7.5 4 3.75 7.75 7.5 11.5M4 7.75h8a4.25 4.25 0 0 1 0 8.5H8.5",
  redo: "M12.5 4l3.75 3.75-3.75 3.75M16 7.75H8a4.25 4.25 0 0 0 0 8.5h3.5",
  cut: "M6.75 12.25 14 3M13.25 12.25 6 3M7.5 14.75a2 2 0 1 1-4 0 2 2 0 0 1 4 0zM16.5 14.75a2 2 0 1 1-4 0 2 2 0 0 1 4 0z",
  copy: "M7.25 6.25h9v10.5h-9zM12.75 6V3.25h-9v10.5H7",
  paste: "M7 4.25H4.25v12.5h11.5V4.25H13M7 2.75h6v3H7zM7.5 9.5h5M7.5 12.5h5",
  find: "M13.25 8.25a5 5 0 1 1-10 0 5 5 0 0 1 10 0zM12 12l5 5",
  bold: "M6 3.75h4.75a3 3 0 0 1 0 6H6zM6 9.75h5.5a3.25 3.25 0 0 1 0 6.5H6z",
  italic: "M8.5 3.75h5.5M6 16.25h5.5M11.5 3.75l-3 12.5",
  underline: "M5.75 3.25v6a4.25 4.25 0 0 0 8.5 0v-6M4.5 17h11",
  strike:
    "M14 6C13.5 4.5 12 3.75 10 3.75c-2.25 0-3.9 1.1-3.9 2.9 0 1.5 1 2.35 3 2.85M3 10h14M13.4 12c.6.6.85 1.2.85 1.85 0 1.6-1.5 2.65-4.05 2.65-2.4 0-4-.9-4.45-2.75",
  superscript:
    "M3.5 6.5l7 9.5M10.5 6.5l-7 9.5M13.5 4.4c.2-1 1-1.65 2-1.65 1.1 0 1.9.65 1.9 1.6 0 1.4-2.4 2.1-3.9 3.9h4",
  subscript: "M3.5 3.5l7 9.5M10.5 3.5l-7 9.5M13.5 13.4c.2-1 1-1.65 2-1.65 1.1 0 1.9.65 1.9 1.6 0 1.4-2.4 2.1-3.9 3.9h4",
  color: "M5.25 12.25 10 2.5l4.75 9.75M6.75 9.25h6.5",
  background: "M5 11.5 11.5 5l3.5 3.5-6.5 6.5H5zM10 6.5l3.5 3.5",
  clear: "M5 3.75h10M10 3.75 8 12M12.5 12.5l4 4M16.5 12.5l-4 4M5 16.25h4",
  alignStart: "M3 4.5h14M3 8.25h9M3 12h14M3 15.75h9",
  alignCenter: "M3 4.5h14M5.5 8.25h9M3 12h14M5.5 15.75h9",
  alignEnd: "M3 4.5h14M8 8.25h9M3 12h14M8 15.75h9",
  justify: "M3 4.5h14M3 8.25h14M3 12h14M3 15.75h14",
  bullets: "M7.5 5h9.5M7.5 10h9.5M7.5 15h9.5M3.5 5h.75M3.5 10h.75M3.5 15h.75",
  numbers:
    "M8 5h9M8 10h9M8 15h9M3.25 3.75l1-.75v4M2.9 9.1c.2-.7.7-1 1.3-1 .7 0 1.2.4 1.2 1 0 .9-1.6 1.5-2.4 2.7h2.5M3 13.4h2.2l-1.2 1.5c.8 0 1.3.5 1.3 1.1 0 .7-.6 1.1-1.2 1.1-.6 0-1-.2-1.3-.7",
  indent: "M3 4.5h14M9 8.25h8M9 12h8M3 15.75h14M3 8l2.5 2.1L3 12.25",
  outdent: "M3 4.5h14M9 8.25h8M9 12h8M3 15.75h14M5.75 8l-2.5 2.1 2.5 2.15",
  lineSpacing: "M9 4.5h8M9 10h8M9 15.5h8M4.75 4v12M2.75 6l2-2.25 2 2.25M2.75 14l2 2.25 2-2.25",
  image: "M2.75 4.25h14.5v11.5H2.75zM3 14l4-4.25 3 3 2.75-2.5L17 14M13.75 7.5a.9.9 0 1 1-1.8 0 .9.9 0 0 1 1.8 0z",
  link: "M8.5 11.5a3 3 0 0 0 4.3.2l2.7-2.7a3 3 0 0 0-4.25-4.25L9.9 6.1M11.5 8.5a3 3 0 0 0-4.3-.2l-2.7 2.7a3 3 0 0 0 4.25 4.25l1.35-1.35",
  table: "M3 4h14v12H3zM3 8h14M3 12h14M7.75 4v12M12.5 4v12",
  pageBreak: "M5 8V2.75h10V8M5 12v5.25h10V12M2.5 10h2M6.5 10h2.25M11 10h2.25M15.25 10h2.25",
  rowAbove: "M3 9h14v7.5H3zM10 9v7.5M3 12.75h14M10 2v5M7.5 4.5h5",
  rowBelow: "M3 3.5h14V11H3zM10 3.5V11M3 7.25h14M10 13v5M7.5 15.5h5",
  columnBefore: "M9 3h7.5v14H9zM9 10h7.5M12.75 3v14M2 10h5M4.5 7.5v5",
  columnAfter: "M3.5 3H11v14H3.5zM3.5 10H11M7.25 3v14M13 10h5M15.5 7.5v5",
  merge: "M3 4h14v12H3zM3 8h14M10 4v4M6 12h3M14 12h-3M7.75 10.5 9.25 12l-1.5 1.5M12.25 10.5 10.75 12l1.5 1.5",
  split: "M3 4h14v12H3zM3 8h14M10 8v8M8 12H5M12 12h3M6.25 10.75 5 12l1.25 1.25M13.75 10.75 15 12l-1.25 1.25",
  borders: "M3.5 3.5h13v13h-13zM10 3.5v13M3.5 10h13",
  deleteRow: "M3 6h14v8H3zM10 6v8M7.75 8 12.25 12M12.25 8l-4.5 4",
  page: "M4.75 2.75h10.5v14.5H4.75zM7.25 6h5.5M7.25 14h5.5",
  chevron: "M6.5 8.25 10 11.75l3.5-3.5",
  up: "M5.5 12 10 7.5l4.5 4.5",
  down: "M5.5 8l4.5 4.5L14.5 8",
  close: "M5.5 5.5l9 9M14.5 5.5l-9 9",
  check: "M4.5 10.5 8.25 14l7.25-8",
  plus: "M10 4.5v11M4.5 10h11",
  minus: "M4.5 10h11",
  spelling: "M3 12 6.25 3.5 9.5 12M4.1 9.25h4.3M8.5 14.5l2.75 2.75L17 11",
} as const;

export type IconName = keyof typeof outlines;

const svg = "http://www.w3.org/2000/svg";

export function icon(name: IconName): SVGSVGElement {
  const image = document.createElementNS(svg, "svg");
  image.setAttribute("viewBox", "0 0 20 20");
  image.setAttribute("class", "ui-icon");
  image.setAttribute("aria-hidden", "true");
  const path = document.createElementNS(svg, "path");
  path.setAttribute("d", outlines[name]);
  image.append(path);
  return image;
}
