#pragma once

class Document;
class NearStops;

/// What was done to an element that a deletion had emptied, and where offsets of the text before
/// are now: empty inlines were removed, and then the element that remained got its placeholder.
struct PlaceholderRepair {
    int removedStart = 0;  ///< the stretch that went, its end excluded
    int removedEnd = 0;    ///< equal to its start if none did
    int insertedStart = 0; ///< the stretch that was put in behind that, its end excluded
    int insertedEnd = 0;   ///< equal to its start if none was
    int placeholder = -1;  ///< the placeholder in that stretch

    bool removedInline() const { return removedStart < removedEnd; }
    bool insertedPlaceholder() const { return placeholder >= 0; }
    bool done() const { return removedInline() || insertedPlaceholder(); }

    /// Takes up that an inline around what went before was removed, from `start` to `end`.
    void addRemoval(int start, int end);

    /// Where an offset is now. One at the insertion is behind what was put in.
    int map(int offset) const;
};

/// The placeholder, a non-breaking space that keeps a place for the caret in what shows nothing
/// else. Commands put it in where they empty an element and take it away with what is typed there.
namespace Placeholders {

/// Whether the element's tags hold nothing but white space and editable elements of which the same
/// is true. A placeholder is something.
bool isVoid(const Document& document, int element);
/// Whether the element has but one stop before its end.
bool holdsOneUnit(const Document& document, int element);
bool holdsOneUnit(const Document& document, int element, NearStops& stops);
/// Whether it is the inline of a footnote, its mark, which stays when it shows nothing: without it
/// a footnote would have no place in the text, and what is typed in the place of the mark would go
/// into the note.
bool isFootnoteMark(const Document& document, int element);
/// Whether one placeholder touches the position and is all that stands between two line breaks.
/// `isCharacter` tells that it is U+00A0 and no entity, `follows` that it stands at the position
/// and not before; otherwise they mean nothing.
bool isBetweenBreaks(const Document& document, int position, bool& isCharacter, bool& follows);

/// Puts a placeholder into the element at the position if nothing shows in it. With
/// `removeEmptyInlines` an inline goes instead, and the same is asked of its parent. Tells where
/// offsets are now. One undo step.
PlaceholderRepair repair(Document& document, int position, bool removeEmptyInlines);
/// The same, answering only whether the text changed.
bool repairEmptied(Document& document, int position, bool removeEmptyInlines);
/// Puts a placeholder before the closing tag of the element around the position if nothing shows in
/// it.
void fillAtEnd(Document& document, int position);
/// Repairs what held an inline that was removed at the position, and if that was all of a line, the
/// line gets a placeholder. Answers where the caret belongs.
int repairLine(Document& document, int position);

} // namespace Placeholders

/// Whether one element after another is void, asked from the inside out: what is around one that is
/// not is not either, as long as the text is the same.
class VoidElements {
public:
    explicit VoidElements(const Document& document) : document_(document) {}

    /// As Placeholders::isVoid.
    bool contains(int element);

private:
    const Document& document_;
    unsigned version_ = 0; // of the text that the rest is known of
    int full_ = -1;        // the element asked about last, if it is not void
};
