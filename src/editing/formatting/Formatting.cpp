// Formatting of text: a range gets properties by inlines around its runs of text.

#include "editing/formatting/Formatting.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "document/caret/Selection.h"
#include "document/caret/Stops.h"
#include "document/history/EditActionGroup.h"

#include <algorithm>
#include <set>

using Core::String;

namespace {

constexpr const wchar_t* textAlign = L"fo:text-align";

bool isWholeInline(const Document& document, int start, int end) {
    return document.names.isInline(document.text().nameAround(start)) &&
           Selection::isContentOfElement(document, start, end);
}

/// Leaves the inline around the run, which may be one of many, to be put in later; the runs behind
/// are the same with it and without. Answers false, having done nothing, where more than that has
/// to change.
bool planTextRun(const Document& document, int start, int end, const PropertyCollection& properties,
                 TextRewrite& rewrite) {
    const auto isPlain = [&](const EditableProperty& property) {
        return !Formatting::isBlockProperty(property) &&
               (!Attributes::isStandardNamespace(property.getNamespace()) ||
                Attributes::isDeclaredAt(document, property.getNamespace(), start));
    };
    const Core::Vector<EditableProperty> list = properties.getPropertyList();
    if (list.empty() || !document.names.isInline(L"fo:inline") ||
        !std::all_of(list.begin(), list.end(), isPlain))
        return false;
    if (isWholeInline(document, start, end)) {
        Attributes::plan(document, document.text().elementAround(start), properties, rewrite);
        return true;
    }
    PropertyCollection attributes; // each name once
    attributes.addProperties(properties);
    rewrite.replace(start, start, L"<fo:inline" + Attributes::asText(attributes, L"fo") + L">");
    rewrite.replace(end, end, L"</fo:inline>");
    return true;
}

/// The blocks around the runs of text in the range, in the order of the text.
std::set<int> blocksAround(const Document& document, int from, int to) {
    std::set<int> blocks;
    for (int run = Formatting::startOfTextRun(document, from, to); run >= 0;) {
        const int end = Formatting::endOfTextRun(document, run, to);
        if (const int block = document.text().ancestor(end, L"fo:block"); block >= 0)
            blocks.insert(block);
        run = Formatting::startOfTextRun(document, Stops::next(document, end), to);
    }
    return blocks;
}

/// Gives all blocks in the range their properties at once. Answers false, having done nothing,
/// where some of the properties are not for blocks or more than the blocks has to change.
bool formatBlocks(Document& document, int from, int to, const PropertyCollection& properties) {
    const Core::Vector<EditableProperty> list = properties.getPropertyList();
    if (list.empty() || !std::all_of(list.begin(), list.end(), Formatting::isBlockProperty))
        return false;
    const std::set<int> blocks = blocksAround(document, from, to);
    const auto needsNothing = [&](int block) {
        return Attributes::isDeclaredAt(document, L"fo", block);
    };
    if (!std::all_of(blocks.begin(), blocks.end(), needsNothing))
        return false;
    TextRewrite rewrite(document);
    for (const int block : blocks)
        Attributes::plan(document, block, properties, rewrite);
    rewrite.apply();
    return true;
}

/// Puts an inline around the range; answers by how much the text up to its closing tag moved.
int wrapInInline(Document& document, int start, int end, const PropertyCollection& properties) {
    static const String opening = L"<fo:inline>";
    document.recordCaret();
    Edit(document).insert(start, opening);
    Edit(document).insert(end + opening.length(), L"</fo:inline>");
    return opening.length() + Attributes::merge(document, start, properties);
}

/// Gives the properties to a run of text and to the block around it, each what it can have; answers
/// where the run ends now.
int formatTextRun(Document& document, int start, int end, const PropertyCollection& properties) {
    PropertyCollection inlineProperties = properties;
    const PropertyCollection blockProperties = Formatting::takeBlockProperties(inlineProperties);
    if (!inlineProperties.isEmpty()) {
        end += isWholeInline(document, start, end)
                   ? Attributes::merge(document, document.text().elementAround(start),
                                       inlineProperties)
                   : wrapInInline(document, start, end, inlineProperties);
    }
    return end + Formatting::formatBlockAround(document, end, blockProperties);
}

void formatTextRuns(Document& document, int from, int to, const PropertyCollection& properties) {
    const XmlText& text = document.text();
    const int behind = text.length() - to; // which no change in the range touches
    const auto limit = [&] { return text.length() - behind; };
    TextRewrite rewrite(document);
    for (int run = Formatting::startOfTextRun(document, from, limit()); run >= 0;) {
        int end = Formatting::endOfTextRun(document, run, limit());
        if (!planTextRun(document, run, end, properties, rewrite)) {
            const int shift = rewrite.apply();
            end = formatTextRun(document, run + shift, end + shift, properties);
        }
        run = Formatting::startOfTextRun(document, Stops::next(document, end), limit());
    }
    rewrite.apply();
}

} // namespace

const Core::StringArray EditableDocumentBuffer::nonInlineProperties{textAlign};

bool Formatting::isBlockProperty(const EditableProperty& property) {
    return property.getName() == textAlign;
}

PropertyCollection Formatting::takeBlockProperties(PropertyCollection& properties) {
    PropertyCollection taken;
    for (const EditableProperty& property : properties.getPropertyList()) {
        if (!Formatting::isBlockProperty(property))
            continue;
        taken.addProperty(property, true);
        properties.removePropertyByName(property.getName());
    }
    return taken;
}

void Formatting::formatSelection(Document& document, const PropertyCollection& properties) {
    const XmlText& text = document.text();
    if (properties.isEmpty())
        return;
    RecordedCommand command(document);
    document.recordCaret();
    // A caret is moved along with each change in no time, while for a selection its flow is read.
    const bool caretIsLower = document.caret() < document.pivot();
    const int behind = text.length() - document.selectionEnd();
    document.setCaret(document.selectionStart());
    Formatting::formatInline(document, document.selectionStart(), text.length() - behind,
                             properties);
    const int lower = document.selectionStart();
    const int upper = text.length() - behind;
    document.select(caretIsLower ? upper : lower, caretIsLower ? lower : upper);
    document.recordCaret();
    if (!command.mayStand())
        command.takeBack();
}

void Formatting::formatInline(Document& document, int from, int to, PropertyCollection properties) {
    const XmlText& text = document.text();
    if (!text.isValid(from) || !text.isValid(to))
        return;
    CommandScope scope(document);
    document.endTyping();
    EditActionGroup group(document);
    document.recordCaret();
    properties.setNamespaceForProperties(L"fo");
    if (!formatBlocks(document, from, to, properties))
        formatTextRuns(document, from, to, properties);
    document.recordCaret();
}

int Formatting::startOfTextRun(const Document& document, int position, int limit) {
    while (position >= 0 && position < limit &&
           (document.text().onTagStart(position) || !document.isInEditable(position)))
        position = Stops::next(document, position);
    return position < limit ? position : -1;
}

int Formatting::endOfTextRun(const Document& document, int start, int limit) {
    const XmlText& text = document.text();
    int tag = text.nextTag(start);
    while (tag >= 0 && tag < limit && text.selfClosingAt(tag))
        tag = text.nextTag(text.next(tag));
    return tag < 0 ? limit : std::min(tag, limit);
}

int Formatting::formatBlockAround(Document& document, int position,
                                  const PropertyCollection& properties) {
    if (properties.isEmpty())
        return 0;
    return Attributes::merge(document, document.text().ancestor(position, L"fo:block"), properties);
}

bool EditableDocumentBuffer::isNonInlineProperty(const EditableProperty& property) {
    return Formatting::isBlockProperty(property);
}

PropertyCollection
EditableDocumentBuffer::getAndRemoveNonInlineProperties(PropertyCollection& properties) {
    return Formatting::takeBlockProperties(properties);
}

void EditableDocumentBuffer::formatInline(int from, int to, PropertyCollection properties) {
    Formatting::formatInline(*document_, from, to, properties);
}
