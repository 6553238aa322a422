#include "foundation/SpellingError.h"

namespace Drawing {

SpellingError::SpellingError(int start, int end, const Core::StringArray& dictionaries,
                             const Core::StringArray& suggestions)
    : start(start), end(end), dictionaries(dictionaries), suggestions(suggestions) {}

SpellingError::~SpellingError() = default;

} // namespace Drawing
