#pragma once

#include "text/XmlScan.h"
#include "text/store/TextStore.h"

/// Finds tags in a regular text by what its store knows of them, and so in a time that hardly grows
/// with the text. The answers are those of scans.
class StoredTags {
public:
    explicit StoredTags(const TextStore& store) : store_(store) {}

    /// Whether the answers hold for a position: not in a text that is not regular, nor in a
    /// comment, section, instruction or document type, in which a scan takes for tags what looks
    /// like them.
    bool know(int position) const;

    // As ScannedTags has them

    int markupAround(int position) const { return store_.markupAround(position); }
    int elementAround(int position) const { return store_.elementAround(position); }
    int next(int markup) const;
    int tagEnd(int position) const;
    bool selfClosingAt(int position) const;
    bool isText(int bracket) const;
    int nextTag(int position, MarkKinds kinds) const;
    int previousTag(int position, MarkKinds kinds) const;
    int startTag(int tag) const;

private:
    XmlScan::Text all() const { return XmlScan::Text(store_); }
    bool isTag(int position) const {
        return XmlScan::onTagStart(all(), position) && !XmlScan::declarationAt(all(), position);
    }
    /// The first `>` at or behind a position that ends markup.
    int markupEnd(int position) const { return store_.markFrom(position, MarkKinds::ends()); }

    const TextStore& store_;
};
