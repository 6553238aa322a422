// What Emscripten makes of host/web/module.

interface FormeModule {
  FS: { writeFile(path: string, bytes: Uint8Array): void; readFile(path: string): Uint8Array };
  _forme_reply(request: number): number;
  _malloc(size: number): number;
  _free(memory: number): void;
  UTF8ToString(memory: number): string;
  stringToUTF8(text: string, memory: number, size: number): void;
  lengthBytesUTF8(text: string): number;
}

declare module "forme-module" {
  export default function load(): Promise<FormeModule>;
}
