#include "foundation/SpellChecker.h"

namespace Drawing {

SpellChecker::~SpellChecker() = default;

} // namespace Drawing
