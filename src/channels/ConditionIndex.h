#pragma once

#include "text/XmlText.h"

/// Which section of a sequence of conditions a position is in.
namespace ConditionIndex {

/// The index of the section around the position in the sequence around it, both named with prefix;
/// 0 between sections and outside of sequences.
int at(const XmlText& text, int position, XmlText::View sequence, XmlText::View section);

} // namespace ConditionIndex
