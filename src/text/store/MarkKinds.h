#pragma once

#include "text/TextView.h"

#include <cstdint>
#include <initializer_list>

class TextUnits;

/// What begins or ends at a place in markup. The kinds below the first that has a word are those of
/// the tags of elements: tags of one name are of one kind, which is that of a few other names too.
enum class MarkKind : std::uint8_t {
    CutStart = 55,    ///< of markup before whose name ends the chunk does
    SectionStart,     ///< of a comment or CDATA section
    InstructionStart, ///< of a processing instruction
    TypeStart,        ///< of a document type
    OpeningEnd,       ///< the ">" of a start tag
    ClosingEnd,
    EmptyEnd,   ///< of a self-closing tag
    SectionEnd, ///< of a comment or CDATA section
    OtherEnd    ///< of an instruction or a document type
};

constexpr bool isStart(MarkKind kind) {
    return kind < MarkKind::OpeningEnd;
}

/// A set of kinds of marks.
class MarkKinds {
public:
    constexpr MarkKinds() = default;
    constexpr MarkKinds(std::initializer_list<MarkKind> kinds) {
        for (const MarkKind kind : kinds)
            *this |= MarkKinds(std::uint64_t{1} << static_cast<unsigned>(kind));
    }

    constexpr bool hasAnyOf(MarkKinds other) const { return (bits_ & other.bits_) != 0; }
    constexpr bool has(MarkKind kind) const { return hasAnyOf({kind}); }

    constexpr MarkKinds& operator|=(MarkKinds other) {
        bits_ |= other.bits_;
        return *this;
    }
    friend constexpr MarkKinds operator|(MarkKinds a, MarkKinds b) { return a |= b; }
    friend constexpr bool operator==(MarkKinds, MarkKinds) = default;

    /// Those that begin markup, all of it or tags of elements and document types.
    static constexpr MarkKinds starts() {
        return MarkKinds((std::uint64_t{1} << static_cast<unsigned>(MarkKind::OpeningEnd)) - 1);
    }
    static constexpr MarkKinds tagStarts() {
        return MarkKinds(starts().bits_ &
                         ~MarkKinds{MarkKind::SectionStart, MarkKind::InstructionStart}.bits_);
    }
    /// Those that end markup, all of it or tags of elements.
    static constexpr MarkKinds ends() {
        return elementEnds() | MarkKinds{MarkKind::SectionEnd, MarkKind::OtherEnd};
    }
    static constexpr MarkKinds elementEnds() {
        return {MarkKind::OpeningEnd, MarkKind::ClosingEnd, MarkKind::EmptyEnd};
    }
    /// Among which all tags of a name are, opening and closing. It is that of the tag with or
    /// without the "/" in front.
    static MarkKinds named(TextView name);

private:
    constexpr explicit MarkKinds(std::uint64_t bits) : bits_(bits) {}

    std::uint64_t bits_ = 0;
};

/// The kind of the markup whose "<" stands at an offset of a chunk.
MarkKind kindOfStart(const TextUnits& units, int start);
