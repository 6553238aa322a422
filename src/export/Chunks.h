#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <utility>

/// Text that grows at its end, takes over others without copying them, and in which a piece can
/// still be changed.
class Chunks {
public:
    bool empty() const { return pieces_.empty(); }

    void add(std::string_view text) {
        if (pieces_.empty() || endsApart_)
            pieces_.emplace_back();
        endsApart_ = false;
        pieces_.back() += text;
    }
    /// Answers where the text is, which stays there.
    std::string* addApart(std::string text) {
        endsApart_ = true;
        return &pieces_.emplace_back(std::move(text));
    }
    void take(Chunks& other) {
        endsApart_ = other.empty() ? endsApart_ : other.endsApart_;
        pieces_.splice(pieces_.end(), other.pieces_);
    }

    /// A place in the text: its end, now.
    struct Mark {
        const std::string* piece = nullptr;
        std::size_t size = 0;

        bool operator==(const Mark&) const = default;
    };
    Mark end() const {
        return pieces_.empty() ? Mark() : Mark{&pieces_.back(), pieces_.back().size()};
    }
    /// Puts something in the place of the last unit.
    void replaceLast(std::string_view text) {
        pieces_.back().replace(pieces_.back().size() - 1, 1, text);
    }

    std::string joined() const {
        std::string text;
        for (const std::string& piece : pieces_)
            text += piece;
        return text;
    }

private:
    std::list<std::string> pieces_;
    bool endsApart_ = false;
};
