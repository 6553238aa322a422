// Makes a test of each scenario in the files beside this one.

#include "scenarios/Scenario.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace {

class ScenarioTest : public testing::Test {
public:
    explicit ScenarioTest(Scenario scenario) : scenario_(std::move(scenario)) {}

    void TestBody() override {
        const std::string failure = runScenario(scenario_);
        EXPECT_TRUE(failure.empty()) << scenario_.title << "\n" << failure;
    }

private:
    Scenario scenario_;
};

std::string testName(const Scenario& scenario) {
    std::string name = "L";
    name += std::to_string(scenario.line) + "_" + scenario.title;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char ch) { return !std::isalnum(ch); }, '_');
    return name;
}

bool registerScenarios() {
    for (const auto& file : std::filesystem::directory_iterator(scenariosFolder())) {
        if (file.path().extension() != ".scn")
            continue;
        for (const Scenario& scenario : readScenarios(file.path()))
            testing::RegisterTest(("Scenario_" + file.path().stem().string()).c_str(),
                                  testName(scenario).c_str(), nullptr, nullptr, file.path().c_str(),
                                  scenario.line, [scenario] { return new ScenarioTest(scenario); });
    }
    return true;
}

const bool registered = registerScenarios();

} // namespace
