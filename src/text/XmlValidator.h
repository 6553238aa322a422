#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// A lexical check of a whole text: every tag, quote, comment and CDATA section is closed, and no
/// `<` stands in a value. Names are not matched. The text must outlive the validator.
class FORME_API XmlValidator {
public:
    explicit XmlValidator(const Core::String& text) : text_(text) {}

    /// An empty text is valid.
    bool validate() const;

private:
    const Core::String& text_;
};
