#pragma once

#include "foundation/xml/Node.h"

namespace Xml {

/// An attribute of an element. get_name() is its name without the prefix.
class FORME_API Attribute : public Node {
public:
    Attribute(Name name, Core::String value)
        : Node(Kind::Attribute, std::move(name)), value_(std::move(value)) {}

    Core::String get_value() const { return value_; }
    /// `value` is plain text, which is escaped when it is written. Throws Core::Exception when it
    /// holds a control character that XML does not allow.
    void set_value(const Core::String& value);

private:
    Core::String value_;
};

} // namespace Xml
