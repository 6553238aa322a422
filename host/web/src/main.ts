import "./view/pages.css";
import { FormeDocument } from "./library/FormeDocument.ts";
import { Mouse } from "./input/Mouse.ts";
import { TextInput } from "./input/TextInput.ts";
import { startInterface } from "./ui/start.ts";
import { DocumentView } from "./view/DocumentView.ts";
import { preparePrinting } from "./view/printing.ts";

const page = document.getElementById("page")!;
const forme = await FormeDocument.load();
// Keys take what a reader sees as one character.
forme.call("setClusterSteps", true);
const view = new DocumentView(forme, page);
const input = new TextInput(forme, view);
new Mouse(forme, view, input.clipboard);
preparePrinting(view);
startInterface(forme, view, page);
// For tests, and for who wants to try requests in the console.
Object.assign(window, { forme: { document: forme, view } });
