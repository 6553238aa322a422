#include "calls/Calls.h"

/// All that the page has buttons and keys for. What it leaves out, and the code behind that, would
/// be a fifth of what a browser has to load.
std::vector<Calls::Table> Calls::served() {
    return {session,   document,      history,          caret,      search,  selection, typing,
            clipboard, deletion,      breaks,           formatting, objects, lists,     settings,
            content,   pageSequences, pageSequenceTree, tables,     masters, view,      exports};
}
