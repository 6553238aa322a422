// Checks words with Hunspell, beside the page, so that typing never waits for it.

import { loadModule, type Hunspell, type HunspellFactory } from "hunspell-asm";
import type { Answer, Question } from "./messages.ts";

let factory: Promise<HunspellFactory> | undefined;
const dictionaries = new Map<string, Promise<Hunspell>>();

async function fetched(name: string): Promise<Uint8Array> {
  const answer = await fetch(new URL(`dictionaries/${name}`, self.location.href));
  if (!answer.ok) throw new Error(`${name}: ${answer.status}`);
  return new Uint8Array(await answer.arrayBuffer());
}

async function load(dictionary: string): Promise<Hunspell> {
  factory ??= loadModule();
  const [hunspell, aff, dic] = await Promise.all([factory, fetched(`${dictionary}.aff`), fetched(`${dictionary}.dic`)]);
  const affPath = hunspell.mountBuffer(aff, `${dictionary}.aff`);
  const dicPath = hunspell.mountBuffer(dic, `${dictionary}.dic`);
  return hunspell.create(affPath, dicPath);
}

function dictionaryOf(name: string): Promise<Hunspell> {
  const known = dictionaries.get(name);
  if (known) return known;
  const loading = load(name);
  dictionaries.set(name, loading);
  loading.catch(() => dictionaries.delete(name)); // the next question tries again
  return loading;
}

async function answer(question: Question): Promise<Answer> {
  const { id } = question;
  try {
    const hunspell = await dictionaryOf(question.dictionary);
    switch (question.kind) {
      case "load":
        return { id };
      case "check":
        return { id, wrong: question.words.filter(word => !hunspell.spell(word)) };
      case "suggest":
        return { id, suggestions: hunspell.suggest(question.word) };
    }
  } catch (failure) {
    return { id, failure: String(failure) };
  }
}

self.addEventListener("message", (event: MessageEvent<Question>) => {
  void answer(event.data).then(reply => self.postMessage(reply));
});
