// How large the pages are shown.

const steps = [50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400];

export class Zoom {
  percent = 100;
  private readonly listeners: (() => void)[] = [];

  constructor(private readonly pages: HTMLElement) {}

  onChange(listener: () => void): void {
    this.listeners.push(listener);
  }

  in(): void {
    this.set(steps.find(step => step > this.percent) ?? this.percent);
  }

  out(): void {
    this.set(steps.findLast(step => step < this.percent) ?? this.percent);
  }

  set(percent: number): void {
    this.percent = percent;
    const target = this.pages.querySelector<HTMLElement>("[data-pages]") ?? this.pages;
    target.style.setProperty("zoom", String(percent / 100));
    dispatchEvent(new Event("resize"));
    for (const listener of this.listeners) listener();
  }

  /** As wide as there is room for. */
  fitWidth(): void {
    const page = this.pages.querySelector<HTMLElement>("[data-page], .page");
    if (!page) return;
    const unzoomed = page.getBoundingClientRect().width / (this.percent / 100);
    const room = this.pages.clientWidth - 48;
    this.set(Math.max(25, Math.min(400, Math.floor((room / unzoomed) * 100))));
  }
}
