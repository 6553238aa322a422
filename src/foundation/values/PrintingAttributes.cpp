#include "foundation/values/PrintingAttributes.h"

#include <algorithm>
#include <array>

using Core::String;

PrintingAttributes::PrintingAttributes(const String& id)
    : inputTray(L"qf:input-tray", id), outputTray(L"qf:output-tray", id), duplex(L"qf:duplex", id),
      copyCount(L"qf:copy-count", id), mediaColor(L"qf:media-color", id) {}

void PrintingAttributes::setId(const String& id) {
    for (PropertyValueEx* value : {&inputTray, &outputTray, &duplex, &copyCount, &mediaColor})
        value->setObjectID(id);
}

bool PrintingAttributes::isEmpty() const {
    const std::array values{&inputTray, &outputTray, &duplex, &copyCount, &mediaColor};
    return psPrinterCode.empty() &&
           std::all_of(values.begin(), values.end(), [](const PropertyValueEx* value) {
               return value->isStatic() && value->getStaticValue().empty();
           });
}
