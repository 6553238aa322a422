#include "OpenedObjects.h"

#include <stdexcept>
#include <utility>

namespace {

[[noreturn]] void refuse(const std::string& qualifier) {
    throw std::invalid_argument("no \"" + qualifier + "\" is open; \"" + qualifier +
                                ".open\" opens one");
}

} // namespace

void OpenedObjects::open(const std::string& qualifier, std::shared_ptr<void> object) {
    objects_[qualifier] = std::move(object);
}

void OpenedObjects::close(const std::string& qualifier) {
    if (objects_.erase(qualifier) == 0)
        refuse(qualifier);
}

void* OpenedObjects::at(const std::string& qualifier) const {
    const auto found = objects_.find(qualifier);
    if (found == objects_.end())
        refuse(qualifier);
    return found->second.get();
}
