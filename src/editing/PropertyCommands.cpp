// Properties read and written by path, by name and by selection.

#include "document/EditableDocumentBuffer.h"

#include "document/RecordedCommand.h"
#include "text/XmlScan.h"

#include <set>

using Core::String;
using XmlScan::Text;

namespace {

constexpr const wchar_t* styleName = L"fo:class";

bool declaresNamespace(const EditableProperty& property) {
    return property.getNamespace() == L"xmlns" ||
           property.getName().substringAfter(L":") == L"xmlns";
}

bool onStartTag(Text text, int position) {
    return XmlScan::onTagStart(text, position) && !XmlScan::closingAt(text, position) &&
           !XmlScan::ignoredAt(text, position);
}

PropertyCollection declarationsAmong(const PropertyCollection& properties) {
    PropertyCollection declarations;
    for (const EditableProperty& property : properties.getPropertyList())
        if (declaresNamespace(property))
            declarations.addProperty(property, false);
    return declarations;
}

} // namespace

// Which element is meant

bool EditableDocumentBuffer::isStartTagSelected() const {
    return hasSelectedText() && onStartTag(text_.view(), getSelectionStartIndex());
}

int EditableDocumentBuffer::elementNamedByPath(const String& path) const {
    const int lower = getSelectionStartIndex();
    return isStartTagSelected() && path == getSelectedElementPath(lower)
               ? lower
               : getElementPositionFromPath(path, caretPos_);
}

int EditableDocumentBuffer::nearestElementNamed(const String& name, int position) const {
    return onStartTag(text_.view(), position) && getNameForTagAtPosition(position, true) == name
               ? position
               : searchParent(name, position, false, true, L"");
}

int EditableDocumentBuffer::styledElement(const String& name) const {
    const int position = getSelectionStartIndex();
    if (isStartTagSelected())
        return position;
    return name.empty() ? getCurrentElementPosition(position)
                        : searchParent(name.substringAfter(L":"), position, false, false, L"");
}

// Reading

PropertyCollection EditableDocumentBuffer::getProperties(const String& path) const {
    return getPropertiesFromElementAt(elementNamedByPath(path));
}

PropertyCollection EditableDocumentBuffer::getProperties(const String& elementName,
                                                         int position) const {
    return getPropertiesFromElementAt(nearestElementNamed(elementName, position));
}

Core::Vector<PropertyCollection>
EditableDocumentBuffer::getPropertiesList(const String& elementName) const {
    Core::Vector<PropertyCollection> list;
    const int lower = getSelectionStartIndex();
    const int first = getNameForTagAtPosition(lower, true) == elementName
                          ? lower
                          : getNextElementByName(elementName, lower);
    for (int element = first; element >= 0 && element < selectionUpperEnd();
         element = getNextElementByName(elementName, element))
        list.push_back(getPropertiesFromElementAt(element));
    return list;
}

void EditableDocumentBuffer::getCrtElementClassName(String& className, String& elementName) const {
    const int element = styledElement(elementName);
    className = getPropertiesFromElementAt(element).getPropertyValue(styleName);
    elementName = getNameForTagAtPosition(element, false);
}

String EditableDocumentBuffer::getInheritablePropertyValueAtPosition(const String& name,
                                                                     int position) const {
    for (int element = getCurrentElementPosition(position == -1 ? caretPos_ : position);
         element >= 0; element = getCurrentElementPosition(element)) {
        const PropertyCollection properties = getPropertiesFromElementAt(element);
        if (properties.containsProperty(name))
            return properties.getPropertyValue(name);
    }
    return {};
}

bool EditableDocumentBuffer::getParentProperty(const String& elementName, const String& property,
                                               String& value) const {
    const PropertyCollection properties =
        getPropertiesFromElementAt(searchParent(elementName, caretPos_, false, true, L""));
    if (!properties.containsProperty(property))
        return false;
    value = properties.getPropertyValue(property);
    return true;
}

// Writing

void EditableDocumentBuffer::setProperties(const PropertyCollection& properties,
                                           const String& path) {
    if (!path.empty())
        changeProperties(elementNamedByPath(path), properties);
    else if (hasSelectedText())
        formatSelection(properties);
    else
        changeProperties(getCurrentElementPosition(caretPos_), properties);
}

void EditableDocumentBuffer::setProperties(const PropertyCollection& properties,
                                           const String& elementName, int position) {
    changeProperties(nearestElementNamed(elementName, position), properties);
}

void EditableDocumentBuffer::setProperty(const EditableProperty& property, const String& path) {
    PropertyCollection properties;
    properties.addProperty(property, true);
    setProperties(properties, path);
}

void EditableDocumentBuffer::applyStyleOnElement(const String& className,
                                                 const String& elementName) {
    PropertyCollection properties;
    properties.addProperty({styleName, className}, true);
    changeProperties(styledElement(elementName), properties);
}

void EditableDocumentBuffer::setParentProperty(const String& elementName, const String& property,
                                               const String& value) {
    PropertyCollection properties;
    properties.addProperty({property, value}, true);
    changeProperties(searchParent(elementName, caretPos_, false, true, L""), properties);
}

void EditableDocumentBuffer::changeProperties(int element, const PropertyCollection& properties) {
    if (element < 0 || properties.isEmpty())
        return;
    RecordedCommand command(this);
    setPropertiesForElementAt(element, properties);
    if (!command.mayStand())
        command.takeBack();
}

// Removing

void EditableDocumentBuffer::removeProperties(const String& path) {
    const std::vector<int> elements = elementsToClear(path);
    if (elements.empty())
        return;
    RecordedCommand command(this);
    // From the last to the first, so that those to come stay where they are.
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
        removeAttributes(*element);
    if (!command.mayStand())
        command.takeBack();
}

/// Declarations of namespaces stay, for what the element holds may need them.
void EditableDocumentBuffer::removeAttributes(int element) {
    const PropertyCollection kept = declarationsAmong(getPropertiesFromElementAt(element));
    if (kept.isEmpty())
        clearPropertiesForElementAt(element);
    else
        replaceProperties(element, kept);
}

std::vector<int> EditableDocumentBuffer::elementsToClear(const String& path) const {
    if (path.empty() && hasSelectedText())
        return elementsOfSelectedText();
    int element = path.empty() ? getCurrentElementPosition(caretPos_)
                               : getElementPositionFromPath(path, caretPos_);
    if (element < 0 && isStartTagSelected())
        element = getSelectionStartIndex();
    return element < 0 ? std::vector<int>() : std::vector<int>{element};
}

/// The editable elements directly around selected text, in the order of the text.
std::vector<int> EditableDocumentBuffer::elementsOfSelectedText() const {
    std::set<int> elements;
    const int limit = selectionUpperEnd();
    for (int run = startOfTextRun(getSelectionStartIndex(), limit); run >= 0;
         run = startOfTextRun(getNextValidCaretPos(endOfTextRun(run, limit)), limit))
        elements.insert(getCurrentElementPosition(run));
    return {elements.begin(), elements.end()};
}
