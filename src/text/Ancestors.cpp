#include "text/Ancestors.h"

#include "foundation/String.h"
#include "text/SpaceProperties.h"

#include <algorithm>
#include <limits>

using XmlScan::Text;

namespace {

constexpr Ancestors::Marks otherNames = Ancestors::Marks{1} << SpaceProperties::Count;
constexpr std::size_t firstName = SpaceProperties::Count + 1;
constexpr std::size_t mostNames = 64 - firstName;

/// What is longer is no name of an element but a torn tag.
constexpr std::size_t longestName = 64;

} // namespace

const Ancestors::Level* Ancestors::levelOf(Text text, int element,
                                           const std::function<int(int)>& around) {
    if (!last_ || last_->element != element) {
        last_ = nullptr;
        last_ = findLevel(text, element, around);
    }
    return last_;
}

const Ancestors::Level* Ancestors::findLevel(Text text, int element,
                                             const std::function<int(int)>& around) {
    if (const Level* const known = find(element))
        return known;
    const bool isFull = levels_.size() >= limit_;
    if (isFull)
        levels_.clear();
    if (levels_.empty())
        names_.clear();
    std::vector<int> inner;
    const Level* level = nullptr;
    for (int at = element; at >= 0 && !level; level = find(at)) {
        inner.push_back(at);
        at = around(at);
    }
    for (auto next = inner.rbegin(); next != inner.rend(); ++next)
        level = add(text, *next, level);
    // So many more are climbed over before all is forgotten that a deep place is worth it.
    if (isFull || levels_.size() > limit_)
        limit_ = std::max(leastLimit, 2 * levels_.size());
    return level;
}

const Ancestors::Level* Ancestors::find(int element) const {
    if (last_ && last_->element == element)
        return last_;
    const auto known = levels_.find(element);
    return known == levels_.end() ? nullptr : &known->second;
}

/// The jumps are those of a skew binary number, so that from any level on there are few to any
/// other.
const Ancestors::Level* Ancestors::add(Text text, int element, const Level* parent) {
    const Text name = XmlScan::tagName(text, element);
    const int nameEnd = element + static_cast<int>(name.size()) + 1;
    Level level{element, std::max(XmlScan::tagEnd(text, element), nameEnd),
                0,       newMarkOf(name),
                0,       0,
                parent,  parent};
    level.own = level.name | marksOfTag(text, element, name);
    if (name.empty())
        level.end = std::numeric_limits<int>::max();
    level.passed = level.own;
    if (parent) {
        level.depth = parent->depth + 1;
        const Level* const jump = parent->jump;
        if (jump && jump->jump && parent->depth - jump->depth == jump->depth - jump->jump->depth) {
            level.passed |= parent->passed | jump->passed;
            level.jump = jump->jump;
        }
    }
    return &levels_.insert_or_assign(element, level).first->second;
}

Ancestors::Marks Ancestors::marksOfTag(Text text, int element, Text name) {
    Marks marks = 0;
    const SpaceProperties::Values values = SpaceProperties::setBy(text, element, name);
    for (std::size_t property = 0; property < values.size(); ++property)
        if (values[property])
            marks |= markOf(property);
    for (int at = XmlScan::nextAttribute(text, element + 1); at >= 0;
         at = XmlScan::nextAttribute(text, at))
        if (const Text attribute = XmlScan::attributeName(text, at);
            attribute.starts_with(L"xmlns:"))
            marks |= newMarkOf(Core::String(attribute).toLower());
    return marks;
}

Ancestors::Marks Ancestors::newMarkOf(Text name) {
    if (markOf(name) == 0 && name.size() <= longestName && names_.size() < mostNames)
        names_.emplace_back(name);
    return markOf(name);
}

Ancestors::Marks Ancestors::markOf(Text name) const {
    const auto known =
        std::find_if(names_.begin(), names_.end(),
                     [name](const std::wstring& other) { return Text(other) == name; });
    if (known != names_.end())
        return Marks{1} << (firstName + static_cast<std::size_t>(known - names_.begin()));
    return names_.size() == mostNames || name.size() > longestName ? otherNames : 0;
}

bool Ancestors::isOfOneName(Marks mark) {
    return mark != 0 && mark != otherNames;
}

const Ancestors::Level* Ancestors::nearest(const Level* level, Marks marks) {
    while (level && (level->own & marks) == 0)
        level = (level->passed & marks) == 0 ? level->jump : level->parent;
    return level;
}

const Ancestors::Level* Ancestors::outermost(const Level* level, int first, Marks marks) {
    const Level* found = nullptr; // the furthest stretch out in which there is one begins with it
    bool isStretch = false;
    while (level && level->element >= first) {
        const bool jumps = level->jump && level->jump->element >= first;
        if (((jumps ? level->passed : level->own) & marks) != 0) {
            found = level;
            isStretch = jumps;
        }
        level = jumps ? level->jump : level->parent;
    }
    // A stretch is a level and two stretches behind each other, or that level alone.
    while (isStretch && found->jump != found->parent) {
        const Level* const inner = found->parent;
        if ((inner->jump->passed & marks) != 0)
            found = inner->jump;
        else if ((inner->passed & marks) != 0)
            found = inner;
        else
            break;
    }
    return found;
}

bool Ancestors::isAround(int element, const Level* level) {
    while (level && level->element > element)
        level = level->jump && level->jump->element >= element ? level->jump : level->parent;
    return level && level->element == element;
}

/// What changes in a tag leaves its place, but not what it says.
void Ancestors::forgetBehind(int position) noexcept {
    if (last_ && last_->end >= position)
        last_ = nullptr;
    levels_.erase(levels_.upper_bound(position), levels_.end());
    while (!levels_.empty() && std::prev(levels_.end())->second.end >= position)
        levels_.erase(std::prev(levels_.end()));
}
