#pragma once

#include <optional>
#include <string>
#include <vector>

class Document;

/// The text around a place of a document as a reader sees it, without markup, within its paragraph;
/// as much of it as was asked for, with the places where each character stands. The edges of
/// inlines, comments and instructions are nothing; a soft break is U+2028, and an object in the
/// line, as a picture, U+FFFC.
class NearText {
public:
    /// One unit of plain text: where the character that it is of begins and ends in the document.
    struct Place {
        int start;
        int end;
    };

    /// Nothing yet on either side of the position.
    NearText(const Document& document, int position);

    /// Add so many characters before or behind; false where the paragraph had fewer.
    bool growBack(int count);
    bool growForward(int count);

    /// The units, of which those from index() on stand behind the position.
    std::wstring text() const;
    int index() const { return static_cast<int>(back_.size()); }
    int length() const { return static_cast<int>(back_.size() + forward_.size()); }
    /// Of a valid index.
    Place placeAt(int index) const;
    wchar_t unitAt(int index) const;

private:
    struct Unit {
        wchar_t unit;
        Place place;
    };
    struct Character {
        std::wstring units;
        Place place;
    };

    std::optional<Character> before(int position) const;
    std::optional<Character> behind(int position) const;
    std::optional<Character> markupBefore(int& position) const;
    std::optional<Character> markupBehind(int& position) const;
    bool isHidden(int tag) const;
    bool isEdge(int tag) const;
    const Unit& at(int index) const;

    const Document& document_;
    int position_;
    std::vector<Unit> back_; // the nearest first
    std::vector<Unit> forward_;
};
