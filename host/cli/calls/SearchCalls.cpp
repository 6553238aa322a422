// Finding and replacing, and spelling.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::search() {
    const auto document = documentRows();
    return {
        document("findReplace", &D::findReplace,
                 {"find", "replacement", "matchCase", "wholeWord", "direction", "replace"}),
        document("resetfindReplaceStartPos", &D::resetfindReplaceStartPos),
        document("getSpellingErrors", &D::getSpellingErrors,
                 {"start", "end", "defaultDictionaries"}),
        document("getNextSpellingError", &D::getNextSpellingError,
                 {"defaultDictionaries", "restart"}),
        document("getSpellingDictionaries", &D::getSpellingDictionaries),
        document("setSpellingDictionaries", &D::setSpellingDictionaries, {"dictionaries"}),
        document("syncSpellerMap", &D::syncSpellerMap, {"dictionaries"}),
    };
}
