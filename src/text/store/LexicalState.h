#pragma once

#include <cstdint>

/// Where a reader of markup stands between two units of a text, half-read delimiters included. It
/// depends on nothing but what was read, so that reading can go on from it.
struct LexicalState {
    enum class Mode : std::uint8_t {
        Text,
        Markup,      ///< behind "<"
        Declaration, ///< behind "<!", and perhaps some units of a keyword
        Comment,
        CData,
        Instruction,
        Tag,
        ClosingTag,
        DocumentType
    };
    /// What the last units could be the beginning of.
    enum class Tail : std::uint8_t {
        None,
        Dash,
        Dashes,
        Bracket,
        Brackets,
        Question,
        Less,
        Slash,
        Reference ///< "&", and perhaps some units behind it
    };
    enum class Quotes : std::uint8_t { None, Double, Single };

    Mode mode = Mode::Text;
    Tail tail = Tail::None;
    Quotes quotes = Quotes::None; ///< of a tag, an instruction or a document type
    std::uint8_t keyword = 0;     ///< which one is being read, of a declaration
    std::uint8_t read = 0;     ///< how many units of that, of a reference or, up to two, a comment
    bool isValueDue = false;   ///< behind the "=" of a tag or an instruction
    bool isInType = false;     ///< what is read belongs to a document type
    bool isInBrackets = false; ///< of a document type
    bool hasDeclarations = false; ///< a document type
    bool isBehindProlog = false;  ///< no document type may follow

    bool isText() const { return mode == Mode::Text; }
    /// Of which nothing could be the beginning of a delimiter.
    bool isPlainText() const { return mode == Mode::Text && tail == Tail::None && isBehindProlog; }

    friend bool operator==(const LexicalState&, const LexicalState&) = default;
};
