#pragma once

#include <map>
#include <optional>

/// Remembers which element stands around the tags that were asked about. An edit leaves what stands
/// before it as it was, so that the climb from a keystroke to the root finds its way known, however
/// many siblings stand before.
class ElementMemo {
public:
    /// The `<` of the element around the tag at the position, or -1 where it is in none; no answer
    /// where that is not known.
    std::optional<int> find(int tag) const;
    void remember(int tag, int element);
    /// The text has changed from the position on.
    void forgetBehind(int position);

private:
    std::map<int, int> elements_; // by tag
};
