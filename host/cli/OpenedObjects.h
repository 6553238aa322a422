#pragma once

#include <map>
#include <memory>
#include <string>

/// The objects that requests have opened, one under each qualifier: "table" in "table.open" and
/// "table.insertRow". The table of a qualifier's requests knows of which class its object is.
class OpenedObjects {
public:
    /// Keeps the object, in the place of one that was open.
    void open(const std::string& qualifier, std::shared_ptr<void> object);
    /// Both throw std::invalid_argument, saying how to open one, when none is open.
    void close(const std::string& qualifier);
    void* at(const std::string& qualifier) const;

private:
    std::map<std::string, std::shared_ptr<void>> objects_;
};
