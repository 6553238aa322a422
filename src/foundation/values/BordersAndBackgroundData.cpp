#include "foundation/values/BordersAndBackgroundData.h"

#include "foundation/values/BorderStyle.h"

int BordersAndBackgroundData::getStyleIdx(const Core::String& name) {
    const int index = BorderStyle::indexOf(name.view());
    return index < 0 ? 0 : index;
}

Core::String BordersAndBackgroundData::getStyleName(int index) {
    return Core::String(BorderStyle::at(index));
}
