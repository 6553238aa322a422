#include "EditingTrace.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

std::string unzipped(const std::string& path) {
    const std::string command = "gzip -dc '" + path + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
    std::string content;
    std::array<char, 65536> chunk{};
    while (const std::size_t count =
               pipe ? std::fread(chunk.data(), 1, chunk.size(), pipe.get()) : 0)
        content.append(chunk.data(), count);
    if (content.empty())
        throw std::runtime_error(path + ": cannot be read");
    return content;
}

} // namespace

EditingTrace readTrace(const std::string& path) {
    const auto json = nlohmann::json::parse(unzipped(path));
    EditingTrace trace;
    trace.endContent = json.at("endContent").get<std::string>();
    for (const auto& transaction : json.at("txns"))
        for (const auto& patch : transaction.at("patches"))
            trace.patches.push_back(
                {patch.at(0).get<int>(), patch.at(1).get<int>(), patch.at(2).get<std::string>()});
    return trace;
}
