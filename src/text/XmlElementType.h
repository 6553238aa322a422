#pragma once

/// What kind of markup begins or ends at an offset.
enum XmlElementType {
    xmlComment = 0,
    xmlCData = 1,
    xmlProcessingInstruction = 2,
    xmlElement = 3,
    xmlNone = 4
};
