#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"
#include "foundation/xml/Element.h"

#include <memory>

class Document;
class Fragment;

/// A part of the document that is edited as a tree: it is cut out of the text and parsed when the
/// object is made, and written back as one undo step by commitChangesToEditableBuffer(). What was
/// not committed when the object goes is lost and has left no trace.
///
/// Such a buffer is made for one dialog or command. It does not own the document buffer, which must
/// outlive it, and a copy edits the same tree. Elements are given as plain pointers, valid until
/// they are removed or the tree is read anew.
///
/// Text that is not well formed raises an Xml::ParseException when it is read. A commit on a text
/// that is no longer the one that was read raises a Core::Exception and loses nothing.
class FORME_API DOMBasedBuffer : public Core::Object {
public:
    ~DOMBasedBuffer() override;

    /// The offsets of the part's first and last unit in the document; -1 while there is none.
    int getDocumentBufferStart() const;
    int getDocumentBufferEnd() const;

    /// Writes the tree back over the part that it was read from.
    virtual void commitChangesToEditableBuffer() = 0;

    /// The attribute that Xml::Element::get_attribute() finds; empty where there is none.
    static Core::String getAttributeValue(const Xml::Element* element, const Core::String& name,
                                          const Core::String& prefix);
    /// The first child element of that name, which is given without prefix; null without one.
    static Xml::Element* getElementByName(const Xml::Element* parent, const Core::String& name);

    /// The attributes in their order; one without a prefix gets its element's.
    static PropertyCollection getElementProperties(const Xml::Element* element);
    /// Gives the element these attributes and no others. One with the element's own prefix is
    /// written without.
    static void setElementProperties(Xml::Element* element, const PropertyCollection& properties);

protected:
    explicit DOMBasedBuffer(Document& document);
    /// Of a text that belongs to no document.
    DOMBasedBuffer();
    DOMBasedBuffer(const DOMBasedBuffer& other);
    DOMBasedBuffer& operator=(const DOMBasedBuffer& other);

    /// The attributes of every element of the tree written as shorthands where they say the same,
    /// with `removeDefaults` without those that have their initial values; attributes can change
    /// their order. Without a tree, here and below, raises Core::NullPointerException.
    virtual void collapseShorthands(bool removeDefaults);
    /// The same for the element and all within it; nothing for null.
    virtual void collapseElementAttributes(Xml::Element* element, bool removeDefaults);
    /// Shorthands written out as the single attributes that they stand for.
    virtual void expandShorthands();
    virtual void expandElementAttributes(Xml::Element* element);

    /// Reads the element at the position with its shorthands written out. What it was read as, to
    /// which a commit compares, is its collapsed form.
    void readExpanded(int element);
    /// What collapseShorthands() would make of the tree, which stays as it is, as text.
    Core::String collapsedText(bool removeDefaults);

    Fragment& fragment() { return *fragment_; }
    const Fragment& fragment() const { return *fragment_; }

private:
    std::unique_ptr<Fragment> fragment_;
};
