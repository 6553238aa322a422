#pragma once

#include "foundation/String.h"

#include <utility>

/// A reference of a complex page master to a simple one.
class ReferenceInfo {
public:
    // What `kind` can be; any other is passed over.
    static constexpr int single = 1;      ///< one page
    static constexpr int repeating = 2;   ///< up to getMaximumRepeat() pages
    static constexpr int conditional = 3; ///< a page of which getCondition() is getConditionValue()

    ReferenceInfo() = default;
    ReferenceInfo(int theKind, Core::String master)
        : kind(theKind), masterName(std::move(master)) {}

    int kind = single;
    Core::String masterName;

    /// A number, or "no-limit".
    Core::String getMaximumRepeat() const { return maximumRepeat_; }
    void setMaximumRepeat(const Core::String& number) { maximumRepeat_ = number; }

    /// The name and value of an attribute, "odd-or-even" and "odd".
    Core::String getCondition() const { return condition_; }
    Core::String getConditionValue() const { return conditionValue_; }
    void setCondition(const Core::String& name, const Core::String& value) {
        condition_ = name;
        conditionValue_ = value;
    }

private:
    Core::String maximumRepeat_;
    Core::String condition_;
    Core::String conditionValue_;
};
