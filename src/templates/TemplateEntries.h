#pragma once

#include "foundation/values/QFDAttributeCollection.h"

#include <list>
#include <map>
#include <utility>
#include <vector>

/// The entries of a template's data, with those of one attribute of an object at hand.
class TemplateEntries {
public:
    TemplateEntries() = default;
    explicit TemplateEntries(const QFDAttributeCollection& entries);
    // The index knows places in the list, which move along but are not copied.
    TemplateEntries(TemplateEntries&&) = default;
    TemplateEntries(const TemplateEntries&) = delete;
    TemplateEntries& operator=(const TemplateEntries&) = delete;

    QFDAttributeCollection all() const;
    /// Those of an attribute, in their order.
    std::vector<QFDAttribute> of(const Core::String& object, const Core::String& attribute) const;

    // As QFDAttributeCollection does it

    void add(const QFDAttribute& entry);
    void set(const QFDAttribute& entry);
    void remove(const Core::String& object, const Core::String& attribute);

private:
    using Key = std::pair<Core::String, Core::String>;
    using Place = std::list<QFDAttribute>::iterator;

    std::list<QFDAttribute> entries_;
    std::map<Key, std::vector<Place>> places_;
};
