#pragma once

class Document;

/// What the head of a document says of the whole: style sheet, information, conformance, and
/// whether variable data printing is on.
namespace Settings {

bool isVdpSet(const Document& document);

} // namespace Settings
