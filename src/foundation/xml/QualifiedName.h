#pragma once

#include "foundation/String.h"

namespace Xml {

/// A name as it is written: a prefix, which may be empty, and a local part.
struct QualifiedName {
    Core::String prefix;
    Core::String local;

    /// Takes a name apart at its first colon. A colon at either end belongs to the local part.
    static QualifiedName split(const Core::String& name);

    /// The name that a caller gave. A prefix within `name` wins over `prefix`. Throws
    /// Core::Exception when the result could not be written as an XML name.
    static QualifiedName checked(const Core::String& name, const Core::String& prefix);

    bool declaresNamespace() const;
};

/// Throws Core::Exception when `text` holds a character that XML has no way to write.
void requireXmlText(const Core::String& text);

} // namespace Xml
