// The document, as the library compiled to WebAssembly holds it. A request and its reply are the
// lines of docs/requests.md.

import loadModule from "forme-module";

export interface Change {
  start: number;
  removed: number;
  inserted: number;
}
export type Notice = "buffer" | "caret" | "selection";
export interface Reply {
  result: unknown;
  caret: number;
  pivot: number;
  notices: Notice[];
  change?: Change;
}

/** A request that was refused; document, caret and history are as before. */
export class RequestError extends Error {}

type Listener = (reply: Reply) => void;
type Failure = { error: string };

export class FormeDocument {
  #listeners = new Set<Listener>();
  #caret = -1;
  #pivot = -1;
  #fileName = "";
  /** What a toolbar was told while nothing was selected; the next text that is typed gets it. */
  typingFormats: [name: string, value: string][] = [];

  private constructor(private readonly module: FormeModule) {}

  /** Compiles the module. The document is empty until one is opened. */
  static async load(): Promise<FormeDocument> {
    return new FormeDocument(await loadModule());
  }

  get caret(): number {
    return this.#caret;
  }
  get pivot(): number {
    return this.#pivot;
  }
  get fileName(): string {
    return this.#fileName;
  }
  get hasSelection(): boolean {
    return this.#caret !== this.#pivot;
  }

  /** Carries out a request and gives its result; throws a RequestError if it is refused. */
  call<T = unknown>(name: string, ...args: unknown[]): T {
    const reply = this.#serve([name, ...args]);
    this.#caret = reply.caret;
    this.#pivot = reply.pivot;
    if (reply.notices.length > 0 || reply.change) for (const listener of this.#listeners) listener(reply);
    return reply.result as T;
  }

  /** Several requests as one step of undo. */
  group(requests: () => void): void {
    this.call("history.startActionGroup");
    try {
      requests();
    } finally {
      this.call("history.endActionGroup");
    }
  }

  /** Calls the listener after every request that changed something. Gives what ends that. */
  listen(listener: Listener): () => void {
    this.#listeners.add(listener);
    return () => this.#listeners.delete(listener);
  }

  /** Takes up another document. If it cannot be read, the old one stays. */
  open(bytes: Uint8Array, name: string): void {
    const path = "/document";
    this.module.FS.writeFile(path, bytes);
    this.call("open", path);
    this.#fileName = name;
  }

  /** The document's text as UTF-8, its XML declaration set right. */
  save(): Uint8Array {
    const path = "/saved";
    this.call("save", path, 1);
    return this.module.FS.readFile(path);
  }

  #serve(request: unknown[]): Reply {
    const { _malloc, _free, _forme_reply, UTF8ToString, stringToUTF8, lengthBytesUTF8 } = this.module;
    const line = JSON.stringify(request);
    const size = lengthBytesUTF8(line) + 1;
    const memory = _malloc(size);
    let reply: Reply | Failure;
    try {
      stringToUTF8(line, memory, size);
      reply = JSON.parse(UTF8ToString(_forme_reply(memory)));
    } finally {
      _free(memory);
    }
    if ("error" in reply) throw new RequestError(reply.error);
    return reply;
  }
}
