#pragma once

#include "foundation/String.h"

#include <functional>
#include <optional>
#include <set>

class Document;
class XmlText;

/// Caret and pivot. A pivot of -1 says that nothing is to be selected.
struct CaretPlace {
    int caret;
    int pivot;
};

/// What a commit does with the caret.
struct CommitCaret {
    /// Where undoing the commit puts it.
    CaretPlace before;
    /// Asked when the new text stands: where it goes. Without an answer it stays beside what it
    /// stood beside, behind the new text if it stood within the old.
    std::function<std::optional<CaretPlace>()> after;
};

/// What a commit does with prefixes that the new text uses and nothing around it declares.
enum class Prefixes {
    AsTheyAre,
    Declared ///< those of the standard namespaces on the root, in the same step
};

/// All that trees read from a document and do to it; the only code of theirs that knows the
/// document. Positions count 16-bit code units of its text, and -1 means none.
class DocumentSeam {
public:
    /// The document must outlive this. Without one, null, nothing can be asked.
    explicit DocumentSeam(Document* document) : document_(document) {}

    /// From `start` through `end`; empty where that is no range of the text.
    Core::String text(int start, int end) const;
    /// The last offset of the element whose start tag is at the position; -1 if none is.
    int elementEnd(int element) const;
    /// The document type as it stands; empty without one.
    Core::String documentType() const;

    // Declarations of namespaces, in the form xmlns:fo="..."
    std::set<Core::String> declarationsAt(int element) const;
    std::set<Core::String> declarationsAtRoot() const;
    /// Those in force around the position.
    std::set<Core::String> declarationsAround(int position) const;
    /// Those around the position whose prefixes the element's own tag does not declare, each with a
    /// blank before it.
    Core::String declarationsMissingAt(int element, int position) const;

    /// Puts `with` in the place of `start` through `end`, or before `start` where `end` is one
    /// less: one undo step, one notice of a kind. False, and no trace, where no parser would take
    /// the document with it.
    bool replace(int start, int end, const Core::String& with, const CommitCaret& caret,
                 Prefixes prefixes = Prefixes::AsTheyAre);
    /// Only ends the run of typing and sends the caret where a commit would.
    void place(const CommitCaret& caret);

private:
    const XmlText& text() const;
    void exchange(int start, int end, const Core::String& with);
    void moveCaret(const CaretPlace& place);
    void record(const CaretPlace& place);

    Document* document_;
};
