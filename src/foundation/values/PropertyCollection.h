#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/EditableProperty.h"

#include <cstddef>
#include <map>

/// The attributes of one element: an ordered set of properties with unique names. A name is
/// compared as it stands, prefix included. A property with an empty name is never taken in.
///
/// A PropertyCollection is a value; a copy is independent of its original.
class FORME_API PropertyCollection {
public:
    /// Appends the property. If one of that name is there, `replace` gives it the new value in its
    /// place; without `replace` it stays as it is.
    void addProperty(const EditableProperty& property, bool replace);

    /// Gives a property its new value in its place, or appends it. The second argument has no
    /// effect.
    void setProperty(const EditableProperty& property, bool replace = true);

    /// Sets each of the other collection's properties, in its order: new values win.
    void addProperties(const PropertyCollection& properties);

    /// The property of that name, valid until the next change of this collection; null if none.
    /// Its name must not be changed through the pointer.
    EditableProperty* getProperty(const Core::String& name);

    /// The value of the property of that name; empty if none.
    Core::String getPropertyValue(const Core::String& name) const;

    bool containsProperty(const Core::String& name) const;

    /// Removes the property of that name, if there is one.
    void removePropertyByName(const Core::String& name);

    bool isEmpty() const noexcept { return properties_.empty(); }

    /// The properties in their order.
    Core::Vector<EditableProperty> getPropertyList() const { return properties_; }

    /// All as attribute text for a start tag: `name="value"`, separated by single blanks; empty if
    /// there are none. In a value `"`, `<` and an `&` that opens no entity are written as entities;
    /// everything else stays, so a value read from a tag comes out as it stood there.
    Core::String getPropertiesString() const;

    /// Puts "prefix:" before every name without a prefix; an empty `prefix` changes nothing. Where
    /// the new name is taken, the property that bore it keeps its place and value, and the one
    /// without a prefix goes: an explicit name says more than an implied one.
    void setNamespaceForProperties(const Core::String& prefix);

    /// Takes "prefix:" off every name that has it; an empty `prefix` changes nothing. Where the new
    /// name is taken, the property that bore it keeps its place and value, and the other goes.
    void removeNamespaceForPropertiesWith(const Core::String& prefix);

    /// Keeps only the properties that EditableProperty::isFormatting() names.
    void removeNonFormattingProperties();

private:
    const EditableProperty* find(const Core::String& name) const;
    void findPlaces();

    Core::Vector<EditableProperty> properties_;
    std::map<Core::String, std::size_t> places_; // of each name, once there are many
};
