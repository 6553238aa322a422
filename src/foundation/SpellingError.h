#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/Vector.h"

namespace Drawing {

/// A word that no dictionary knows.
class FORME_API SpellingError : public Core::Object {
public:
    SpellingError(int start, int end, const Core::StringArray& dictionaries,
                  const Core::StringArray& suggestions);
    ~SpellingError() override;

    /// Where the word stands in the document; the end is excluded.
    int start;
    int end;
    /// The dictionaries that were asked, in this order.
    Core::StringArray dictionaries;
    /// What could be meant, the likeliest first. In the error of a whole document each dictionary's
    /// suggestions are followed by one empty text.
    Core::StringArray suggestions;
};

} // namespace Drawing
