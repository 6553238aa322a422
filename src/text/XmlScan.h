#pragma once

#include "text/TextView.h"

#include <functional>

class UnitMemo;

/// The tag level of scanning: pure functions that answer questions about a text of XML from a given
/// offset. No tree is built and nothing is remembered; every scan is linear in the distance walked.
///
/// Positions are offsets in 16-bit code units, valid from 0 to length - 1; -1 means no position and
/// is the answer of every scan that finds nothing. The scans assume text that is kept well formed.
namespace XmlScan {

using Text = TextView;

/// Whether a scan reads the document or a fragment cut out of it. The two differ in a few corners
/// that the editing commands were tuned against; each difference stands in one place, with a
/// comment.
enum class Source { Document, Fragment };

inline constexpr Text commentStart = L"<!--";
inline constexpr Text commentEnd = L"-->";
inline constexpr Text cdataStart = L"<![CDATA[";
inline constexpr Text cdataEnd = L"]]>";
inline constexpr Text instructionStart = L"<?";
inline constexpr Text instructionEnd = L"?>";
inline constexpr Text nbspEntity = L"&#x00A0;";
inline constexpr Text nbspCharacter = L"\x00A0";
/// The element with whose closing tag scanning ends.
inline constexpr Text foRoot = L"fo:root";
inline constexpr Text foRootEnd = L"</fo:root>";
/// Whether a unit ends the name of an entity, which is one if that is the ";".
constexpr bool endsEntityName(wchar_t unit) noexcept {
    return unit == L';' || unit == L'&' || unit == L'<' || unit == L'>' || unit == L' ' ||
           unit == L'\t' || unit == L'\n' || unit == L'\r';
}

inline int length(Text text) noexcept {
    return static_cast<int>(text.size());
}
inline bool isValid(Text text, int position) noexcept {
    return position >= 0 && static_cast<std::size_t>(position) < text.size();
}
/// The unit at a position that is known to be valid.
inline wchar_t unitAt(Text text, int position) noexcept {
    return text[static_cast<std::size_t>(position)];
}
/// The units from `start` up to but excluding `end`, both within the text.
inline Text slice(Text text, int start, int end) noexcept {
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

/// The first match that begins at or after `start`; -1 if none or if `start` is negative.
int find(Text text, wchar_t unit, int start) noexcept;
int find(Text text, Text what, int start) noexcept;
/// The last match that begins at or before `start`; -1 if none or if `start` is negative.
int rFind(Text text, wchar_t unit, int start) noexcept;
int rFind(Text text, Text what, int start) noexcept;

/// Whether `what` stands at `position`, which may be any number.
inline bool standsAt(Text text, Text what, int position) noexcept {
    if (position < 0 || static_cast<std::size_t>(position) + what.size() > text.size())
        return false;
    // Nearly every question is answered by the first unit.
    std::size_t same = 0;
    while (same < what.size() && text[static_cast<std::size_t>(position) + same] == what[same])
        ++same;
    return same == what.size();
}

/// Whether a valid position is on `<`, of whatever kind of markup.
inline bool onTagStart(Text text, int position) noexcept {
    return isValid(text, position) && unitAt(text, position) == L'<';
}
bool commentAt(Text text, int position) noexcept;
bool cdataAt(Text text, int position) noexcept;
bool instructionAt(Text text, int position) noexcept;
/// Whether a document type stands there, with all that it declares.
bool documentTypeAt(Text text, int position) noexcept;
/// The offset after the document type at `position`; -1 where its end is missing.
int documentTypeEnd(Text text, int position) noexcept;
/// A comment, CDATA section or processing instruction.
bool ignoredAt(Text text, int position) noexcept;
/// Whether what begins at a position can be something else than the tag of an element.
bool declarationAt(Text text, int position) noexcept;
bool selfClosingAt(Text text, int position) noexcept;
/// Whether the tag at a valid `<` begins with "</".
bool closingAt(Text text, int position) noexcept;
/// A start tag that has a closing tag of its own: none of the above.
bool openingAt(Text text, int position) noexcept;

/// The name of the tag at `position`, with prefix: "fo:block", "/fo:block", "?xml", "!--"; empty
/// when the position is not on `<` or the name runs off the text. It is a view into `text`.
Text tagName(Text text, int position) noexcept;
/// The name without what stands before and with its first ":".
Text localName(Text name) noexcept;

/// The first `>` at or after `from` that stands in no quotes; -1 if none.
int tagEnd(Text text, int from) noexcept;

/// One step forward over one unit of text: a character (a surrogate pair is one), an entity, a tag,
/// a comment, a CDATA section, a processing instruction or a document type. -1 at "</fo:root>" and
/// where the text ends; after a plain last character the answer is the length of the text.
int stepForward(Text text, int position, Source source = Source::Document) noexcept;

/// One step backward. -1 at the start of the text and on the tag named `rootName`, if that is not
/// empty.
int stepBackward(Text text, int position, Text rootName) noexcept;
/// The same, where `overBracket` tells for a `>` where the step over it leads.
int stepBackward(Text text, int position, Text rootName,
                 const std::function<int(int bracket)>& overBracket);

/// Where the unit that holds a valid position begins: that position itself, unless it lies inside a
/// tag, an entity, a surrogate pair, a comment, a CDATA section, a processing instruction or a
/// document type. Scans from the start of the text, since what looks like markup may be the content
/// of a section.
int unitStart(Text text, int position) noexcept;

/// The same for a position that is known to be text or to begin markup; any other is its own unit.
int unitStartInText(Text text, int position) noexcept;
/// The same, with a memo of the units that end the names of entities.
int unitStartInText(Text text, int position, UnitMemo& nameEnds) noexcept;

/// The offset behind the unit that begins at a valid position, the length of the text included; -1
/// where the unit is not complete. An "&" that opens no entity is a unit by itself.
int unitEnd(Text text, int position) noexcept;
/// The same, with the length of the text where the unit is not complete.
int behindUnit(Text text, int position) noexcept;

/// The first offset after the root element's start tag.
int firstPositionInRoot(Text text) noexcept;

/// The first tag at or after `position`, whatever is between; never a comment, CDATA section or
/// processing instruction.
int nextTag(Text text, int position) noexcept;

/// The last tag whose `>` stands at or before `position`. Never a comment or CDATA section, but it
/// can be a processing instruction.
int previousTag(Text text, int position, Source source = Source::Document) noexcept;

/// The closing tag of the start tag at `position`; a self-closing tag is its own. Only tags of the
/// same name count.
int closingTag(Text text, int position, Source source = Source::Document) noexcept;

/// The start tag of the closing tag at `position`.
int startTag(Text text, int position) noexcept;

/// The innermost start tag before `position` that has not been closed there.
int currentElement(Text text, int position, Source source = Source::Document) noexcept;

/// The name of the element that is current at `position` of a fragment; empty if there is none.
Text fragmentElementName(Text text, int position) noexcept;

/// The name of the first attribute behind `position`, which may be the `<` of a tag or any offset
/// in an attribute before; -1 at the end of the tag.
int nextAttribute(Text text, int position) noexcept;
/// The name of the last attribute that ends at or before `position`; -1 at the start of the tag.
int previousAttribute(Text text, int position) noexcept;
/// Name and value of the attribute whose name begins at `position`; empty where there is none.
Text attributeName(Text text, int position) noexcept;
Text attributeValue(Text text, int position) noexcept;
/// The first quote of either kind at or after `position`; -1 if none.
int findQuote(Text text, int position) noexcept;

/// The length of the placeholder, entity or character, that stands at `position`; 0 if none does.
int placeholderLength(Text text, int position) noexcept;
/// The first offset at or after `position` that is no white space; the length of the text if all
/// is.
int skipSpaces(Text text, int position) noexcept;

} // namespace XmlScan
