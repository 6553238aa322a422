#include "pages/SequenceConversion.h"

#include "foundation/xml/Element.h"
#include "pages/PaginationNodes.h"
#include "pages/RepeatData.h"
#include "pages/SequenceAttributes.h"

#include <array>
#include <vector>

using Core::String;
using SequenceAttributes::reference;
using Xml::Attribute;
using Xml::Element;

namespace {

struct RepeatAttribute {
    const wchar_t* name;
    String RepeatData::*value;
};

/// In the order in which they are written.
constexpr std::array<RepeatAttribute, 4> repeatAttributes{
    {{L"xpath", &RepeatData::xpath},
     {L"condition", &RepeatData::condition},
     {L"sort", &RepeatData::sort},
     {L"parent-sequence-id", &RepeatData::parentId}}};

/// Gives each attribute without a prefix the one that `prefixFor` says for its name. It wins over
/// one that has that name already.
template <typename PrefixFor>
void givePrefixes(Element& element, PrefixFor prefixFor) {
    std::vector<Attribute*> bare;
    for (Attribute* attribute : element.get_attributes())
        if (attribute->get_namespace_prefix().empty())
            bare.push_back(attribute);
    for (Attribute* attribute : bare) {
        const String name = attribute->get_name();
        const String prefix = prefixFor(name);
        const Attribute* other = element.get_attribute(name, prefix);
        if (other && other != attribute)
            element.remove_attribute(name, prefix);
        attribute->set_namespace(prefix);
    }
}

void rename(Element& element, const wchar_t* prefix, const wchar_t* name) {
    element.set_namespace(prefix);
    element.set_name(name);
}

/// Its attributes keep their meaning under the prefix "fo".
void toRepeat(Element& sequence, const String& master, const RepeatData& data) {
    SequenceAttributes::requireWritable(master, data);
    sequence.set_attribute(reference, master);
    givePrefixes(sequence, [](const String&) { return String(L"fo"); });
    rename(sequence, L"qfd", L"page-sequence-repeat");
    for (const RepeatAttribute& attribute : repeatAttributes)
        if (const String& value = data.*attribute.value; !value.empty())
            sequence.set_attribute(attribute.name, value);
}

/// What else only repeats have becomes foreign to it.
void toSequence(Element& repeat) {
    for (const RepeatAttribute& attribute : repeatAttributes)
        while (repeat.remove_attribute(attribute.name, repeat.getNSPrefix())) {
        }
    givePrefixes(repeat, [](const String& name) {
        return String(name == reference || name == L"id" ? L"fo" : L"qfd");
    });
    rename(repeat, L"fo", L"page-sequence");
}

} // namespace

void SequenceConversion::convert(Element& sequence, const String& master, const RepeatData& data) {
    if (PaginationNodes::isRepeat(sequence))
        toSequence(sequence);
    else if (PaginationNodes::isSequence(sequence) && !master.empty())
        toRepeat(sequence, master, data);
}
