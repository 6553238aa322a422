// Bundles the page into build/web/page: plain files that any server can give out.
//   node build.mjs [--watch]

import { build, context } from "esbuild";
import { cpSync, existsSync, mkdirSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const here = fileURLToPath(new URL(".", import.meta.url));
const root = join(here, "../..");
const module = join(root, "build/web/module");
const page = join(root, "build/web/page");

const options = {
  entryPoints: { main: join(here, "src/main.ts"), spelling: join(here, "src/spelling/worker.ts") },
  outdir: page,
  bundle: true,
  minify: true,
  sourcemap: true,
  format: "esm",
  target: "es2022",
  mainFields: ["browser", "main"], // hunspell-asm's modules call a name space as a function
  alias: { "forme-module": join(module, "forme.mjs") },
  external: ["fs", "path", "module"],
  logLevel: "warning",
};

function copyFiles() {
  mkdirSync(join(page, "templates"), { recursive: true });
  cpSync(join(here, "src/index.html"), join(page, "index.html"));
  cpSync(join(module, "forme.wasm"), join(page, "forme.wasm"));
  for (const name of readdirSync(join(root, "samples")).filter(each => each.endsWith(".xml")))
    cpSync(join(root, "samples", name), join(page, "templates", name));
  copyDictionaries("/usr/share/hunspell", ["en_US", "en_GB", "de_DE"]);
}

/** They are large and no part of the page: it fetches them when words are to be checked. */
function copyDictionaries(from, names) {
  mkdirSync(join(page, "dictionaries"), { recursive: true });
  for (const file of names.flatMap(name => [`${name}.aff`, `${name}.dic`]))
    if (existsSync(join(from, file))) cpSync(join(from, file), join(page, "dictionaries", file), { dereference: true });
}

copyFiles();
if (process.argv.includes("--watch")) await (await context(options)).watch();
else await build(options);
