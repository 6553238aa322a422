#pragma once

#include "foundation/Allocator.h"
#include "foundation/Api.h"
#include "foundation/StoredText.h"

#include <compare>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace Core {

/// Text as a sequence of 16-bit code units, one in each wchar_t on every platform, so that offsets
/// are the same everywhere. Code points above U+FFFF in what comes in through a `const wchar_t*`
/// are split into surrogate pairs.
///
/// A String is a value: a copy is independent of its original. Copies share their storage until one
/// of them is changed, so copying costs the same for a word and for a book. A change in place moves
/// only what stands behind it, and leaves room to grow.
///
/// A long text may be held in pieces, as the content of a document is. Length, units, searches and
/// subString() work on these; all else first makes them one piece, which costs once.
///
/// Offsets and counts are code units. As arguments they are unsigned, and a value above 2^31 counts
/// as negative. Searches answer -1 when there is no match; an empty `what` is met at every offset,
/// and nowhere in an empty text. A null `const wchar_t*` is the empty text.
class FORME_API String {
public:
    /// Offsets and counts in arguments.
    using Size = unsigned long long;

    String() noexcept = default;
    String(const wchar_t* text);
    /// The first `count` units of `text`, which has at least so many; none if `count` is negative.
    String(const wchar_t* text, Size count);
    /// Widens byte by byte: each byte becomes the code unit of the same value.
    String(const char* text);
    /// `count` times the code unit `ch`; the empty text if `count` is negative.
    String(wchar_t ch, Size count);
    explicit String(std::wstring_view text);
    /// Takes the storage over without a copy. The elements are taken as they are, so they must be
    /// code units already.
    explicit String(std::wstring&& units);

    /// Stands for a text that somebody holds in pieces.
    explicit String(std::shared_ptr<const StoredText> text);

    static String toUnicode(const char* text) { return String(text); }

    int length() const noexcept { return units_ ? units_->length() : 0; }
    bool empty() const noexcept { return length() == 0; }

    /// Element access; the caller has checked the bounds.
    wchar_t operator[](int offset) const { return units_->unitAt(offset); }
    wchar_t charAt(Size offset) const { return units_->unitAt(static_cast<int>(offset)); }
    /// A place to write through. It stays valid until the next change of this String; meanwhile
    /// copies of this String do not share its storage.
    wchar_t& operator[](int offset);

    /// The units, zero-terminated; valid until the next change.
    const wchar_t* c_str() const { return units_ ? units_->inOnePiece().c_str() : L""; }
    operator const wchar_t*() const { return c_str(); }
    /// The units without a copy; valid until the next change.
    std::wstring_view view() const {
        return units_ ? std::wstring_view(units_->inOnePiece()) : std::wstring_view();
    }
    operator std::wstring_view() const { return view(); }

    String(const String& other);
    String(String&& other) noexcept;
    String& operator=(const String& other);
    String& operator=(String&& other) noexcept;
    String& operator=(const wchar_t* text) { return *this = String(text); }
    ~String() = default;

    String& operator+=(const wchar_t* text) { return append(text); }
    String& operator+=(const String& text) { return append(text); }
    String& operator+=(wchar_t ch);
    String& append(const wchar_t* text);
    String& append(const String& text);
    void clear() noexcept { *this = String(); }

    /// The units from `start` through `end`, both included; `subString(a, a)` has length 1. A
    /// negative start counts as 0 and an end past the text as its last offset; `end < start` is
    /// empty.
    String subString(Size start, Size end) const;

    /// The first match that begins at or after `start`; -1 if none, or if `start` is negative or
    /// past the end.
    int find(wchar_t ch, Size start) const noexcept;
    int find(const wchar_t* what, Size start) const;
    int find(const String& what, Size start) const;

    /// The last match that begins at or before `start`; -1 if none, or if `start` is negative. A
    /// start past the end, or none, searches from the end.
    int rFind(wchar_t ch) const noexcept;
    int rFind(wchar_t ch, Size start) const noexcept;
    int rFind(const wchar_t* what, Size start) const;
    int rFind(const String& what, Size start) const;

    bool startsWith(const String& prefix) const;
    bool endsIn(const wchar_t* suffix) const;

    /// Zero for equal, negative or positive for before or after, code unit by code unit.
    int compare(const wchar_t* other) const;
    /// The same for the lower-case forms of both.
    int compareNoCase(const wchar_t* other) const;

    /// The part before the first occurrence of `mark`; empty without one.
    String substringBefore(const String& mark) const;
    /// The part after the first occurrence of `mark`; the whole text without one.
    String substringAfter(const String& mark) const;
    /// The pieces between the occurrences of `separator`, empty ones included. An empty text gives
    /// one empty piece.
    std::vector<String, STLAllocator<String>> split(wchar_t separator) const;

    /// Inserts before offset `position`, which is clipped to the text.
    void insert(Size position, const wchar_t* text);
    void insert(Size position, const String& text);
    /// Removes `count` units from `start`, clipped to the text.
    void erase(Size start, Size count);
    /// Puts `with` in the place of `count` units from `start`, clipped to the text.
    void replace(Size start, Size count, const String& with);
    /// Replaces every occurrence from left to right, never searching what it put in; answers how
    /// many. An empty `what` occurs nowhere.
    int replaceAll(const wchar_t* what, const wchar_t* with);
    /// Removes white space at both ends, in place.
    String& trim();
    /// Copies with every unit in the other case, by Unicode's simple mapping in every locale.
    String toLower() const;
    String toUpper() const;
    /// Reverses the units from `first` through `last`, both included, in place.
    void reverse(int first, int last);

    /// 0 to 9.
    static bool isDigit(wchar_t ch) noexcept { return ch >= L'0' && ch <= L'9'; }
    /// U+0009 to U+000D and U+0020, in every locale. U+00A0 is no white space.
    static bool isSpace(wchar_t ch) noexcept { return ch == L' ' || (ch >= L'\t' && ch <= L'\r'); }
    /// The decimal text of `value`.
    static String formatS(int value);
    /// The text of a numeric resource identifier, valid until it is set; empty for an unknown one.
    /// 19600 tells that no page uses the page type {0}, 19601 what can be edited on its page, 19602
    /// stands in a new region.
    static const wchar_t* loadString(int id);
    /// Gives it another text, in the language of the host's users; those three are English until
    /// then. It holds for all documents, and no other thread may be at work meanwhile.
    static void setResourceText(int id, const String& text);

    friend bool operator==(const String& a, const String& b) {
        return a.units_ == b.units_ || (a.length() == b.length() && a.view() == b.view());
    }
    friend bool operator==(const String& a, const wchar_t* b) { return a.compare(b) == 0; }
    friend std::strong_ordering operator<=>(const String& a, const String& b) {
        return a.view().compare(b.view()) <=> 0;
    }

    friend FORME_API String operator+(const String& a, const String& b);
    friend FORME_API String operator+(const String& a, const wchar_t* b);
    friend FORME_API String operator+(const wchar_t* a, const String& b);
    // Else these would be sums of a pointer and a number. Use += or String(ch, 1).
    friend String operator+(const String& a, wchar_t b) = delete;
    friend String operator+(wchar_t a, const String& b) = delete;

private:
    /// What copies share.
    class FORME_API Units {
    public:
        explicit Units(std::wstring units) : units_(std::move(units)) {}
        explicit Units(std::shared_ptr<const StoredText> text) : stored_(std::move(text)) {}

        int length() const noexcept {
            return stored_ ? stored_->length() : static_cast<int>(units_.size());
        }
        wchar_t unitAt(int offset) const {
            return stored_ ? stored_->unitAt(offset) : units_[static_cast<std::size_t>(offset)];
        }
        /// Null for a text that is one piece from the beginning.
        const StoredText* stored() const noexcept { return stored_.get(); }
        const std::wstring& inOnePiece() const {
            if (stored_)
                join();
            return units_;
        }
        /// To be changed, of a text that is one piece from the beginning.
        std::wstring& own() { return units_; }

    private:
        void join() const;

        mutable std::wstring units_;
        mutable std::once_flag isJoined_;
        std::shared_ptr<const StoredText> stored_;
    };

    const StoredText* stored() const noexcept { return units_ ? units_->stored() : nullptr; }
    bool isOwn() const noexcept { return units_ && units_.use_count() == 1 && !stored(); }
    int findText(std::wstring_view what, Size start) const;
    int rFindText(std::wstring_view what, Size start) const;
    void splice(std::size_t start, std::size_t count, std::wstring_view with);
    void makeUnique();

    std::shared_ptr<Units> units_; // null while nothing was ever put in
    bool lent_ = false; // a reference from operator[] is about, so the storage must not be shared
};

} // namespace Core
