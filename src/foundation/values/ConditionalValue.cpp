#include "foundation/values/ConditionalValue.h"

#include "foundation/values/QFDAttribute.h"

void ConditionalValue::read(const QFDAttribute& entry) {
    staticValue = entry.getValue();
    dynamicValue = entry.getDynamicValue();
    condition = entry.getCondition();
    isDynamic = !dynamicValue.empty();
}
