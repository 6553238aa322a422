#pragma once

#include <forme/foundation/String.h>

#include <string>

/// Has the formatter fop make a PDF of XSL-FO. Images are looked for from the document on, which
/// the text came from. The output is there whole or as it was before. Throws std::exception with
/// the reason where the formatter is not installed or refuses the text, and tells on standard error
/// what it leaves out of the PDF.
void saveAsPdf(const Core::String& formattingObjects, const std::string& document,
               const std::string& output);
