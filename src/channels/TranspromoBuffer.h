#pragma once

#include "channels/TranspromoInfo.h"
#include "foundation/Vector.h"
#include "trees/DOMBasedBuffer.h"

#include <memory>

class EditableDocumentBuffer;
class PromoPlaces;

/// The promo places of the page sequence that holds the caret: content that goes on its pages by
/// rule. A host reads the list, gives another one back and commits; the caret must stay in the
/// sequence meanwhile:
///
///     const SmartPtr<TranspromoBuffer> promo(new TranspromoBuffer(document, L"Letter"));
///     Core::Vector<TranspromoInfo> places = promo->getTranspromoList();
///     places.pop_back();
///     promo->overrideTranspromoList(places);
///     promo->commitChangesToEditableBuffer();
///
/// Regions are those of the page master of that name. Source and keyword may be values that are
/// computed, as PropertyValueHandler tells it. Where the caret is in no fo:page-sequence or
/// qfd:page-sequence-repeat there is no tree, and the list's operations raise
/// Core::NullPointerException.
class FORME_API TranspromoBuffer : public DOMBasedBuffer {
public:
    /// The document must not be null. Raises an Xml::ParseException, with line and column in the
    /// document, where a place is not well formed.
    TranspromoBuffer(EditableDocumentBuffer* document, const Core::String& master);
    /// A copy edits the same tree. When one of the two has committed, the other cannot any more.
    TranspromoBuffer(const TranspromoBuffer& other);
    TranspromoBuffer& operator=(const TranspromoBuffer& other);
    ~TranspromoBuffer() override;

    /// In the order of the document. A region that the master does not have is None. Values that
    /// are computed are those that the document has now.
    Core::Vector<TranspromoInfo> getTranspromoList() const;
    /// Puts these in the place of all. A static source is written, one of another type only as a
    /// value that is computed; a region that the master does not have is left out. Values that are
    /// not all static are kept under the source's object id; without one, or where another place
    /// or an element elsewhere in the document has it, under a new one. A text with a character
    /// that XML has no way to write raises a Core::Exception, and the tree stays as it was.
    void overrideTranspromoList(const Core::Vector<TranspromoInfo>& places);

    /// Writes the places to the front of the sequence that holds the caret now, in the place of
    /// those that it has, and their computed values to the template's data. One undo step, which
    /// belongs to a run of typing if one is under way. Without a change nothing happens, nor where
    /// the caret is in no sequence, nor, in silence, where the document may not be edited or no
    /// parser would take the result. Raises a Core::Exception, and changes nothing, where the
    /// places of the sequence are not those that were read, and an Xml::ParseException where the
    /// template's data do not parse.
    void commitChangesToEditableBuffer() override;
    /// Removes the promo places of the sequence or repeat that begins there; nothing where none
    /// does. One undo step.
    void deleteExistingTranspromo(int sequencePosition);

    /// "region-body" and so on; empty for None.
    static Core::String getRegionTypeAsString(Xml::PageRegionConstraint region);
    /// None for any other text.
    static Xml::PageRegionConstraint getRegionType(const Core::String& text);

private:
    std::unique_ptr<PromoPlaces> places_;
};
