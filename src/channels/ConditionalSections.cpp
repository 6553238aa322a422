#include "channels/ConditionalSections.h"

#include "channels/ConditionIndex.h"
#include "document/Document.h"
#include "document/caret/Stops.h"
#include "foundation/Exception.h"
#include "foundation/StringFormatStream.h"
#include "foundation/xml/QualifiedName.h"
#include "text/Markup.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"
#include "trees/PiecedText.h"

using Core::String;
using Xml::Element;

namespace {

const String templatePrefix = L"qfd";
const String test = L"test";

/// The names of the elements, without prefix.
struct Names {
    String sequence;
    String section;
    String content;
};

const Names& namesOf(ConditionalSectionBuffer::Type type) {
    static const Names block{L"conditional-block-sequence", L"conditional-block", L"block"};
    static const Names inlined{L"conditional-inline-sequence", L"conditional-inline", L"inline"};
    return type == ConditionalSectionBuffer::Type::Inline ? inlined : block;
}

String withPrefix(const String& name) {
    return templatePrefix + L":" + name;
}

/// The content of the sequence and its closing tag.
String written(const Fragment& fragment, const String& sequence) {
    return CutPart::content(*fragment.tree()) + L"</" + sequence + L">";
}

} // namespace

ConditionalSections::ConditionalSections(Document& document, Type type, Fragment& fragment)
    : document_(&document), type_(type) {
    const XmlText& text = document.text();
    const String name = withPrefix(namesOf(type).sequence);
    const int sequence = text.ancestor(document.caret(), name.view());
    if (sequence < 0)
        return;
    DocumentSeam seam(&document);
    const int start = text.next(sequence);
    const int end = seam.elementEnd(sequence);
    fragment.setTree(PiecedText(seam)
                         .made(String(text.prolog().documentType) + L"<" + name +
                               Namespaces::asAttributes(seam.declarationsAround(start)) + L">")
                         .stretch(start, end)
                         .parse());
    fragment.setPlace(start, end);
    part_.emplace(document, CutPart::Tags{L"<" + name + L">", String()}, start, end,
                  written(fragment, name));
    index_ = ConditionIndex::at(text, document.caret(), name.view(),
                                withPrefix(namesOf(type).section).view());
}

std::vector<Element*> ConditionalSections::in(const Element& sequence) const {
    std::vector<Element*> found = Elements::childrenOf(sequence, namesOf(type_).section);
    std::erase_if(found,
                  [](const Element* child) { return child->getNSPrefix() != templatePrefix; });
    return found;
}

Element* ConditionalSections::at(const Element& sequence, int index) const {
    const std::vector<Element*> sections = in(sequence);
    return index >= 0 && index < static_cast<int>(sections.size())
               ? sections[static_cast<std::size_t>(index)]
               : nullptr;
}

Element* ConditionalSections::fallback(const Element& sequence) const {
    for (Element* section : in(sequence))
        if (!section->get_attribute(test))
            return section;
    return nullptr;
}

void ConditionalSections::insert(Element& sequence, const String& condition) const {
    Xml::requireXmlText(condition);
    Element* const first = at(sequence, 0);
    // A copy has the declarations that its prefix may need.
    Element* const made =
        first ? static_cast<Element*>(sequence.import_node_as_prev_sibling(first, first, false))
              : sequence.add_child(namesOf(type_).section, templatePrefix);
    for (const Xml::Attribute* attribute : made->get_attributes())
        made->remove_attribute(attribute->get_name(), attribute->get_namespace_prefix());
    made->set_attribute(test, condition);
    addContent(*made, (Core::StringFormatStream(L"Customize this section for condition \"{0}\"")
                       << condition)
                          .getString());
}

void ConditionalSections::appendFallback(Element& sequence) const {
    addContent(*sequence.add_child(namesOf(type_).section, templatePrefix),
               L"Customize this fallback section.");
}

void ConditionalSections::addContent(Element& section, const String& text) const {
    section.add_child(namesOf(type_).content, L"fo")->set_child_text(text);
}

void ConditionalSections::commit(Fragment& fragment) {
    if (!part_)
        throw Core::NullPointerException();
    part_->requireUnchanged();
    if (in(*fragment.root()).empty())
        return;
    const auto firstPlace = [this](int start) -> std::optional<CaretPlace> {
        const int next = Stops::next(*document_, start);
        const int place = next >= 0 ? next : Stops::previous(*document_, start);
        return place < 0 ? std::nullopt : std::optional(CaretPlace{place, place});
    };
    part_->replace(written(fragment, withPrefix(namesOf(type_).sequence)), firstPlace);
    fragment.setPlace(part_->start(), part_->end());
}
