#include "tables/SelectedElements.h"

#include "tables/CellSelection.h"
#include "tables/RowMarks.h"

#include <numeric>

using Core::String;
using Xml::Element;

namespace {

TableTree::Elements elementsOf(const Table& table, const CellSelection& selection,
                               TableElements kind) {
    switch (kind) {
    case TableElements::Cells:
        return selection.cells();
    case TableElements::Rows:
        return selection.rows();
    case TableElements::Columns:
        return TableTree::columnsAt(table.root(), selection.columns());
    case TableElements::Table:
        return {&table.root()};
    }
    return {};
}

bool isOfTemplate(const Element& element) {
    return element.getNSPrefix() == L"qfd";
}

void setOn(Element& element, EditableProperty property) {
    const String prefix = property.getNamespace();
    property.removeNamespaceFromName();
    const String written = prefix == element.getNSPrefix() ? String() : prefix;
    if (isOfTemplate(element))
        RowMarks::set(element, property.getName(), property.getValue(),
                      prefix.empty() ? String(L"fo") : written);
    else
        element.set_attribute(property.getName(), property.getValue(), written);
}

void removeFrom(Element& element, const String& name) {
    if (isOfTemplate(element))
        RowMarks::remove(element, name);
    else
        element.remove_attribute(name);
}

} // namespace

SelectedElements::SelectedElements(const Table& table, TableElements kind) : table_(table) {
    const CellSelection selection(table.model(), table.caret.caret, table.caret.end,
                                  table.columnCount);
    elements_ = elementsOf(table, selection, kind);
    if (kind == TableElements::Columns)
        columns_ = selection.columns();
    if (kind == TableElements::Table) {
        columns_.resize(static_cast<std::size_t>(table.columnCount));
        std::iota(columns_.begin(), columns_.end(), 0);
    }
}

String SelectedElements::common(const String& name) const {
    String common;
    for (const Element* element : elements_) {
        const Xml::Attribute* found = element->get_attribute(name.substringAfter(L":"));
        const String value = found ? found->get_value() : String();
        if (!found || (!common.empty() && value.compareNoCase(common) != 0))
            return {};
        if (common.empty())
            common = value;
    }
    return common;
}

void SelectedElements::set(const PropertyCollection& properties) {
    for (Element* element : elements_)
        for (const EditableProperty& property : properties.getPropertyList())
            setOn(*element, property);
    if (properties.containsProperty(L"fo:text-align"))
        removeAlignmentOfCells();
}

void SelectedElements::removeAlignmentOfCells() const {
    using Type = TableRowGroupType;
    for (const int column : columns_)
        for (const Type group : {Type::Header, Type::Footer, Type::Body})
            for (int row = 0; row < table_.model().group(group).rowCount(); ++row)
                if (Element* cell = table_.model().cellAt({group, row, column}))
                    cell->remove_attribute(L"text-align");
}

void SelectedElements::remove(const std::vector<String>& names) {
    for (Element* element : elements_)
        for (const String& name : names)
            removeFrom(*element, name.substringAfter(L":"));
}
