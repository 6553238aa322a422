#include "support/Formatter.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <regex>

#include <unistd.h>

bool hasFormatter() {
    return std::system("command -v fop >/dev/null 2>&1") == 0;
}

std::set<std::string> formatterErrorsIn(const std::filesystem::path& document) {
    static const std::regex place("edited-|[0-9:]+");
    const std::string command = "fop -q -fo '" + document.string() +
                                "' -at application/X-fop-areatree '" + document.string() +
                                ".at' 2>&1";
    FILE* output = popen(command.c_str(), "r");
    std::set<std::string> errors;
    std::array<char, 4096> line{};
    while (std::fgets(line.data(), line.size(), output)) {
        const std::string text = line.data();
        if (text.find("ERROR") != std::string::npos || text.find("SEVERE") != std::string::npos ||
            text.find("xception") != std::string::npos)
            errors.insert(std::regex_replace(text, place, ""));
    }
    if (pclose(output) != 0)
        errors.insert("it is refused");
    return errors;
}

std::filesystem::path newFolder(const std::string& name) {
    const auto folder =
        std::filesystem::temp_directory_path() / (name + "-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    return folder;
}
