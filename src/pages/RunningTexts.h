#pragma once

#include "foundation/String.h"
#include "trees/Fragment.h"

#include <map>
#include <set>

class Document;

/// The headers and footers of a document, by the page masters on which they appear. They are looked
/// for once, in the document as it is when this is made.
class RunningTexts {
public:
    explicit RunningTexts(Document& document);

    /// The regions of a simple master: from the names of their elements, "region-before", to those
    /// that flows know them by. Empty for what is no simple master.
    std::map<Core::String, Core::String> regionsOf(const Core::String& simpleMaster) const;

    /// Adds the static contents of the sequences whose pages may have that simple master, through a
    /// complex one too: the exact text by the flow name, in the place of an earlier one. The last
    /// of a name in the document is taken. One whose sequence declared what it needs declares that
    /// itself.
    void collect(const Core::String& simpleMaster,
                 std::map<Core::String, Core::String>& texts) const;

private:
    void readMasters();
    void readSequence(int sequence);
    Core::String markupOf(int staticContent) const;

    Document& document_;
    Fragment masters_;
    std::map<Core::String, std::set<Core::String>> users_; // the complex masters of a simple one
    /// By the master that the sequences name: where the last static content of each name stands.
    std::map<Core::String, std::map<Core::String, int>> contents_;
};
