// One stop of Tab for a row of controls: Left and Right go from one to the next.

export function rove(row: HTMLElement, controls: () => HTMLElement[], leave: () => void): void {
  const take = (control: HTMLElement): void => {
    for (const each of controls()) each.tabIndex = each === control ? 0 : -1;
  };
  const first = controls()[0];
  if (first) take(first);
  row.addEventListener("focusin", event => {
    const control = controls().find(each => each.contains(event.target as Node));
    if (control) take(control);
  });
  row.addEventListener("keydown", event => {
    const all = controls();
    const at = all.indexOf(document.activeElement as HTMLElement);
    const targets: Record<string, number> = { ArrowLeft: at - 1, ArrowRight: at + 1, Home: 0, End: -1 };
    const target = targets[event.key];
    if (event.key === "Escape") leave();
    else if (at < 0 || target === undefined) return;
    else all[(target + all.length) % all.length]!.focus();
    event.preventDefault();
  });
}
