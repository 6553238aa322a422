#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// What XSL-FO 1.1 allows: which formatting object may stand in which and in what order, and the
/// names of its properties. Names have no prefix.
///
/// Left out are flow maps; no formatter that we know of carries them out.
namespace FoModel {

/// What a formatting object counts as among the children of another: a bit each.
using Kinds = std::uint64_t;

/// What becomes of a formatting object in which nothing stands.
enum class WhenEmpty { Stays, Goes, IsFilled };

struct Object {
    std::string_view name;
    Kinds is;
    /// What may stand in it, in this order. Most have one group, of which the order is free.
    std::array<Kinds, 5> groups = {};
    /// What a stray child, or text, is put into; empty where it has no place at all.
    std::string_view implied = {};
    WhenEmpty whenEmpty = WhenEmpty::Stays;
    /// The property without which it says nothing, and what it then is in its place, if anything.
    std::string_view needs = {};
    std::string_view otherwise = {};
    /// Where nothing of these stands in it, it goes with all the rest.
    Kinds essential = 0;

    bool hasGroups() const { return groups[1] != 0; }
    Kinds holds() const { return groups[0] | groups[1] | groups[2] | groups[3] | groups[4]; }
    /// The group of a child that may stand in it.
    std::size_t groupOf(Kinds child) const;
};

// The kinds that are asked for by name.
inline constexpr Kinds text = 1;
inline constexpr Kinds block = 2;
inline constexpr Kinds inlineLevel = 4;
inline constexpr Kinds anywhere = 8; ///< where blocks may stand, and where inlines may
inline constexpr Kinds marker = 16;
inline constexpr Kinds foreign = 32; ///< markup of another namespace
inline constexpr Kinds wrapper = 64; ///< holds what may stand where it stands
/// Those of which an object holds one at most.
extern const Kinds once;

/// Null where there is no such formatting object.
const Object* find(std::string_view name);
/// Whether it holds text, blocks and inlines, as a line does.
inline bool isMixed(Kinds holds) {
    return (holds & text) != 0;
}
/// Whether the object, or what is implied in it one in the other, has a place for such a child.
bool canTake(const Object& object, Kinds child);

/// What is written in an object where nothing stands that must, for one of its groups; empty where
/// nothing needs to, and where that depends on the document.
std::string_view fillerOf(const Object& object, std::size_t group);

/// Whether the name is one of a property, or of a component of one, as in "space-before.minimum".
bool isProperty(std::string_view name);

} // namespace FoModel
