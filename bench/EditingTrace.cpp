#include "EditingTrace.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

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

EditingTrace traceFrom(const nlohmann::json& json) {
    EditingTrace trace;
    trace.endContent = json.at("endContent").get<std::string>();
    for (const auto& transaction : json.at("txns"))
        for (const auto& patch : transaction.at("patches"))
            trace.patches.push_back(
                {patch.at(0).get<int>(), patch.at(1).get<int>(), patch.at(2).get<std::string>()});
    if (!json.value("startContent", "").empty())
        throw std::runtime_error("begins with a text, which no replay does");
    return trace;
}

/// Throws where a patch cannot be replayed.
void check(const EditingTrace& trace) {
    int length = 0;
    for (std::size_t i = 0; i < trace.patches.size(); ++i) {
        const auto& [position, deleted, inserted] = trace.patches[i];
        if (position < 0 || deleted < 0 || deleted > length - position)
            throw std::runtime_error("patch " + std::to_string(i) + " lies outside the text");
        if (std::any_of(inserted.begin(), inserted.end(),
                        [](unsigned char unit) { return unit > 127; }))
            throw std::runtime_error("patch " + std::to_string(i) + " is not in ASCII");
        length += static_cast<int>(inserted.size()) - deleted;
    }
}

} // namespace

EditingTrace readTrace(const std::string& path) {
    const std::string content = unzipped(path);
    try {
        EditingTrace trace = traceFrom(nlohmann::json::parse(content));
        check(trace);
        return trace;
    } catch (const std::exception& failure) {
        throw std::runtime_error(path + ": " + failure.what());
    }
}
