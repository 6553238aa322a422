#pragma once

#include "foundation/String.h"

#include <utility>

/// An entry of a template's data: what gives an attribute of an element its value when the document
/// is produced. Entries of one object id and attribute name with conditions are the rows of one
/// conditional value.
class QFDAttribute {
public:
    QFDAttribute() = default;
    /// The third text has no meaning and is not kept.
    QFDAttribute(Core::String objectId, Core::String attributeName, const Core::String&,
                 Core::String condition, Core::String value, Core::String dynamicValue)
        : objectId_(std::move(objectId)), attributeName_(std::move(attributeName)),
          condition_(std::move(condition)), value_(std::move(value)),
          dynamicValue_(std::move(dynamicValue)) {}

    /// The id of the element.
    Core::String getObjectID() const { return objectId_; }
    void setObjectID(const Core::String& id) { objectId_ = id; }

    /// With its prefix, "fo:src".
    Core::String getAttributeName() const { return attributeName_; }
    void setAttributeName(const Core::String& name) { attributeName_ = name; }

    Core::String getCondition() const { return condition_; }
    void setCondition(const Core::String& condition) { condition_ = condition; }

    Core::String getValue() const { return value_; }
    void setValue(const Core::String& value) { value_ = value; }

    /// An expression.
    Core::String getDynamicValue() const { return dynamicValue_; }
    void setDynamicValue(const Core::String& value) { dynamicValue_ = value; }

    bool operator==(const QFDAttribute&) const = default;

private:
    Core::String objectId_;
    Core::String attributeName_;
    Core::String condition_;
    Core::String value_;
    Core::String dynamicValue_;
};
