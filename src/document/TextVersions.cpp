#include "document/TextVersions.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/Transcoding.h"

#include <utility>

namespace {

void append(TextChange& all, const TextChange& later) noexcept {
    if (all.empty())
        all = later;
    else if (!later.empty())
        all.add(later);
}

/// The range without a half of a pair at its ends, which could not be converted by itself.
TextChange withWholePairs(const TextChange& change, const XmlText& text) {
    const int last = change.start - 1;
    const int next = change.start + change.inserted;
    const bool isHalfBefore =
        text.isValid(last) && Core::Transcoding::isHighSurrogate(text.unitAt(last));
    const bool isHalfBehind =
        text.isValid(next) && Core::Transcoding::isLowSurrogate(text.unitAt(next));
    const int lead = isHalfBefore ? 1 : 0;
    const int more = lead + (isHalfBehind ? 1 : 0);
    return {change.start - lead, change.removed + more, change.inserted + more};
}

} // namespace

TextVersions::Number TextVersions::current() noexcept {
    if (!sinceLast_.empty()) {
        changes_[last_ % kept] = std::exchange(sinceLast_, {});
        ++last_;
    }
    return last_;
}

std::optional<TextChange> TextVersions::changeSince(Number version) const noexcept {
    if (version > last_ || last_ - version > kept)
        return std::nullopt;
    TextChange whole;
    for (; version < last_; ++version)
        append(whole, changes_[version % kept]);
    append(whole, sinceLast_);
    return whole;
}

void TextVersions::add(const TextChange& change) noexcept {
    append(sinceLast_, change);
}

/// What no version came of, nobody has seen: it leaves no trace. A version that was given to a host
/// stays one of the versions before this one.
void TextVersions::goBackTo(const Mark& mark, int length, int lengthThen) noexcept {
    if (mark.last == last_) {
        sinceLast_ = mark.sinceLast;
        return;
    }
    TextChange back{0, length, lengthThen};
    if (const std::optional<TextChange> made = changeSince(mark.last)) {
        back = made->undone();
        append(back, mark.sinceLast);
    }
    append(sinceLast_, back);
}

std::uint64_t EditableDocumentBuffer::getTextVersion() const {
    return document_->textVersion();
}

std::optional<TextChange> EditableDocumentBuffer::changeSince(std::uint64_t version) const {
    const std::optional<TextChange> change = document_->versions().changeSince(version);
    return change && !change->empty() ? withWholePairs(*change, document_->text()) : change;
}
