#pragma once

#include "document/RecordedCommand.h"
#include "editing/ListBuffer.h"

/// Makes a change as one undo step; answers whether it stood. One that would break the document is
/// taken back.
template <typename Change>
bool ListBuffer::carryOut(Change change) {
    RecordedCommand command(&document_);
    change();
    if (command.mayStand())
        return true;
    command.takeBack();
    return false;
}
