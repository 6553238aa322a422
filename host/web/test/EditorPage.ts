// The editor in a real browser, as tests drive it.

import { chromium, type Browser, type BrowserContext, type Page } from "playwright-core";
import { mkdirSync } from "node:fs";
import type { Server } from "node:http";
import type { AddressInfo } from "node:net";
import { after, type TestContext } from "node:test";
import { pathToFileURL } from "node:url";
import { join } from "node:path";

import type { FormeDocument } from "../src/library/FormeDocument.ts";
import type { DocumentView } from "../src/view/DocumentView.ts";

declare global {
  interface Window {
    forme: { document: FormeDocument; view: DocumentView };
  }
}

const root = process.cwd(); // of host/web
const screenshots = join(root, "../../build/web/screenshots");

let browser: Promise<Browser> | undefined;
let server: Promise<Server> | undefined;

function startServer(): Promise<Server> {
  return import(pathToFileURL(join(root, "serve.mjs")).href).then(module => module.serve(0));
}

function startBrowser(): Promise<Browser> {
  return chromium.launch({ executablePath: process.env["CHROMIUM"] ?? "/usr/bin/chromium", args: ["--no-sandbox"] });
}

after(async () => {
  await (await browser)?.close();
  (await server)?.close();
});

/** Opens the editor; a test that fails leaves a picture of it. */
export async function openEditor(test: TestContext, locale = "en-GB"): Promise<EditorPage> {
  browser ??= startBrowser();
  server ??= startServer();
  const context = await (await browser).newContext({ locale, viewport: { width: 1280, height: 860 } });
  // Files are picked and saved in the way that tests can follow.
  await context.addInitScript(() => {
    Object.assign(window, { showOpenFilePicker: undefined, showSaveFilePicker: undefined });
  });
  const editor = await openPage(context);
  test.after(async () => {
    mkdirSync(screenshots, { recursive: true });
    const path = join(screenshots, `${test.name.replace(/\W+/g, "-")}.png`);
    await context.pages().at(-1)?.screenshot({ path });
    await context.close();
  });
  return editor;
}

async function openPage(context: BrowserContext): Promise<EditorPage> {
  const page = await context.newPage();
  page.setDefaultTimeout(15_000);
  const faults: string[] = [];
  page.on("pageerror", fault => faults.push(fault.stack ?? fault.message));
  await page.goto(`http://127.0.0.1:${((await server)!.address() as AddressInfo).port}/`);
  await page.waitForSelector(".ui-toolbar");
  return new EditorPage(page, faults);
}

export class EditorPage {
  constructor(
    readonly page: Page,
    /** What was thrown in the page and not caught. */
    readonly faults: string[],
  ) {}

  /** The same user's next window. */
  reopened(): Promise<EditorPage> {
    return openPage(this.page.context());
  }

  call<T = unknown>(name: string, ...args: unknown[]): Promise<T> {
    return this.page.evaluate(([request, rest]) => window.forme.document.call(request, ...rest), [
      name,
      args,
    ] as const) as Promise<T>;
  }

  /** The whole document. */
  text(): Promise<string> {
    return this.call("getContent");
  }

  /** What stands in the last flow, without the white space between tags. */
  async flow(): Promise<string> {
    const text = await this.text();
    const flow = text.slice(text.lastIndexOf("<fo:flow"), text.lastIndexOf("</fo:flow>"));
    return flow.slice(flow.indexOf(">") + 1).replace(/\s*\n\s*/g, "");
  }

  /** A new blank document, whatever was open. */
  async blank(): Promise<void> {
    await this.press("new");
    await this.page.keyboard.press("Enter");
    await this.page.waitForSelector("dialog", { state: "detached" });
    await this.page.waitForFunction(() => window.forme.document.call<string>("getContent").length < 1000);
  }

  /** A document from `samples/`. */
  async sample(title: string): Promise<void> {
    await this.press("new");
    await this.page.click(`dialog .ui-template:has-text("${title}")`);
    await this.page.keyboard.press("Enter");
    await this.page.waitForSelector("dialog", { state: "detached" });
    await this.settle();
  }

  /** A button of the toolbar. */
  async press(command: string): Promise<void> {
    await this.page.click(`.ui-toolbar [data-command="${command}"]`);
    await this.settle();
  }

  async pressed(command: string): Promise<string | null> {
    await this.settle();
    return this.page.getAttribute(`.ui-toolbar [data-command="${command}"]`, "aria-pressed");
  }

  async menu(title: string, command: string): Promise<void> {
    await this.page.click(`[role=menubar] >> text="${title}"`);
    await this.page.click(`.ui-menu [data-command="${command}"]`);
    await this.settle();
  }

  /** Types into the text, each character a key. */
  async type(text: string): Promise<void> {
    await this.page.keyboard.type(text);
    await this.settle();
  }

  async key(...keys: string[]): Promise<void> {
    for (const key of keys) await this.page.keyboard.press(key);
    await this.settle();
  }

  selectAll(): Promise<void> {
    return this.key("Control+Home", "Control+Shift+End");
  }

  /** Selects a text that stands in one piece. */
  async select(text: string): Promise<void> {
    const start = (await this.text()).indexOf(text);
    if (start < 0) throw new Error(`not in the document: ${text}`);
    await this.call("setCaretPos", false, start);
    await this.call("setCaretPos", true, start + text.length);
    await this.settle();
  }

  async undoAll(): Promise<void> {
    while (await this.call<boolean>("canUndo")) await this.key("Control+z");
  }

  /** Until what has changed is shown, in the toolbar too. */
  settle(): Promise<void> {
    return this.page.evaluate(
      () => new Promise<void>(done => requestAnimationFrame(() => setTimeout(() => setTimeout(done)))),
    );
  }
}
