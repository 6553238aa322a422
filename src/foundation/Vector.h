#pragma once

#include "foundation/Allocator.h"
#include "foundation/String.h"

#include <vector>

namespace Core {

/// The ordered container of value objects in public signatures.
template <typename T>
class Vector : public std::vector<T> {
public:
    using std::vector<T>::vector;
};

/// The string array of public signatures.
using StringArray = std::vector<String, STLAllocator<String>>;

} // namespace Core
