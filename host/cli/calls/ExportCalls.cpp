// The document in other languages.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/export/XslFoExport.h>

std::vector<Operation> Calls::exports() {
    const Rows formattingObjects([](Session& session) { return XslFoExport(&session.document()); },
                                 "export");
    return {
        formattingObjects("getText", &XslFoExport::getText),
        formattingObjects("saveToFile", &XslFoExport::saveToFile, {"path"}),
    };
}
