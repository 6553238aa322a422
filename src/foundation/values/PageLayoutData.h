#pragma once

#include "foundation/values/Length.h"
#include "foundation/values/LengthOrPercent.h"
#include "foundation/values/RegionData.h"

/// A whole page master as a page set-up dialog shows it. What is not set is the empty length.
struct PageLayoutData {
    Xml::Length width;
    Xml::Length height;

    Xml::LengthOrPercent marginLeft;
    Xml::LengthOrPercent marginRight;
    Xml::LengthOrPercent marginTop;
    Xml::LengthOrPercent marginBottom;

    RegionData start;
    RegionData end;
    RegionData before;
    RegionData after;
    RegionData body;
};
