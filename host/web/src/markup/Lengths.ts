// Lengths of XSL-FO in pixels of 1/96 inch.

const units: Record<string, number> = {
  px: 1,
  pt: 96 / 72,
  pc: 16,
  in: 96,
  cm: 96 / 2.54,
  mm: 96 / 25.4,
};

/** "12mm", "1.5em" of a font size, "8%" of a reference; the fallback for anything else. */
export function pixels(value: string | undefined, fallback: number, fontSize = 16, reference = 0): number {
  const found = value?.trim().match(/^([+-]?(?:\d+\.?\d*|\.\d+))\s*([a-z]+|%)?$/i);
  if (!found) return fallback;
  const number = Number(found[1]);
  const unit = found[2]?.toLowerCase() ?? "px";
  if (unit === "em") return number * fontSize;
  if (unit === "%") return (number * reference) / 100;
  return unit in units ? number * units[unit] : fallback;
}

/** The four values of a shorthand such as "10mm 20mm": top, right, bottom, left. */
export function sides(value: string): [string, string, string, string] {
  const [top, right = top, bottom = top, left = right] = value.trim().split(/\s+/);
  return [top, right, bottom, left];
}

export function round(value: number): number {
  return Math.round(value * 100) / 100;
}
