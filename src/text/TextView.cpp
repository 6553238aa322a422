#include "text/TextView.h"

#include "foundation/UnitSearch.h"

namespace {

/// What is not found is -1 there.
std::size_t foundAt(int position) noexcept {
    return position < 0 ? TextView::npos : static_cast<std::size_t>(position);
}

} // namespace

std::size_t TextView::find(wchar_t unit, std::size_t start) const noexcept {
    return foundAt(Core::UnitSearch::forward(plain(), unit, start));
}

std::size_t TextView::find(TextView what, std::size_t start) const noexcept {
    return foundAt(Core::UnitSearch::forward(plain(), what.plain(), start));
}

std::size_t TextView::findEither(wchar_t a, wchar_t b, std::size_t start) const noexcept {
    return foundAt(Core::UnitSearch::forwardEither(plain(), a, b, start));
}

std::size_t TextView::rfind(wchar_t unit, std::size_t start) const noexcept {
    return foundAt(Core::UnitSearch::backward(plain(), unit, start));
}

std::size_t TextView::rfind(TextView what, std::size_t start) const noexcept {
    return foundAt(Core::UnitSearch::backward(plain(), what.plain(), start));
}
