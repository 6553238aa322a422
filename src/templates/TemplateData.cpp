#include "templates/TemplateData.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "text/RootChildren.h"
#include "trees/KeptSpelling.h"

#include <optional>

using Core::String;
using XmlScan::Text;

namespace {

const String closingTag = L"</qfd:document>";

struct Range {
    int start;
    int end; ///< excluded
};

/// The root's own page masters; -1 for none. Where something ahead of them has no end, it is for
/// the parser to tell what is wrong.
int mastersIn(const XmlText& text) {
    if (const int own = RootChildren::named(text, L"fo:layout-master-set"); own >= 0)
        return own;
    const int found = text.layoutMasterSet();
    const int around = text.elementAround(found);
    return around != text.root() && text.closingTag(around) >= 0 ? -1 : found;
}

std::optional<Range> rangeIn(const XmlText& text) {
    const int root = text.root();
    const int masters = mastersIn(text);
    if (text.tagName(root) != L"qfd:document" || masters < 0)
        return std::nullopt;
    return Range{root, masters};
}

/// The markup without references to carriage returns. What stands in a comment or a section is no
/// reference.
String withoutReturns(Text markup) {
    static constexpr Text reference = L"&#13;";
    std::wstring kept;
    int copied = 0;
    for (int at = 0; at < static_cast<int>(markup.size());) {
        if (XmlScan::standsAt(markup, reference, at)) {
            kept += XmlScan::slice(markup, copied, at);
            copied = at += static_cast<int>(reference.size());
        } else {
            at = XmlScan::ignoredAt(markup, at) ? XmlScan::unitEnd(markup, at) : at + 1;
        }
    }
    kept += XmlScan::slice(markup, copied, static_cast<int>(markup.size()));
    return String(std::move(kept));
}

String withoutClosingTag(const String& element) {
    return String(XmlScan::slice(element.view(), 0, element.length() - closingTag.length())).trim();
}

} // namespace

TemplateData::TemplateData(Document& document) : document_(&document), fragment_(&document) {
    read();
}

void TemplateData::read() {
    const std::optional<Range> range = rangeIn(document_->text());
    if (!range)
        return;
    fragment_.readHead(range->start, range->end);
    source_ = fragment_.source();
    asRead_ = fragment_.asRead();
}

String TemplateData::documentType() const {
    return String(document_->text().prolog().documentType);
}

bool TemplateData::commit() {
    const String edited = Fragment::textOf(*fragment_.tree());
    const String written = withoutReturns(edited.view());
    const std::optional<Range> range = rangeIn(document_->text());
    if (!range || document_->text().view(range->start, range->end) != Text(source_))
        throw Core::Exception(L"what stands ahead of the page masters has changed since it was "
                              L"read, so it is not overwritten");
    if (written != asRead_ && !write(range->start, written))
        return false;
    if (written != edited)
        read();
    return true;
}

bool TemplateData::write(int start, const String& written) {
    const String text = withoutClosingTag(keepSpelling(source_ + closingTag, asRead_, written));
    const CommitCaret caret{{document_->caret(), document_->pivot()}, {}};
    if (text != source_ && !DocumentSeam(document_).replace(start, start + source_.length() - 1,
                                                            text, caret, Prefixes::Declared))
        return false;
    // The root may have gained declarations.
    if (const std::optional<Range> now = rangeIn(document_->text()))
        source_ = document_->text().slice(now->start, now->end);
    asRead_ = written;
    return true;
}
