#pragma once

#include "foundation/values/PrintingAttributes.h"

#include <vector>

namespace Xml {
class Element;
}

/// How page sequences are printed.
namespace SequencePrinting {

/// One for each sequence and repeat; inserted documents have none.
std::vector<PrintingAttributes> of(const Xml::Element& root);
/// Gives each sequence and repeat the options at its own index, in which inserted documents count.
/// Throws Core::Exception, and changes nothing, where there are not so many or one cannot be
/// written in XML.
void write(Xml::Element& root, const std::vector<PrintingAttributes>& options);

} // namespace SequencePrinting
