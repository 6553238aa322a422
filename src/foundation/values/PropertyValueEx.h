#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/ConditionalValue.h"

#include <utility>

/// Where the value of an attribute comes from.
enum class PropertyValueType {
    Static = 0,     ///< it stands on the element
    Dynamic = 1,    ///< an expression gives it when the document is produced
    Conditional = 2 ///< the first row whose condition holds gives it
};

/// The value of an attribute of an element. A static one is all there; of any other the element
/// only bears an id, and the template's data say the rest.
class PropertyValueEx {
public:
    PropertyValueEx() = default;
    /// The attribute's name with its prefix, "fo:src", and the element's id.
    PropertyValueEx(Core::String name, Core::String objectId)
        : name_(std::move(name)), objectId_(std::move(objectId)) {}

    Core::String getPropertyName() const { return name_; }
    Core::String getObjectID() const { return objectId_; }
    void setObjectID(const Core::String& id) { objectId_ = id; }

    PropertyValueType getType() const { return type_; }
    void setType(PropertyValueType type) { type_ = type; }
    bool isStatic() const { return type_ == PropertyValueType::Static; }
    bool isDynamic() const { return type_ == PropertyValueType::Dynamic; }

    Core::String getStaticValue() const { return staticValue_; }
    void setStaticValue(const Core::String& value) { staticValue_ = value; }
    Core::String getDynamicValue() const { return dynamicValue_; }
    void setDynamicValue(const Core::String& value) { dynamicValue_ = value; }

    /// The rows of a conditional value, in the order in which their conditions are asked.
    Core::Vector<ConditionalValue> getConditionalValues() const { return rows_; }
    void setConditionalValues(const Core::Vector<ConditionalValue>& rows) { rows_ = rows; }

private:
    Core::String name_;
    Core::String objectId_;
    Core::String staticValue_;
    Core::String dynamicValue_;
    PropertyValueType type_ = PropertyValueType::Static;
    Core::Vector<ConditionalValue> rows_;
};
