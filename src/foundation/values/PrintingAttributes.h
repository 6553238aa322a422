#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/PropertyValueEx.h"

/// How the pages of a master or a sequence are printed.
struct FORME_API PrintingAttributes {
    /// The id ties values that are not static to the template's data.
    explicit PrintingAttributes(const Core::String& id = Core::String());

    PropertyValueEx inputTray;
    PropertyValueEx outputTray;
    PropertyValueEx duplex;    ///< "true" or "false"
    PropertyValueEx copyCount; ///< a number
    PropertyValueEx mediaColor;
    Core::String psPrinterCode; ///< what is sent to a PostScript printer as it stands

    /// Gives all values the id.
    void setId(const Core::String& id);
    /// Whether all values are static and empty and there is no printer code.
    bool isEmpty() const;
};
