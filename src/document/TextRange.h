#pragma once

/// A range of a document's text in 16-bit code units, its end excluded.
struct TextRange {
    int start = 0;
    int end = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// What a reader knows as a unit of text.
enum class TextUnit { Character = 0, Word = 1, Sentence = 2, Paragraph = 3 };
