#pragma once

#include "text/XmlScan.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// Finds elements around a place by what their start tags say. It remembers each element that it
/// has climbed over with a way to skip many levels that hold nothing of what is looked for, so that
/// a climb costs little also where elements are nested thousands of levels deep.
class Ancestors {
public:
    /// What start tags are looked for by: names, prefixes that they declare, and properties of
    /// white space that they set.
    using Marks = std::uint64_t;
    static constexpr Marks all = ~Marks{0};

    struct Level {
        int element;
        int end;             ///< the last position that what is known of it depends on
        int depth;           ///< 0 for one that nothing is around
        Marks name;          ///< of its name alone
        Marks own;           ///< of its start tag
        Marks passed;        ///< of all levels from this one up to `jump`, that excluded
        const Level* parent; ///< null for none
        const Level* jump;   ///< a level further out
    };

    /// The level of an element, null for -1; until the text changes or another level is asked for.
    /// `around` tells the element around another.
    const Level* levelOf(XmlScan::Text text, int element, const std::function<int(int)>& around);

    /// The same if it is known; null if not.
    const Level* find(int element) const;

    /// The mark of a name, or of what declares a prefix, "xmlns:fo" in lower case; none where no
    /// level has it. Names that are many share one, so that whoever looks for one has to compare.
    Marks markOf(XmlScan::Text name) const;
    /// Whether all that have the mark have the same name.
    static bool isOfOneName(Marks mark);
    /// The mark of a property of white space.
    static Marks markOf(std::size_t property) { return Marks{1} << property; }

    /// The nearest level, the given one included, that has one of the marks; null if none.
    static const Level* nearest(const Level* level, Marks marks);
    /// The furthest level out that has one of the marks, of the given one and those around it whose
    /// elements begin at `first` or behind; null if none.
    static const Level* outermost(const Level* level, int first, Marks marks);
    /// Whether the element is the level's or one around it.
    static bool isAround(int element, const Level* level);

    /// The text has changed from the position on.
    void forgetBehind(int position) noexcept;

private:
    const Level* findLevel(XmlScan::Text text, int element, const std::function<int(int)>& around);
    const Level* add(XmlScan::Text text, int element, const Level* parent);
    Marks marksOfTag(XmlScan::Text text, int element, XmlScan::Text name);
    Marks newMarkOf(XmlScan::Text name);

    static constexpr std::size_t leastLimit = 1024;

    std::map<int, Level> levels_; // by element
    const Level* last_ = nullptr; // that was asked for
    std::size_t limit_ = leastLimit;
    std::vector<std::wstring> names_; // that have a mark of their own
};
