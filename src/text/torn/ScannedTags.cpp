#include "text/torn/ScannedTags.h"

bool ScannedTags::forgetFrom(int position) noexcept {
    const bool isTypeChanged = preceding_.forgetBehind(position);
    elements_.forgetBehind(isTypeChanged ? -1 : position);
    ends_.forget();
    markup_.forgetFrom(position);
    return isTypeChanged;
}
