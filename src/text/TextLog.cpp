#include "text/TextLog.h"

#include <algorithm>
#include <utility>

/// A change that has come to nothing counts, for the range is to hold every place that was touched.
void TextChange::add(const TextChange& later) {
    const int first = std::min(start, later.start);
    const int lead = start - first;
    const int tail = std::max(0, later.start + later.removed - (start + inserted));
    start = first;
    removed += lead + tail;
    inserted += lead + tail + later.inserted - later.removed;
}

TextLog::Version& TextLog::prepare(const TextChange& change) {
    Version& version = versions_.emplace_front();
    version.before = current_;
    version.depth = current_->depth + 1;
    version.change = change;
    return version;
}

void TextLog::clear() noexcept {
    versions_.clear();
    oldest_ = Version();
    current_ = &oldest_;
}

TextMark::TextMark(std::shared_ptr<TextLog> log, const TextStore& text, bool isRegular)
    : log_(std::move(log)), version_(&log_->current()), text_(text), isRegular_(isRegular) {}

/// The last mark but for the text itself takes the log along.
TextMark::~TextMark() {
    if (log_.use_count() == 2)
        log_->clear();
}
