#pragma once

#include "foundation/String.h"

#include <utility>

namespace Xml {

/// The rule by which a promo place is filled: content goes there that has the keyword.
class TPRule {
public:
    explicit TPRule(Core::String keyword) : keyword_(std::move(keyword)) {}

    Core::String getKeyword() const { return keyword_; }

private:
    Core::String keyword_;
};

} // namespace Xml
