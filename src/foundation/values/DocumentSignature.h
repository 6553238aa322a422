#pragma once

#include "foundation/String.h"

/// What a document says of its signature, for whoever renders it. Nothing is signed or checked.
struct DocumentSignature {
    Core::String name;
    Core::String location;
    Core::String reason;
    Core::String title;
    Core::String certificateSerialNumber;
};
