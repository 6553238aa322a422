// Light or dark, as the user says or else the system.

export type Appearance = "system" | "light" | "dark";

const remembered = "forme.appearance";

export function appearance(): Appearance {
  return (localStorage.getItem(remembered) as Appearance | null) ?? "system";
}

export function setAppearance(wanted: Appearance): void {
  localStorage.setItem(remembered, wanted);
  applyAppearance();
}

export function applyAppearance(): void {
  document.documentElement.dataset["appearance"] = appearance();
}
