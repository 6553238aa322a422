#pragma once

#include "trees/CutPart.h"

class Document;
class Fragment;

/// Where the annotations of a document are: from the start tag of its root up to its page masters,
/// cut out and on its way back.
class AnnotationArea {
public:
    /// Reads it into the fragment. Throws Core::Exception for a document without page masters, and
    /// Xml::ParseException.
    AnnotationArea(Document& document, Fragment& fragment);

    /// Throws Core::Exception, and changes nothing, where the text has changed.
    void commit(Fragment& fragment);

private:
    CutPart part_;
};
