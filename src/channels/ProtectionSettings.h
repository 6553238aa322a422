#pragma once

#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

/// The settings of a document's protection, edited apart from it and written back into the root's
/// start tag.
class ProtectionSettings {
public:
    explicit ProtectionSettings(Document& document);

    bool refuseEditing() const;
    void setRefuseEditing(bool refuse);

    PropertyCollection all() const { return settings_; }
    void replace(const PropertyCollection& settings);

    /// Throws Core::Exception where the start tag is no longer the one that was read.
    void commit();

private:
    void read();
    Core::String startTag() const;

    Document& document_;
    PropertyCollection settings_;
    Core::String source_; // the start tag that was read; empty where nothing bears settings
};
