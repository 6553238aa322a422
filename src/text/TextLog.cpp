#include "text/TextLog.h"

#include <utility>

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

TextMark::TextMark(std::shared_ptr<TextLog> log, const TextStore& text, bool isKnownWhole)
    : log_(std::move(log)), version_(&log_->current()), text_(text), isKnownWhole_(isKnownWhole) {}

/// The last mark but for the text itself takes the log along.
TextMark::~TextMark() {
    if (log_.use_count() == 2)
        log_->clear();
}
