// What was not saved when the page went away, kept in the browser and offered the next time.

import type { Editor } from "../Editor.ts";
import type { Files } from "./Files.ts";

export interface Kept {
  name: string;
  bytes: Uint8Array;
  time: number;
}

const pause = 3000; // ms without a change
const store = "drafts";
const lockName = (id: string): string => `forme-draft-${id}`;

/** Each window keeps one of its own, under an id that it holds a lock on for as long as it lives. */
export class Draft {
  private readonly id = crypto.randomUUID();
  private due: ReturnType<typeof setTimeout> | undefined;

  constructor(
    private readonly editor: Editor,
    private readonly files: Files,
  ) {
    void navigator.locks?.request(lockName(this.id), () => new Promise(() => undefined));
    editor.document.listen(reply => reply.change && this.keepLater());
    files.onChange(() => void this.keep()); // it was saved, or another one was opened
    document.addEventListener("visibilitychange", () => document.hidden && void this.keep());
  }

  /** Those that windows left behind that are gone. */
  static async leftBehind(): Promise<Map<string, Kept>> {
    const held = new Set((await navigator.locks.query()).held?.map(lock => lock.name));
    const all = await onStore<[string[], Kept[]]>("readonly", drafts => [drafts.getAllKeys(), drafts.getAll()]);
    const [ids, kept] = all;
    return new Map(ids.map((id, i) => [id, kept[i]!] as const).filter(([id]) => !held.has(lockName(id))));
  }

  static forget(id: string): Promise<unknown> {
    return onStore("readwrite", drafts => [drafts.delete(id)]);
  }

  private keepLater(): void {
    clearTimeout(this.due);
    this.due = setTimeout(() => void this.keep(), pause);
  }

  private async keep(): Promise<void> {
    clearTimeout(this.due);
    if (!this.files.isChanged) return void (await Draft.forget(this.id));
    const kept: Kept = { name: this.files.name, bytes: this.editor.document.save().slice(), time: Date.now() };
    await onStore("readwrite", drafts => [drafts.put(kept, this.id)]);
  }
}

/** Carries out requests in one transaction and gives their results. */
async function onStore<T extends unknown[]>(
  mode: IDBTransactionMode,
  requests: (drafts: IDBObjectStore) => IDBRequest[],
): Promise<T> {
  const opening = indexedDB.open("forme", 1);
  opening.onupgradeneeded = () => opening.result.createObjectStore(store);
  const database = await resultOf(opening);
  try {
    const made = requests(database.transaction(store, mode).objectStore(store));
    return (await Promise.all(made.map(resultOf))) as T;
  } finally {
    database.close();
  }
}

function resultOf<T>(request: IDBRequest<T>): Promise<T> {
  return new Promise((done, fail) => {
    request.onsuccess = () => done(request.result);
    request.onerror = () => fail(request.error);
  });
}
