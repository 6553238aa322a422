// What counts as a text whose markup is complete.

#include "checks/Check.h"

namespace {

constexpr const wchar_t* accepted = L"accepted";
constexpr const wchar_t* refused = L"refused";

constexpr Check validatorChecks[] = {
    {L"nothing", L"", {}, accepted},
    {L"plain text", L"a & b", {}, accepted},
    {L"an element", L"<a>b</a>", {}, accepted},
    {L"names are not matched", L"<a>b</c>", {}, accepted},
    {L"a tag without an end", L"<a>b</a", {}, refused},
    {L"a tag in a tag", L"<a<b>", {}, refused},
    {L"values in either quotes", L"<a b=\"c\" d='e'/>", {}, accepted},
    {L"the other quote in a value", L"<a b=\"'\" c='\"'/>", {}, accepted},
    {L"a value may hold what ends a tag", L"<a b=\">\"/>", {}, accepted},
    {L"a value may not hold what begins one", L"<a b=\"<\"/>", {}, refused},
    {L"a value without an end", L"<a b=\"c>", {}, refused},
    {L"a quote without a name", L"<a \"b\">", {}, refused},
    {L"a comment may hold markup", L"<!-- <a b=\" -->", {}, accepted},
    {L"a comment without an end", L"<!-- a --", {}, refused},
    {L"a section may hold markup", L"<![CDATA[ <a ]] > ]]>", {}, accepted},
    {L"a section without an end", L"<![CDATA[ a ]]", {}, refused},
};

} // namespace

std::span<const Check> Checks::ofXmlValidator() {
    return validatorChecks;
}
