#include "calls/Calls.h"

std::vector<Calls::Table> Calls::served() {
    return {session, document,  history,      caret,         search,           selection,
            typing,  clipboard, deletion,     breaks,        formatting,       objects,
            lists,   settings,  content,      pageSequences, pageSequenceTree, detachedPages,
            tables,  masters,   templateData, values,        security,         promoPlaces,
            forms,   channels,  view,         exports};
}
