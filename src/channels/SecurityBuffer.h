#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/values/PropertyCollection.h"

#include <memory>

class EditableDocumentBuffer;
class ProtectionSettings;

/// What a document says of who may do what with it: the attributes of its root element whose names
/// begin with "qf:protect-". "qf:protect-editing" with "true", in capitals or not, refuses editing;
/// see EditableDocumentBuffer::isProtectedFromEditing(). The others are the host's own and only
/// carried.
///
/// Only a document whose root is "qfd:document" or "fo:root" has settings. In any other there are
/// none, setting them has no effect, and a commit does nothing.
class FORME_API SecurityBuffer : public Core::Object {
public:
    /// Reads the settings of the document, which must outlive this. Throws
    /// Core::NullPointerException for none.
    explicit SecurityBuffer(EditableDocumentBuffer* document);
    ~SecurityBuffer() override;

    SecurityBuffer(const SecurityBuffer&) = delete;
    SecurityBuffer& operator=(const SecurityBuffer&) = delete;

    bool isProtectedFromEditing() const;
    /// With false the attribute goes, whatever it says, with the white space before it and nothing
    /// else.
    void setProtectedFromEditing(bool isProtected);

    /// All settings in their order, with values as they stand in the text.
    PropertyCollection getSettings() const;
    /// Takes these in the place of all. What has another name than a setting's is left out. Throws
    /// Core::Exception, and takes none, where XML has no way to write a name or a value.
    void setSettings(const PropertyCollection& settings);

    /// Writes the settings back, as one undo step, into a protected document, too. Nothing happens
    /// when they are as they were read. Attributes that stay keep their places and spelling. Throws
    /// Core::Exception, and changes nothing, where the root's start tag is no longer the one that
    /// was read.
    void commitChangesToEditableBuffer();

private:
    std::unique_ptr<ProtectionSettings> settings_;
};
