#pragma once

#include "document/caret/CaretWalk.h"
#include "view/CaretObjects.h"
#include "view/Drawn.h"

#include <optional>

/// A walk over what is drawn, from an offset on. It reads no further than it is asked to go.
///
/// The text must not change while the walk lasts.
class DrawnWalk {
public:
    /// Begins with the unit, or the object, that holds the offset.
    DrawnWalk(const Document& document, int position);

    /// The next piece; nothing where the text ends.
    std::optional<Drawn> next();

private:
    /// A longer text comes in pieces, so that a walk ends soon after it was asked to.
    static constexpr std::size_t longestText = 1024;

    Drawn pieceHere(DrawnKind kind);
    std::optional<Drawn> takeMarkup();
    Drawn takeObject(int behind);
    Drawn takeTag();
    Drawn takeText();
    Drawn takeUnit(DrawnKind kind, Core::String text);
    void pass();

    bool isDrawnHere();
    bool isBlankBeforeObject() const;
    bool isPlainHere() const;
    bool isPlaceholderHere() const;

    const XmlText& text() const;

    const Document& document_;
    CaretWalk walk_;
    CaretObjects objects_;
    bool isInRegion_; // in a flow or static content
    bool hasEnded_ = false;
};
