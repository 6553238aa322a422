// Properties read and written by path, by name and by selection.

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "document/caret/Selection.h"
#include "document/caret/Stops.h"
#include "editing/formatting/Formatting.h"

#include <set>

using Core::String;

namespace {

constexpr const wchar_t* styleName = L"fo:class";

bool declaresNamespace(const EditableProperty& property) {
    return property.getNamespace() == L"xmlns" ||
           property.getName().substringAfter(L":") == L"xmlns";
}

bool onStartTag(const XmlText& text, int position) {
    return text.onTagStart(position) && !text.closingAt(position) && !text.ignoredAt(position);
}

PropertyCollection declarationsAmong(const PropertyCollection& properties) {
    PropertyCollection declarations;
    for (const EditableProperty& property : properties.getPropertyList())
        if (declaresNamespace(property))
            declarations.addProperty(property, false);
    return declarations;
}

bool isStartTagSelected(const Document& document) {
    return document.hasSelection() && onStartTag(document.text(), document.selectionStart());
}

int nearestElementNamed(const Document& document, const String& name, int position) {
    return onStartTag(document.text(), position) && document.text().nameAt(position) == name
               ? position
               : document.text().ancestor(position, name);
}

int styledElement(const Document& document, const String& name) {
    const int position = document.selectionStart();
    if (isStartTagSelected(document))
        return position;
    return name.empty() ? document.text().elementAround(position)
                        : document.text().localAncestor(position, name.substringAfter(L":"));
}

/// The editable elements directly around selected text, in the order of the text.
std::vector<int> elementsOfSelectedText(const Document& document) {
    std::set<int> elements;
    const int limit = document.selectionEnd();
    for (int run = Formatting::startOfTextRun(document, document.selectionStart(), limit); run >= 0;
         run = Formatting::startOfTextRun(
             document, Stops::next(document, Formatting::endOfTextRun(document, run, limit)),
             limit))
        elements.insert(document.text().elementAround(run));
    return {elements.begin(), elements.end()};
}

std::vector<int> elementsToClear(const Document& document, const String& path) {
    if (path.empty() && document.hasSelection())
        return elementsOfSelectedText(document);
    int element = path.empty() ? document.text().elementAround(document.caret())
                               : document.text().elementNamedByPath(path, document.caret());
    if (element < 0 && isStartTagSelected(document))
        element = document.selectionStart();
    return element < 0 ? std::vector<int>() : std::vector<int>{element};
}

} // namespace

int Formatting::elementNamedByPath(const Document& document, const String& path) {
    const int lower = document.selectionStart();
    return isStartTagSelected(document) && path == Selection::pathOf(document, lower)
               ? lower
               : document.text().elementNamedByPath(path, document.caret());
}

String Formatting::inherited(const Document& document, const String& name, int position) {
    for (int element = document.text().elementAround(position == -1 ? document.caret() : position);
         element >= 0; element = document.text().elementAround(element)) {
        const PropertyCollection properties = Attributes::of(document, element);
        if (properties.containsProperty(name))
            return properties.getPropertyValue(name);
    }
    return {};
}

void Formatting::setProperties(Document& document, const PropertyCollection& properties,
                               const String& path) {
    if (!path.empty())
        Formatting::change(document, Formatting::elementNamedByPath(document, path), properties);
    else if (document.hasSelection())
        Formatting::formatSelection(document, properties);
    else
        Formatting::change(document, document.text().elementAround(document.caret()), properties);
}

void Formatting::setProperties(Document& document, const PropertyCollection& properties,
                               const String& elementName, int position) {
    Formatting::change(document, nearestElementNamed(document, elementName, position), properties);
}

bool Formatting::change(Document& document, int element, const PropertyCollection& properties) {
    return element >= 0 && !properties.isEmpty() &&
           carryOut(document, [&] { Attributes::merge(document, element, properties); });
}

void Attributes::removeAll(Document& document, int element) {
    const PropertyCollection kept = declarationsAmong(Attributes::of(document, element));
    if (kept.isEmpty())
        Attributes::clear(document, element);
    else
        Attributes::replace(document, element, kept);
}

PropertyCollection EditableDocumentBuffer::getProperties(const String& path) const {
    const Document& document = *document_;
    return Attributes::of(document, Formatting::elementNamedByPath(document, path));
}

PropertyCollection EditableDocumentBuffer::getProperties(const String& elementName,
                                                         int position) const {
    const Document& document = *document_;
    return Attributes::of(document, nearestElementNamed(document, elementName, position));
}

Core::Vector<PropertyCollection>
EditableDocumentBuffer::getPropertiesList(const String& elementName) const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    Core::Vector<PropertyCollection> list;
    const int lower = document.selectionStart();
    const int first =
        text.nameAt(lower) == elementName ? lower : text.nextNamed(lower, elementName);
    for (int element = first; element >= 0 && element < document.selectionEnd();
         element = text.nextNamed(element, elementName))
        list.push_back(Attributes::of(document, element));
    return list;
}

void EditableDocumentBuffer::getCrtElementClassName(String& className, String& elementName) const {
    const Document& document = *document_;
    const int element = styledElement(document, elementName);
    className = Attributes::of(document, element).getPropertyValue(styleName);
    elementName = document.text().localNameAt(element);
}

String EditableDocumentBuffer::getInheritablePropertyValueAtPosition(const String& name,
                                                                     int position) const {
    return Formatting::inherited(*document_, name, position);
}

bool EditableDocumentBuffer::getParentProperty(const String& elementName, const String& property,
                                               String& value) const {
    const Document& document = *document_;
    const PropertyCollection properties =
        Attributes::of(document, document.text().ancestor(document.caret(), elementName));
    if (!properties.containsProperty(property))
        return false;
    value = properties.getPropertyValue(property);
    return true;
}

void EditableDocumentBuffer::setProperties(const PropertyCollection& properties,
                                           const String& path) {
    Formatting::setProperties(*document_, properties, path);
}

void EditableDocumentBuffer::setProperties(const PropertyCollection& properties,
                                           const String& elementName, int position) {
    Formatting::setProperties(*document_, properties, elementName, position);
}

void EditableDocumentBuffer::setProperty(const EditableProperty& property, const String& path) {
    Document& document = *document_;
    PropertyCollection properties;
    properties.addProperty(property, true);
    Formatting::setProperties(document, properties, path);
}

void EditableDocumentBuffer::applyStyleOnElement(const String& className,
                                                 const String& elementName) {
    Document& document = *document_;
    PropertyCollection properties;
    properties.addProperty({styleName, className}, true);
    Formatting::change(document, styledElement(document, elementName), properties);
}

void EditableDocumentBuffer::setParentProperty(const String& elementName, const String& property,
                                               const String& value) {
    Document& document = *document_;
    PropertyCollection properties;
    properties.addProperty({property, value}, true);
    Formatting::change(document, document.text().ancestor(document.caret(), elementName),
                       properties);
}

void EditableDocumentBuffer::removeProperties(const String& path) {
    Document& document = *document_;
    const std::vector<int> elements = elementsToClear(document, path);
    if (elements.empty())
        return;
    RecordedCommand command(document);
    document.recordCaret();
    TextRewrite rewrite(document);
    for (const int element : elements)
        if (const PropertyCollection all = Attributes::of(document, element); !all.isEmpty())
            Attributes::planReplacement(document, element, declarationsAmong(all), rewrite);
    rewrite.apply();
    document.recordCaret();
    if (!command.mayStand())
        command.takeBack();
}
