// Bundles the tests and runs them over the built page.
//   node test/run.mjs [NAME...]    those whose file begins with a name; all without one

import { build } from "esbuild";
import { spawnSync } from "node:child_process";
import { readdirSync } from "node:fs";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const here = fileURLToPath(new URL(".", import.meta.url));
const out = join(here, "../node_modules/.cache/tests"); // from where packages are found
const wanted = process.argv.slice(2);

const names = readdirSync(here)
  .filter(name => /^[a-z].*\.ts$/.test(name))
  .map(name => name.replace(/\.ts$/, ""))
  .filter(name => wanted.length === 0 || wanted.some(each => name.startsWith(each)));

await build({
  entryPoints: names.map(name => join(here, `${name}.ts`)),
  outdir: out,
  outExtension: { ".js": ".mjs" },
  bundle: true,
  platform: "node",
  format: "esm",
  packages: "external",
  logLevel: "warning",
});
const { status } = spawnSync(
  process.execPath,
  ["--test", "--test-concurrency=1", ...names.map(name => join(out, `${name}.mjs`))],
  { stdio: "inherit", cwd: join(here, "..") },
);
process.exit(status ?? 1);
