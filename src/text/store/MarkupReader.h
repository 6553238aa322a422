#pragma once

#include "text/store/LexicalState.h"
#include "text/store/MarkKinds.h"
#include "text/store/MarkupFaults.h"

#include <cstdint>
#include <vector>

/// Where markup begins or ends in a chunk of text.
struct MarkupMark {
    std::uint16_t at;
    MarkKind kind;
};

/// Reads text unit by unit and notes where markup begins and ends. What is not as XML has it, or
/// could be taken for something else by who reads it from its end, is a fault: "<" in a tag, a
/// delimiter of one kind of section in another or in text, "&" without a ";". Of a text without
/// such faults, from both ends the same is read.
class MarkupReader {
public:
    MarkupReader(LexicalState state, std::vector<MarkupMark>& marks)
        : state_(state), marks_(marks) {}

    /// Takes the next units, a byte or two bytes each; the first stands at offset 0.
    void read(const unsigned char* bytes, int size, bool isWide);

    const LexicalState& state() const { return state_; }
    const MarkupFaults& faults() const { return faults_; }

    /// Whether the unit is like any other letter of text: it begins or ends nothing.
    static bool isPlain(wchar_t unit);
    /// More units between "&" and ";" are a fault, so that where a reference is read can be told
    /// from so many.
    static constexpr int longestReference = 32;
    /// Whether the unit ends a reference, which is complete if that is the ";".
    static bool endsReference(wchar_t unit);

private:
    using Mode = LexicalState::Mode;
    using Tail = LexicalState::Tail;

    template <typename UnitAt>
    void readAll(int size, UnitAt unitAt);
    void readUnit(std::uint16_t at, wchar_t unit);
    void readText(std::uint16_t at, wchar_t unit);
    void readMarkup(std::uint16_t at, wchar_t unit);
    void readDeclaration(std::uint16_t at, wchar_t unit);
    void beginDeclared(Mode mode);
    void readSection(std::uint16_t at, wchar_t unit, Tail end);
    void readTag(std::uint16_t at, wchar_t unit);
    void readDocumentType(std::uint16_t at, wchar_t unit);
    bool readReference(wchar_t unit);
    bool readQuotes(wchar_t unit);
    bool endsByOpener(wchar_t unit);
    bool endsUnlikeTag(wchar_t unit);
    void begin(Mode mode);
    void end(std::uint16_t at, MarkKind kind);

    LexicalState state_;
    std::vector<MarkupMark>& marks_;
    MarkupFaults faults_;
};
