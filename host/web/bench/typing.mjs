// How long a key takes from the event to the frame that shows it, and where the time goes, in a letter
// and in a document of 1 MB. KEYS=200 says how many.

import { chromium } from "playwright-core";
import { serve } from "../serve.mjs";

const keys = Number(process.env.KEYS ?? 200);
const phases = ["library", "markup", "elements", "pages", "caret", "listeners"];
const server = await serve(0);
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
  args: ["--no-sandbox"],
});

/** Opens the letter, its flow repeated to a size, and puts the caret into the middle. */
async function openLetter(page, size) {
  await page.goto(`http://127.0.0.1:${server.address().port}/`);
  await page.waitForFunction(() => window.forme);
  await page.evaluate(async size => {
    const { document } = window.forme;
    const letter = await (await fetch("templates/letter.xml")).text();
    const start = letter.indexOf(">", letter.indexOf("<fo:flow")) + 1;
    const end = letter.indexOf("</fo:flow>");
    const flow = letter.slice(start, end);
    const text = letter.slice(0, start) + flow.repeat(Math.max(1, Math.ceil(size / flow.length))) + letter.slice(end);
    document.open(new TextEncoder().encode(text), "letter.xml");
    document.call("setCaretPos", false, text.indexOf("The opening", text.length / 2) + 4);
  }, size);
  await page.waitForTimeout(size > 1e5 ? 6000 : 500);
}

/** Takes the time of each key, of its phases, and of tasks over 50 ms. */
function watch() {
  const { document, view } = window.forme;
  const measured = (window.measured = { keys: [], phases: {}, long: [] });
  let phase = "";
  let since = 0;
  const enter = name => {
    const now = performance.now();
    if (phase) measured.phases[phase] = (measured.phases[phase] ?? 0) + now - since;
    phase = name;
    since = now;
  };
  view.onPhase = enter;
  const call = document.call;
  document.call = function (...request) {
    const outer = phase;
    enter("library");
    try {
      return call.apply(this, request);
    } finally {
      enter(outer);
    }
  };
  new PerformanceObserver(list => measured.long.push(...list.getEntries().map(each => each.duration))).observe({
    type: "longtask",
  });
  addEventListener(
    "keydown",
    event => {
      const begun = event.timeStamp;
      requestAnimationFrame(() => {
        const { port1, port2 } = new MessageChannel();
        port1.onmessage = () => measured.keys.push(performance.now() - begun);
        port2.postMessage(null);
      });
    },
    true,
  );
}

console.log(
  ["document", "median", "p95", "most", ...phases, "long tasks"].map(each => each.padStart(10)).join(""),
  " (ms)",
);
for (const [name, size] of [
  ["letter", 0],
  ["1 MB", 1e6],
]) {
  const page = await browser.newPage({ viewport: { width: 1280, height: 860 } });
  await openLetter(page, size);
  await page.evaluate(watch);
  for (let i = 0; i < keys; ++i) {
    await page.keyboard.press("the clock strikes ".charAt(i % 18).replace(" ", "Space"));
    await page.waitForTimeout(20 + ((i * 7) % 17));
  }
  const { keys: times, phases: spent, long } = await page.evaluate(() => window.measured);
  times.sort((a, b) => a - b);
  const at = share => times[Math.min(times.length - 1, Math.floor(times.length * share))].toFixed(1);
  const row = [
    name,
    at(0.5),
    at(0.95),
    at(1),
    ...phases.map(each => ((spent[each] ?? 0) / keys).toFixed(2)),
    String(long.length),
  ];
  console.log(row.map(each => each.padStart(10)).join(""));
  await page.close();
}
await browser.close();
server.close();
