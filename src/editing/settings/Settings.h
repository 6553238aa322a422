#pragma once

class Document;

namespace Settings {

/// Whether variable data printing is on.
bool isVdpSet(const Document& document);

} // namespace Settings
