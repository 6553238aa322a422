#pragma once

#include "foundation/Api.h"
#include "foundation/Vector.h"
#include "foundation/values/QFDAttribute.h"

/// The entries of a template's data, in their order.
class FORME_API QFDAttributeCollection {
public:
    Core::Vector<QFDAttribute> getAttributeList() const { return entries_; }
    void setAttributes(const Core::Vector<QFDAttribute>& entries) { entries_ = entries; }

    /// Appends them, whatever is there.
    void addAttributes(const Core::Vector<QFDAttribute>& entries);
    void addAttribute(const QFDAttribute& entry) { entries_.push_back(entry); }

    /// Puts the entry in the place of the first of its object id and attribute name, and drops the
    /// others of these; without one it is appended.
    void setAttribute(const QFDAttribute& entry);
    /// Drops every entry of the object id and attribute name of this one.
    void removeAttribute(const QFDAttribute& entry);

    bool operator==(const QFDAttributeCollection&) const = default;

private:
    Core::Vector<QFDAttribute> entries_;
};
