import { FormeDocument } from "./library/FormeDocument.ts";

const document = await FormeDocument.load();
Object.assign(window, { forme: { document } });
