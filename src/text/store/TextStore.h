#pragma once

#include "text/TextWindow.h"
#include "text/store/TextTree.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

/// A text that is read and changed in many places: a key costs the same in a short one and in a
/// book. A copy shares what is the same, and costs nothing.
///
/// Positions count units. Who reads keeps a place in the text, so that two threads need a copy
/// each.
class TextStore final : public TextWindow {
public:
    TextStore() = default;
    explicit TextStore(std::wstring_view text) : tree_(text) {}
    TextStore(const TextStore& other) : TextStore(other.tree_) {}
    TextStore(TextStore&& other) noexcept : tree_(std::move(other.tree_)) { other.forget(); }
    TextStore& operator=(const TextStore& other);
    TextStore& operator=(TextStore&& other) noexcept;
    ~TextStore() = default;

    int length() const { return tree_.measure().length; }
    /// Appends the units from `start` up to but excluding `end` to a text.
    void copyTo(std::wstring& text, int start, int end) const;

    /// The first and the last match from `start` up to but excluding `end`; -1 if none.
    int find(wchar_t unit, int start, int end) const;
    int findEither(wchar_t a, wchar_t b, int start, int end) const;
    int rFind(wchar_t unit, int start, int end) const;

    /// Puts other units in the place of `count` from `start` on. A change that raises has not
    /// happened.
    void replace(int start, int count, std::wstring_view with);

    // Markup. In a regular text it is what a scan meets from whatever place.

    /// Whether tags, comments, sections and references are the same read from both ends of the
    /// text.
    bool isRegular() const { return tree_.isRegular(); }
    /// Whether they are so, too, for XmlValidator, which takes nearly all markup for tags.
    bool isRegularAsTags() const { return tree_.isRegularAsTags(); }
    /// The first mark of one of the kinds at or behind a position that may be the length of the
    /// text, and the last one before it; -1 if none.
    int markFrom(int position, MarkKinds kinds) const;
    int markBefore(int position, MarkKinds kinds) const;
    /// The `<` of the markup that holds the position and begins before it; -1 where text stands or
    /// markup begins.
    int markupAround(int position) const;
    /// The first and the last place of the text around one, that with the `<` behind it, as far as
    /// one chunk goes.
    std::pair<int, int> stretchAround(int position) const;
    /// The innermost start tag that ends at or before the position and is not closed there; -1 if
    /// none.
    int elementAround(int position) const;

    /// What is wrong with how the text is held, in words; empty for a sound one.
    std::string_view fault() const { return tree_.fault(); }

private:
    explicit TextStore(const TextTree& tree) : tree_(tree) {}
    void moveTo(int position) const noexcept override;
    TextTree::Place placeOf(int position) const noexcept;
    /// The chunk that was read last, which is in the window.
    const TextChunk& chunkAt(int position) const;
    void forget() noexcept;
    template <typename Find>
    int findForward(int start, int end, Find find) const;

    TextTree tree_;
    /// Those that were read before: who asks about one place often looks at another meanwhile.
    mutable std::array<TextTree::Place, 4> recent_{};
    mutable std::size_t oldest_ = 0;
    mutable const TextChunk* chunk_ = nullptr;
};
