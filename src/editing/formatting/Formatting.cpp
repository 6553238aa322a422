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
#include "text/Markup.h"

#include <algorithm>
#include <set>
#include <vector>

using Core::String;

namespace {

constexpr const wchar_t* textAlign = L"fo:text-align";

bool isWholeInline(const Document& document, int start, int end) {
    return document.names.isInline(document.text().nameAround(start)) &&
           Selection::isContentOfElement(document, start, end);
}

/// What runs of text get, to be put in at once: each run an inline of its own or, where it is all
/// of an inline, that inline; and the blocks around them what no inline can have. A run that is put
/// off changes nothing for those behind it.
class RunPlan {
public:
    RunPlan(Document& document, const PropertyCollection& properties)
        : document_(document), ofInlines_(properties),
          ofBlocks_(Formatting::takeBlockProperties(ofInlines_)) {}

    /// Takes up the next run. Answers false, having done nothing, where more has to change than the
    /// run and its block.
    bool add(int start, int end) {
        const int block = document_.text().ancestor(end, L"fo:block");
        if (!mayStandInInline(start) || !mayStandOn(block))
            return false;
        if (!ofInlines_.isEmpty())
            runs_.push_back({start, end});
        if (!ofBlocks_.isEmpty() && block >= 0)
            blocks_.insert(block);
        return true;
    }

    /// Changes the text; answers by how much what is behind moved. The plan is then empty.
    int apply() {
        TextRewrite rewrite(document_);
        auto block = blocks_.begin();
        const auto formatBlocksBefore = [&](int position) {
            for (; block != blocks_.end() && *block < position; ++block)
                Attributes::plan(document_, *block, ofBlocks_, rewrite);
        };
        for (const Run& run : runs_) {
            formatBlocksBefore(run.start);
            formatRun(run, rewrite);
        }
        formatBlocksBefore(document_.text().length());
        runs_.clear();
        blocks_.clear();
        return rewrite.apply();
    }

private:
    struct Run {
        int start;
        int end;
    };

    bool mayStandInInline(int start) const {
        const Core::Vector<EditableProperty> list = ofInlines_.getPropertyList();
        return list.empty() || (document_.names.isInline(L"fo:inline") &&
                                std::all_of(list.begin(), list.end(), [&](const auto& property) {
                                    return isBoundAt(property.getNamespace(), start);
                                }));
    }

    bool mayStandOn(int block) const {
        return ofBlocks_.isEmpty() || block < 0 || isBoundAt(L"fo", block);
    }

    bool isBoundAt(const String& prefix, int position) const {
        return !Attributes::isStandardNamespace(prefix) ||
               Namespaces::isDeclaredAt(document_.text(), prefix, position);
    }

    void formatRun(const Run& run, TextRewrite& rewrite) const {
        if (isWholeInline(document_, run.start, run.end)) {
            Attributes::plan(document_, document_.text().elementAround(run.start), ofInlines_,
                             rewrite);
            return;
        }
        PropertyCollection attributes; // each name once
        attributes.addProperties(ofInlines_);
        rewrite.replace(run.start, run.start,
                        L"<fo:inline" + Attributes::asText(attributes, L"fo") + L">");
        rewrite.replace(run.end, run.end, L"</fo:inline>");
    }

    Document& document_;
    PropertyCollection ofInlines_;
    PropertyCollection ofBlocks_;
    std::vector<Run> runs_;
    std::set<int> blocks_;
};

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
    RunPlan plan(document, properties);
    for (int run = Formatting::startOfTextRun(document, from, limit()); run >= 0;) {
        int end = Formatting::endOfTextRun(document, run, limit());
        if (!plan.add(run, end)) {
            const int shift = plan.apply();
            end = formatTextRun(document, run + shift, end + shift, properties);
        }
        run = Formatting::startOfTextRun(document, Stops::next(document, end), limit());
    }
    plan.apply();
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
