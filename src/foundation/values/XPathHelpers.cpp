#include "foundation/values/XPathHelpers.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

using Core::String;
using View = std::wstring_view;

namespace {

/// What the units of a path stand in, as they are read one by one.
class PathReader {
public:
    void read(wchar_t unit) {
        if (quote_)
            quote_ = unit == quote_ ? 0 : quote_;
        else if (unit == L'"' || unit == L'\'')
            quote_ = unit;
        else if (unit == L'[' || unit == L']')
            predicates_ = std::max(predicates_ + (unit == L'[' ? 1 : -1), 0);
        else if (unit == L'(' || unit == L')')
            parentheses_ = std::max(parentheses_ + (unit == L'(' ? 1 : -1), 0);
    }
    bool inPredicate() const { return predicates_ > 0; }
    bool betweenSteps() const { return !quote_ && predicates_ == 0 && parentheses_ == 0; }

private:
    wchar_t quote_ = 0;
    int predicates_ = 0;
    int parentheses_ = 0;
};

/// A path by its steps. That behind "//" keeps one "/" of its own.
struct Path {
    bool isAbsolute = false;
    std::vector<View> steps;

    explicit Path(View text) : isAbsolute(text.starts_with(L'/')) {
        if (isAbsolute)
            text.remove_prefix(1);
        PathReader reader;
        std::size_t start = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            reader.read(text[at]);
            if (text[at] != L'/' || at == start || !reader.betweenSteps())
                continue;
            steps.push_back(text.substr(start, at - start));
            start = at + 1;
        }
        if (start < text.size())
            steps.push_back(text.substr(start));
    }

    String text() const {
        std::wstring text = isAbsolute ? L"/" : L"";
        for (std::size_t i = 0; i < steps.size(); ++i)
            text.append(i > 0 ? L"/" : L"").append(steps[i]);
        return text.empty() ? String(L".") : String(text);
    }
};

/// Whether the step's parent is where the path without it leads.
bool canBeTakenOff(View step) {
    return step != L"." && step != L".." && !step.starts_with(L'/');
}

} // namespace

String XPathHelpers::composeXPath(const String& base, const String& path) {
    if (path.empty() || path == L".")
        return base;
    if (path.startsWith(L"/") || base.empty())
        return path;
    Path result(base.view());
    const Path relative(path.view());
    auto step = relative.steps.begin();
    for (; step != relative.steps.end() && *step == L".."; ++step) {
        if (result.steps.empty() || !canBeTakenOff(result.steps.back()))
            break;
        result.steps.pop_back();
    }
    result.steps.insert(result.steps.end(), step, relative.steps.end());
    return result.text();
}

String XPathHelpers::getRelativeXPath(const String& base, const String& path) {
    if (base == path)
        return L".";
    const Path from(base.view());
    const Path to(path.view());
    if (from.isAbsolute != to.isAbsolute)
        return path;
    const auto [apart, rest] =
        std::mismatch(from.steps.begin(), from.steps.end(), to.steps.begin(), to.steps.end());
    Path result(L"");
    result.steps.assign(static_cast<std::size_t>(from.steps.end() - apart), L"..");
    if (result.steps.empty() && rest != to.steps.end() && rest->starts_with(L'/'))
        result.steps.push_back(L"."); // else "//" would lead away from the root
    result.steps.insert(result.steps.end(), rest, to.steps.end());
    return result.text();
}

String XPathHelpers::removeXPathFilters(const String& path) {
    std::wstring kept;
    PathReader reader;
    for (const wchar_t unit : path.view()) {
        const bool wasInPredicate = reader.inPredicate();
        reader.read(unit);
        if (!wasInPredicate && !reader.inPredicate())
            kept += unit;
    }
    return String(std::move(kept));
}
