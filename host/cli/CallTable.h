#pragma once

#include "Wire.h"

#include <functional>
#include <string>
#include <vector>

class Session;

/// One argument of an operation.
struct Parameter {
    std::string name;
    std::string type;
    bool (*matches)(const Json& value);
};

/// One operation that a request can name. Overloads are several operations of one name.
struct Operation {
    std::string name;
    std::vector<Parameter> parameters;
    std::string result;
    /// Takes the request, whose arguments follow its name and fit the parameters.
    std::function<Json(Session& session, const Json& request)> invoke;

    /// Whether number and kind of the request's arguments fit.
    bool accepts(const Json& request) const;
    /// "setCaretPos(extend: bool, position: int)"
    std::string signature() const;
};

/// Every operation, in the order in which a host meets them.
const std::vector<Operation>& callTable();

/// The operation that a request asks for. Throws std::invalid_argument saying what is wrong with
/// it: no array, no such operation, which argument does not fit and what was expected.
const Operation& operationFor(const Json& request);
