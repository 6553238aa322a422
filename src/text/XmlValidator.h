#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "text/TextView.h"

/// A lexical check of a whole text: every tag, quote, comment and CDATA section is closed, and no
/// `<` stands in a value. Names are not matched. The text must outlive the validator.
class FORME_API XmlValidator {
public:
    explicit XmlValidator(const Core::String& text) : text_(text) {}

    /// An empty text is valid.
    bool validate() const;

    /// Whether a text is valid and this check sees each piece of markup end where the units do
    /// that a walk takes it for, as it does in nearly every text. Whatever is put between two units
    /// of such a text then needs to be looked at only by itself.
    static bool isRegular(TextView text);

private:
    const Core::String& text_;
};
