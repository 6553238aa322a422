// Gives out the built page on the loopback address.
//   node serve.mjs [PORT]

import { createServer } from "node:http";
import { createReadStream, statSync } from "node:fs";
import { extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";

const page = fileURLToPath(new URL("../../build/web/page", import.meta.url));
const types = {
  ".html": "text/html; charset=utf-8",
  ".js": "text/javascript; charset=utf-8",
  ".css": "text/css; charset=utf-8",
  ".wasm": "application/wasm",
  ".xml": "application/xml",
  ".svg": "image/svg+xml",
  ".png": "image/png",
};

function isFile(path) {
  return statSync(path, { throwIfNoEntry: false })?.isFile() ?? false;
}

/** The server, listening; port 0 takes any that is free. */
export function serve(port) {
  const server = createServer((request, response) => {
    const name = decodeURIComponent(new URL(request.url, "http://localhost").pathname);
    const path = join(page, normalize(name.endsWith("/") ? `${name}index.html` : name));
    if (!path.startsWith(page) || !isFile(path)) return response.writeHead(404).end("not found");
    response.writeHead(200, {
      "Content-Type": types[extname(path)] ?? "application/octet-stream",
      "Cache-Control": "no-cache",
    });
    createReadStream(path).pipe(response);
  });
  return new Promise((resolve, reject) => {
    server.once("error", reject);
    server.listen(port, "127.0.0.1", () => resolve(server));
  });
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const server = await serve(Number(process.argv[2] ?? 8137));
  console.log(`Open http://127.0.0.1:${server.address().port}/ in a browser. Ctrl+C ends.`);
}
