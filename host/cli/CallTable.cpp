#include "CallTable.h"

#include "calls/Calls.h"

#include <iterator>
#include <stdexcept>

namespace {

/// The rooms' tables, one behind the other.
std::vector<Operation> everyTable() {
    std::vector<Operation> all;
    for (const Calls::Table table : Calls::served()) {
        std::vector<Operation> rows = table();
        std::move(rows.begin(), rows.end(), std::back_inserter(all));
    }
    return all;
}

/// A number itself, of anything else what it is.
std::string shown(const Json& value) {
    if (value.is_number() || value.is_null())
        return value.dump();
    return (value.is_structured() ? "an " : "a ") + std::string(value.type_name());
}

/// What keeps the request from fitting the only operation of its name.
std::string mismatch(const Operation& operation, const Json& request) {
    const std::size_t given = request.size() - 1;
    if (given != operation.parameters.size())
        return operation.signature() +
               ": arguments expected: " + std::to_string(operation.parameters.size()) +
               ", given: " + std::to_string(given);
    for (std::size_t i = 0; i < given; ++i) {
        const Parameter& parameter = operation.parameters[i];
        if (!parameter.matches(request[i + 1]))
            return operation.signature() + ": argument " + std::to_string(i + 1) + " (" +
                   parameter.name + "): " + parameter.type + " expected, " + shown(request[i + 1]) +
                   " given";
    }
    return {};
}

} // namespace

bool Operation::accepts(const Json& request) const {
    if (request.size() != parameters.size() + 1)
        return false;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (!parameters[i].matches(request[i + 1]))
            return false;
    return true;
}

std::string Operation::signature() const {
    std::string text = name + "(";
    for (const Parameter& parameter : parameters) {
        if (&parameter != &parameters.front())
            text += ", ";
        text += parameter.name + ": " + parameter.type;
    }
    return text + ")";
}

const std::vector<Operation>& callTable() {
    static const std::vector<Operation> table = everyTable();
    return table;
}

const Operation& operationFor(const Json& request) {
    if (!request.is_array() || request.empty() || !request[0].is_string())
        throw std::invalid_argument(
            "a request is an array that begins with an operation's name, as in [\"undo\"]");
    const std::string& name = request[0].get_ref<const std::string&>();
    std::vector<const Operation*> candidates;
    for (const Operation& operation : callTable()) {
        if (operation.name != name)
            continue;
        if (operation.accepts(request))
            return operation;
        candidates.push_back(&operation);
    }
    if (candidates.empty())
        throw std::invalid_argument("unknown operation \"" + name + "\"");
    if (candidates.size() == 1)
        throw std::invalid_argument(mismatch(*candidates.front(), request));
    std::string message = "the arguments fit none of";
    for (const Operation* candidate : candidates)
        message += (candidate == candidates.front() ? " " : ", ") + candidate->signature();
    throw std::invalid_argument(message);
}
