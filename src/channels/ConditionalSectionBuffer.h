#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "trees/DOMBasedBuffer.h"

#include <memory>

class ConditionalSections;
class EditableDocumentBuffer;

/// The sequence of conditions around the caret: sections of which a document shows the first whose
/// condition holds, or else the one that has no condition, the fallback.
///
/// A section is a qfd:conditional-block with a fo:block in it, or for a few words in a line a
/// qfd:conditional-inline with a fo:inline; its condition is the attribute `test`, which is stored
/// as it is given. Sections are counted from 0.
///
/// The document stays as it is until commitChangesToEditableBuffer(). Copies edit the same tree.
/// With the caret in no such sequence there is no tree, and every operation raises a
/// Core::NullPointerException: a host asks first.
class FORME_API ConditionalSectionBuffer : public DOMBasedBuffer {
public:
    enum class Type { Block = 0, Inline = 1 };

    /// Reads the innermost sequence of that type around the caret of the document, which must
    /// outlive this. The part begins behind the start tag, which stays as it is, and ends with the
    /// closing tag. Throws Xml::ParseException where it is not well formed, and
    /// NullPointerException for no document.
    ConditionalSectionBuffer(EditableDocumentBuffer* document, Type type);
    ConditionalSectionBuffer(const ConditionalSectionBuffer& other);
    ConditionalSectionBuffer& operator=(const ConditionalSectionBuffer& other);
    ~ConditionalSectionBuffer() override;

    bool hasFallbackSection() const;
    /// Whether there is more than one section: the last one goes only with its sequence, by
    /// EditableDocumentBuffer::deleteObject() and its kin.
    bool canDeleteSection() const;
    /// Null where there are not so many.
    Xml::Element* getConditionalBlockAtIndex(int index) const;
    /// The first without a condition; null without one.
    Xml::Element* getFallbackSection() const;

    /// Adds a section before all others, with a text that says which it is. Throws Core::Exception,
    /// and changes nothing, for a condition that XML cannot hold.
    void insertConditionalSection(const Core::String& condition);
    /// Adds a section without a condition behind all others, whether or not there is one already.
    void insertFallbackSection();
    /// Deletes the section that now has the index of the one in which the caret was.
    void deleteCurrentConditionalSection();
    void deleteFallbackSection();

    /// Writes the sections back, as one undo step, and puts the caret to the first place in them.
    /// Where nothing has changed the caret is all that does, which ends a run of typing all the
    /// same. Nothing happens where no section is left, nor where no parser would take the result.
    /// Throws Core::Exception where the text has changed there since; nothing is changed then.
    void commitChangesToEditableBuffer() override;

private:
    std::unique_ptr<ConditionalSections> sections_;
};
