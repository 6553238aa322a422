// Lengths as people write them and as documents have them.

const millimetres: Record<string, number> = { mm: 1, cm: 10, in: 25.4, pt: 25.4 / 72, pc: 25.4 / 6, px: 25.4 / 96 };

/** In millimetres; null for what is no length. A number alone counts millimetres. */
export function lengthInMm(written: string): number | null {
  const parts = /^\s*(-?\d*[.,]?\d+)\s*([a-z]*)\s*$/i.exec(written);
  if (!parts) return null;
  const factor = millimetres[parts[2]!.toLowerCase() || "mm"];
  return factor === undefined ? null : Number(parts[1]!.replace(",", ".")) * factor;
}

/** "12.5mm" for what a user wrote, in the unit that was used; null for what is no length. */
export function asLength(written: string): string | null {
  const parts = /^\s*(-?\d*[.,]?\d+)\s*([a-z]*)\s*$/i.exec(written);
  if (!parts || lengthInMm(written) === null) return null;
  return `${parts[1]!.replace(",", ".")}${parts[2]!.toLowerCase() || "mm"}`;
}

export function mm(value: number): string {
  return `${Math.round(value * 100) / 100}mm`;
}
