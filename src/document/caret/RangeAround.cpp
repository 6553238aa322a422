#include "document/caret/RangeAround.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/NearText.h"
#include "document/caret/Words.h"
#include "foundation/SmartPtr.h"

#include <algorithm>
#include <string_view>

using Core::String;
using Units = std::wstring_view;

namespace {

/// A blank, a punctuation mark of whatever script, an object.
bool isBetweenWords(wchar_t unit) {
    return Words::isSeparator(unit) || String::isSpace(unit) || (unit >= 0x2000 && unit < 0x2070) ||
           (unit >= 0x3000 && unit < 0x3040) || unit == 0xFFFC;
}

/// What a document knows of the units of text by itself: blanks, punctuation marks, code points.
class OwnRules : public TextSegmenter {
public:
    int next(Unit unit, Units text, int position) const override {
        const auto size = static_cast<int>(text.size());
        do
            ++position;
        while (position < size && !isBoundary(unit, text, static_cast<std::size_t>(position)));
        return position;
    }

    int previous(Unit unit, Units text, int position) const override {
        do
            --position;
        while (position > 0 && !isBoundary(unit, text, static_cast<std::size_t>(position)));
        return position;
    }

private:
    static bool isBoundary(Unit unit, Units text, std::size_t at) {
        switch (unit) {
        case Unit::Cluster:
            return text[at] < 0xDC00 || text[at] > 0xDFFF;
        case Unit::Word:
            return !(isInWord(text, at - 1) && isInWord(text, at));
        case Unit::Sentence:
            return beginsSentence(text, at);
        }
        return true;
    }

    /// An apostrophe is part of a word that goes on behind it.
    static bool isInWord(Units text, std::size_t at) {
        const bool isApostrophe = text[at] == L'\'' || text[at] == L'\x2019';
        if (isApostrophe)
            return at > 0 && at + 1 < text.size() && isLetter(text[at - 1]) &&
                   isLetter(text[at + 1]);
        return isLetter(text[at]);
    }

    static bool isLetter(wchar_t unit) { return !isBetweenWords(unit); }

    /// Behind the blanks that follow a mark at the end of a sentence, quotes and brackets passed.
    static bool beginsSentence(Units text, std::size_t at) {
        if (text[at - 1] == 0x2028)
            return true;
        if (!isBlank(text[at - 1]) || isBlank(text[at]))
            return false;
        while (at > 0 && isBlank(text[at - 1]))
            --at;
        while (at > 0 && Units(L"\"')]\x201D\x2019\x00BB").find(text[at - 1]) != Units::npos)
            --at;
        return at > 0 && Units(L".!?\x2026\x3002\xFF01\xFF1F").find(text[at - 1]) != Units::npos;
    }

    static bool isBlank(wchar_t unit) { return String::isSpace(unit) || unit == 0x00A0; }
};

TextSegmenter::Unit kindOf(TextUnit unit) {
    return unit == TextUnit::Word       ? TextSegmenter::Unit::Word
           : unit == TextUnit::Sentence ? TextSegmenter::Unit::Sentence
                                        : TextSegmenter::Unit::Cluster;
}

bool showsNothing(wchar_t unit) {
    return String::isSpace(unit) || unit == 0x00A0 || unit == 0x2028;
}

/// Finds a unit in as much text around a place as it takes.
class UnitSearch {
public:
    UnitSearch(const Document& document, TextUnit unit, int position)
        : segmenter_(document.textSegmenter ? document.textSegmenter
                                            : SmartPtr<TextSegmenter>(new OwnRules)),
          unit_(unit), near_(document, position) {}

    std::optional<TextRange> run() {
        readEnough();
        if (near_.length() == 0)
            return std::nullopt;
        const int size = near_.length();
        const int at = near_.index();
        if (at < size && isWanted(at))
            return rangeAt(at);
        return at > 0 && isWanted(at - 1) ? rangeAt(at - 1) : std::nullopt;
    }

private:
    /// Until the units around the place have others around them, or the paragraph ends: what stands
    /// at the ends of the text that is looked at need not be whole.
    void readEnough() {
        bool isAllBefore = false;
        bool isAllBehind = false;
        for (int count = 64;; count *= 2) {
            isAllBefore = isAllBefore || !near_.growBack(count);
            isAllBehind = isAllBehind || !near_.growForward(count);
            text_ = near_.text();
            const auto size = static_cast<int>(text_.size());
            if (size == 0)
                return;
            const int at = std::min(near_.index(), size - 1);
            const int inner = at > 0 ? previous(at) : 0;
            const bool hasBefore = isAllBefore || (inner > 0 && previous(inner) > 0);
            const bool hasBehind = isAllBehind || (next(at) < size && next(next(at)) < size);
            if (hasBefore && hasBehind)
                return;
        }
    }

    bool isWanted(int at) const {
        return unit_ != TextUnit::Word || !isBetweenWords(text_[static_cast<std::size_t>(at)]);
    }

    std::optional<TextRange> rangeAt(int at) const {
        const auto size = static_cast<int>(text_.size());
        int start = at + 1 < size ? previous(at + 1) : previous(size);
        int end = next(start);
        while (unit_ == TextUnit::Sentence && end > start + 1 &&
               showsNothing(text_[static_cast<std::size_t>(end) - 1]))
            --end;
        return TextRange{near_.placeAt(start).start, near_.placeAt(end - 1).end};
    }

    int next(int at) const { return segmenter_->next(kindOf(unit_), text_, at); }
    int previous(int at) const { return segmenter_->previous(kindOf(unit_), text_, at); }

    SmartPtr<TextSegmenter> segmenter_;
    TextUnit unit_;
    NearText near_;
    std::wstring text_;
};

} // namespace

std::optional<TextRange> RangeAround::find(const Document& document, TextUnit unit, int position) {
    const XmlText& text = document.text();
    const int block = text.ancestor(position, L"fo:block");
    if (block < 0 || text.unitStart(position) != position)
        return std::nullopt;
    if (unit == TextUnit::Paragraph)
        return TextRange{text.next(block), text.closingTag(block)};
    return UnitSearch(document, unit, position).run();
}

std::optional<TextRange> EditableDocumentBuffer::getRangeAround(TextUnit unit, int position) const {
    return RangeAround::find(*document_, unit, position);
}

void EditableDocumentBuffer::setTextSegmenter(const SmartPtr<TextSegmenter>& segmenter) {
    document_->textSegmenter = segmenter;
}

void EditableDocumentBuffer::setClusterSteps(bool on) {
    document_->modes.clusterSteps = on;
}

bool EditableDocumentBuffer::hasClusterSteps() const {
    return document_->modes.clusterSteps;
}
