#include "text/store/MarkupReader.h"

#include "foundation/String.h"
#include "text/store/StoreWork.h"
#include "text/store/TextUnits.h"

#include <algorithm>
#include <array>
#include <string_view>

using Mode = LexicalState::Mode;
using Quotes = LexicalState::Quotes;
using Tail = LexicalState::Tail;

namespace {

/// What may follow "<!", and what is then read.
struct Keyword {
    std::wstring_view units;
    Mode mode;
};
constexpr std::array keywords{Keyword{L"--", Mode::Comment}, Keyword{L"[CDATA[", Mode::CData},
                              Keyword{L"DOCTYPE", Mode::DocumentType}};

Quotes quotesOf(wchar_t unit) {
    return unit == L'"' ? Quotes::Double : unit == L'\'' ? Quotes::Single : Quotes::None;
}

Tail tailBehind(Tail tail, wchar_t unit) {
    switch (unit) {
    case L'-':
        return tail == Tail::Dash || tail == Tail::Dashes ? Tail::Dashes : Tail::Dash;
    case L']':
        return tail == Tail::Bracket || tail == Tail::Brackets ? Tail::Brackets : Tail::Bracket;
    case L'?':
        return Tail::Question;
    case L'<':
        return Tail::Less;
    default:
        return Tail::None;
    }
}

/// Whether a ">" behind it ends a section of whatever kind.
bool endsSection(Tail tail) {
    return tail == Tail::Dashes || tail == Tail::Brackets || tail == Tail::Question;
}

} // namespace

bool MarkupReader::isPlain(wchar_t unit) {
    return unit != L'<' && unit != L'>' && unit != L'-' && unit != L']' && unit != L'?' &&
           unit != L'&';
}

bool MarkupReader::endsReference(wchar_t unit) {
    return unit == L';' || unit == L'&' || unit == L'<' || unit == L'>' || unit == L'"' ||
           unit == L'\'' || Core::String::isSpace(unit);
}

void MarkupReader::read(const unsigned char* bytes, int size, bool isWide) {
    StoreWork::ofThisThread().units += size;
    if (isWide)
        readAll(size, [bytes](int at) { return TextUnits::wideUnitAt(bytes, at); });
    else
        readAll(size, [bytes](int at) { return static_cast<wchar_t>(bytes[at]); });
}

template <typename UnitAt>
void MarkupReader::readAll(int size, UnitAt unitAt) {
    for (int at = 0; at < size; ++at) {
        const wchar_t unit = unitAt(at);
        if (state_.isPlainText() && isPlain(unit))
            continue;
        readUnit(static_cast<std::uint16_t>(at), unit);
    }
}

void MarkupReader::readUnit(std::uint16_t at, wchar_t unit) {
    switch (state_.mode) {
    case Mode::Text:
        return readText(at, unit);
    case Mode::Markup:
        return readMarkup(at, unit);
    case Mode::Declaration:
        return readDeclaration(at, unit);
    case Mode::Comment:
        faults_.tags += endsByOpener(unit);
        return readSection(at, unit, Tail::Dashes);
    case Mode::CData:
        return readSection(at, unit, Tail::Brackets);
    case Mode::Instruction:
        faults_.tags += endsUnlikeTag(unit);
        return readSection(at, unit, Tail::Question);
    case Mode::Tag:
    case Mode::ClosingTag:
        return readTag(at, unit);
    case Mode::DocumentType:
        return readDocumentType(at, unit);
    }
}

void MarkupReader::readText(std::uint16_t at, wchar_t unit) {
    if (readReference(unit)) {
        state_.isBehindProlog = true;
        return;
    }
    if (unit == L'<') {
        marks_.push_back({at, MarkKind::CutStart});
        begin(Mode::Markup);
        return;
    }
    faults_.ends += unit == L'>' && endsSection(state_.tail);
    state_.tail = tailBehind(state_.tail, unit);
    state_.isBehindProlog = state_.isBehindProlog || !Core::String::isSpace(unit);
}

void MarkupReader::readMarkup(std::uint16_t at, wchar_t unit) {
    if (unit == L'!' || unit == L'?') {
        begin(unit == L'!' ? Mode::Declaration : Mode::Instruction);
        return;
    }
    begin(unit == L'/' ? Mode::ClosingTag : Mode::Tag);
    state_.isBehindProlog = true;
    if (unit == L'/') {
        state_.tail = Tail::Slash;
        return;
    }
    faults_.ends += unit == L'>' || Core::String::isSpace(unit);
    readTag(at, unit);
}

/// A declaration that is none of the known ones is read like a tag, but in a document type like
/// anything else there.
void MarkupReader::readDeclaration(std::uint16_t at, wchar_t unit) {
    const auto goesOn = [&](const Keyword& keyword) { return keyword.units[state_.read] == unit; };
    if (state_.read == 0) {
        const auto* const known = std::find_if(keywords.begin(), keywords.end(), goesOn);
        state_.keyword = static_cast<std::uint8_t>(known - keywords.begin());
    }
    if (state_.keyword < keywords.size() && goesOn(keywords[state_.keyword])) {
        if (++state_.read == keywords[state_.keyword].units.size())
            beginDeclared(keywords[state_.keyword].mode);
        return;
    }
    const bool hasOpenedBracket = state_.read > 0 && keywords[state_.keyword].mode == Mode::CData;
    if (state_.isInType) {
        begin(Mode::DocumentType);
        state_.isInBrackets = state_.isInBrackets || hasOpenedBracket;
        readDocumentType(at, unit);
    } else {
        ++faults_.ends;
        begin(Mode::Tag);
        readTag(at, unit);
    }
}

void MarkupReader::beginDeclared(Mode mode) {
    faults_.ends += mode == Mode::DocumentType && state_.isBehindProlog && !state_.isInType;
    begin(mode);
    state_.isBehindProlog = state_.isBehindProlog || mode == Mode::DocumentType;
}

void MarkupReader::readSection(std::uint16_t at, wchar_t unit, Tail end) {
    if (unit == L'>' && state_.tail == end) {
        if (state_.isInType)
            begin(Mode::DocumentType);
        else
            this->end(at, end == Tail::Question ? MarkKind::OtherEnd : MarkKind::SectionEnd);
        return;
    }
    faults_.ends += (unit == L'>' && endsSection(state_.tail)) ||
                    ((unit == L'!' || unit == L'?') && state_.tail == Tail::Less);
    state_.tail = tailBehind(state_.tail, unit);
}

void MarkupReader::readTag(std::uint16_t at, wchar_t unit) {
    const bool isClosing = state_.mode == Mode::ClosingTag;
    faults_.ends += unit == L'<';
    if (readReference(unit))
        return;
    const bool isQuoted = state_.quotes != Quotes::None;
    if (readQuotes(unit)) {
        faults_.ends += isClosing;
        faults_.tags += !isQuoted && !state_.isValueDue;
        state_.isValueDue = false;
        state_.tail = Tail::None;
    } else if (unit == L'>') {
        const bool isSlashed = state_.tail == Tail::Slash;
        faults_.ends += isClosing && isSlashed;
        faults_.tags += state_.isValueDue;
        end(at, isClosing   ? MarkKind::ClosingEnd
                : isSlashed ? MarkKind::EmptyEnd
                            : MarkKind::OpeningEnd);
    } else {
        state_.isValueDue = state_.isValueDue || unit == L'=';
        state_.tail = unit == L'/' ? Tail::Slash : Tail::None;
    }
}

void MarkupReader::readDocumentType(std::uint16_t at, wchar_t unit) {
    if (readQuotes(unit)) {
        state_.tail = Tail::None;
    } else if (unit == L'>' && !state_.isInBrackets) {
        end(at, MarkKind::OtherEnd);
    } else if ((unit == L'!' || unit == L'?') && state_.tail == Tail::Less) {
        begin(unit == L'!' ? Mode::Declaration : Mode::Instruction);
        state_.isInType = true;
    } else {
        if (unit == L'[' || unit == L']')
            state_.isInBrackets = unit == L'[';
        state_.hasDeclarations = state_.hasDeclarations || unit == L'<';
        faults_.tags += unit == L'=' || (unit == L'>' && !state_.hasDeclarations);
        state_.tail = unit == L'<' ? Tail::Less : Tail::None;
    }
}

/// Whether the unit belongs to a reference, which "&" begins.
bool MarkupReader::readReference(wchar_t unit) {
    if (state_.tail == Tail::Reference) {
        const bool isPart = !endsReference(unit) && state_.read < longestReference;
        if (isPart) {
            ++state_.read;
            return true;
        }
        faults_.ends += unit != L';';
        state_.tail = Tail::None;
        state_.read = 0;
    }
    if (unit == L'&')
        state_.tail = Tail::Reference;
    return unit == L'&';
}

/// Whether the unit opens or closes quotes or stands in them.
bool MarkupReader::readQuotes(wchar_t unit) {
    const Quotes quotes = quotesOf(unit);
    if (state_.quotes == Quotes::None)
        state_.quotes = quotes;
    else if (state_.quotes == quotes)
        state_.quotes = Quotes::None;
    else
        return true;
    return quotes != Quotes::None;
}

/// In "<!-->" or "<!--->" the hyphens that open the comment would close it, too.
bool MarkupReader::endsByOpener(wchar_t unit) {
    const bool isAllHyphens = state_.read == 0 || (state_.read == 1 && state_.tail == Tail::Dash);
    state_.read = static_cast<std::uint8_t>(std::min(state_.read + 1, 2));
    return isAllHyphens && unit == L'>';
}

/// Reads the values of an instruction like those of a tag. Whether a ">" ends the one and not the
/// other.
bool MarkupReader::endsUnlikeTag(wchar_t unit) {
    if (state_.isInType)
        return false;
    const Quotes quotes = quotesOf(unit);
    const bool isQuoted = state_.quotes != Quotes::None;
    const bool ends = state_.tail == Tail::Question;
    if (unit == L'>')
        return isQuoted ? ends : !ends || state_.isValueDue;
    if (isQuoted && quotes == state_.quotes) {
        state_.quotes = Quotes::None;
    } else if (state_.isValueDue && quotes != Quotes::None) {
        state_.quotes = quotes;
        state_.isValueDue = false;
    } else if (!isQuoted) {
        state_.isValueDue = state_.isValueDue || unit == L'=';
    }
    return false;
}

void MarkupReader::begin(Mode mode) {
    state_.mode = mode;
    state_.tail = Tail::None;
    state_.read = 0;
    state_.keyword = 0;
    state_.isInType = state_.isInType && mode != Mode::DocumentType;
}

void MarkupReader::end(std::uint16_t at, MarkKind kind) {
    marks_.push_back({at, kind});
    state_ = {.isBehindProlog = state_.isBehindProlog};
}
