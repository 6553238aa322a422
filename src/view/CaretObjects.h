#pragma once

class Document;

/// The elements that the caret passes as one: objects by their names, scripts, and whatever stands
/// among text and holds no place for the caret.
///
/// It serves one walk over a text that does not change meanwhile.
class CaretObjects {
public:
    explicit CaretObjects(const Document& document) : document_(document) {}

    /// The offset behind the object whose start tag stands there, with `parent` directly around it;
    /// -1 if none does.
    int behind(int element, int parent);
    /// The outermost object around the position; -1 if none is.
    int around(int position);

private:
    bool holdsEditable(int element);

    const Document& document_;
    int searchedFrom_ = 0; // from there on the first editable element begins
    int editable_ = -1;    // here; -1 while nothing was searched
};
