#pragma once

#include "channels/PromoElement.h"

#include <vector>

class Document;
class Fragment;

/// The promo places of the page sequence around the caret, on their way into a tree and back into
/// the text. The tree's root is one like the document's.
class PromoPlaces {
public:
    /// Reads them into the fragment, if there is such a sequence.
    PromoPlaces(Document& document, const Core::String& master, Fragment& fragment);

    Core::Vector<TranspromoInfo> list(const Fragment& fragment) const;
    void override(Fragment& fragment, Core::Vector<TranspromoInfo> places);
    void commit(const Fragment& fragment);
    /// Takes those of the sequence at the position out of the text; nothing where none begins.
    void deleteIn(int sequence);

private:
    void read(const Core::String& master, int sequence, Fragment& fragment);
    bool write(const Core::String& written);

    Document* document_;
    PromoElement::Regions regions_;
    Core::String source_;                 // the places as they stand in the text
    Core::String asRead_;                 // what the tree was written as
    std::vector<PropertyValueEx> values_; // that the commit has to write
};
