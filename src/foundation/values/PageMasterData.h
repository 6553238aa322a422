#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/ReferenceInfo.h"

#include <utility>

/// A page master as a host names it: a simple one by its name, a complex one with its references in
/// their order.
class PageMasterData {
public:
    /// A simple one.
    explicit PageMasterData(Core::String name = Core::String()) : name_(std::move(name)) {}
    /// A complex one.
    PageMasterData(Core::String name, Core::Vector<ReferenceInfo> references)
        : name_(std::move(name)), references_(std::move(references)), isSimple_(false) {}

    bool isSimplePageMaster() const { return isSimple_; }
    Core::String getName() const { return name_; }
    /// Empty for a simple one.
    Core::Vector<ReferenceInfo> getReferences() const { return references_; }

private:
    Core::String name_;
    Core::Vector<ReferenceInfo> references_;
    bool isSimple_ = true;
};
