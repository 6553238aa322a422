#include "document/Edit.h"

#include "document/Document.h"

using Core::String;

void Edit::insert(int position, const String& xml) {
    document_.insertUnrecorded(position, xml);
    document_.recordInsertion(position, xml);
    document_.recordCaret();
}

String Edit::remove(int start, int end) {
    String removed = document_.removeUnrecorded(start, end - 1);
    document_.recordDeletion(start, removed);
    document_.recordCaret();
    return removed;
}
