#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/Length.h"
#include "foundation/values/LengthOrPercent.h"

/// A region of a page as a dialog shows it. What is not set is the empty length or text. A length
/// that was read gives back the text that it was read from.
struct FORME_API RegionData {
    Xml::LengthOrPercent paddingLeft;
    Xml::LengthOrPercent paddingRight;
    Xml::LengthOrPercent paddingTop;
    Xml::LengthOrPercent paddingBottom;

    // Of the body alone
    Xml::LengthOrPercent marginLeft;
    Xml::LengthOrPercent marginRight;
    Xml::LengthOrPercent marginTop;
    Xml::LengthOrPercent marginBottom;

    /// How far the region reaches into the page.
    Xml::Length extent;

    // Of the body alone
    Xml::Length columnGap;
    int columnCount = 1;

    /// Whether the page has the region.
    bool visible = false;
    /// Whether it takes the corners of the page from the regions beside it.
    bool precedence = false;
    /// Quarters of a turn to the left, 0 to 3.
    int orientation = 0;
    /// 0 before, 1 center, 2 after.
    int displayAlign = 0;

    // Numbers of BordersAndBackgroundData::getStyleIdx()
    int borderStyleLeft = 0;
    int borderStyleTop = 0;
    int borderStyleRight = 0;
    int borderStyleBottom = 0;
    Xml::Length borderWidthLeft;
    Xml::Length borderWidthTop;
    Xml::Length borderWidthRight;
    Xml::Length borderWidthBottom;
    Core::String borderColorLeft;
    Core::String borderColorTop;
    Core::String borderColorRight;
    Core::String borderColorBottom;

    Xml::Length shadowX;
    Xml::Length shadowY;
    Core::String shadowColor;

    Core::String backgroundColor;
    Core::String backgroundImage;
    /// Written in the place of the image where it is not empty, and never read: a region that has
    /// one has an image that begins with "data:,".
    Core::String backgroundGradient;
    /// 0 repeat, 1 repeat-x, 2 repeat-y, 3 no-repeat.
    int backgroundRepeat = 0;
    Xml::LengthOrPercent backgroundPositionHorizontal;
    Xml::LengthOrPercent backgroundPositionVertical;

    /// "before", "center" or "after"; empty for any other number.
    Core::String getDisplayAlign() const;
};
