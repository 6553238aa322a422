#include "editing/clipboard/PastedMarkup.h"

#include "document/EditableNames.h"
#include "text/MarkupMatcher.h"
#include "text/Vocabulary.h"

#include <algorithm>

using Core::String;

namespace {

/// What is nothing outside of its table, its list or its page.
constexpr Vocabulary::Names<16> partsOfOthers{L"fo:list-item",
                                              L"fo:list-item-label",
                                              L"fo:list-item-body",
                                              L"fo:table-column",
                                              L"fo:table-header",
                                              L"fo:table-footer",
                                              L"fo:table-body",
                                              L"fo:table-row",
                                              L"qfd:table-row-repeat",
                                              L"fo:table-cell",
                                              L"fo:flow",
                                              L"fo:static-content",
                                              L"fo:page-sequence",
                                              L"fo:layout-master-set",
                                              L"qfd:page-sequence-repeat",
                                              L"fo:root"};

const wchar_t* const placeholder = L"&#x00A0;";

bool isWellFormed(XmlScan::Text text) {
    MarkupMatcher matcher(text);
    return matcher.readContent() && matcher.open().empty() && matcher.closed().empty();
}

/// A block whose placeholder is all that it shows has nothing that could join another.
String withoutPlaceholder(String content) {
    return content == placeholder || content == XmlScan::nbspCharacter ? String() : content;
}

} // namespace

std::optional<PastedMarkup> PastedMarkup::read(const EditableNames& names, const String& xml) {
    PastedMarkup pasted(names, xml);
    if (!isWellFormed(pasted.text_) || !pasted.readPieces())
        return {};
    return pasted;
}

bool PastedMarkup::isLine() const {
    return pieces_.empty() || (pieces_.size() == 1 && pieces_.front().kind == Piece::Kind::Line);
}

std::optional<String> PastedMarkup::asLines() const {
    String lines;
    for (const Piece& piece : pieces_) {
        if (piece.kind == Piece::Kind::Standing)
            return {};
        if (&piece != &pieces_.front())
            lines += L"<fo:block />";
        lines += piece.content.empty() ? String(placeholder) : piece.content;
    }
    return lines;
}

bool PastedMarkup::readPieces() {
    const int end = XmlScan::length(text_);
    while (at_ < end) {
        if (XmlScan::ignoredAt(text_, at_)) {
            at_ = XmlScan::behindUnit(text_, at_);
        } else if (XmlScan::onTagStart(text_, at_)) {
            if (!readElement())
                return false;
        } else {
            lineShows_ = lineShows_ || !String::isSpace(XmlScan::unitAt(text_, at_));
            at_ = XmlScan::behindUnit(text_, at_);
        }
    }
    endLine(end);
    return true;
}

bool PastedMarkup::readElement() {
    const int start = at_;
    if (XmlScan::contains(partsOfOthers, XmlScan::tagName(text_, start)))
        return false;
    at_ = XmlScan::tagEnd(text_, XmlScan::closingTag(text_, start)) + 1;
    if (at_ <= start)
        return false;
    if (isBlockTag(start)) {
        endLine(start);
        addBlock(start, at_);
        lineStart_ = at_;
    } else {
        lineShows_ = true;
    }
    return true;
}

/// What stands in no block becomes one, unless it is all there is.
void PastedMarkup::endLine(int end) {
    const bool isAll = lineStart_ == 0 && end == XmlScan::length(text_);
    const bool isBlankText = isAll && end > 0 && text_.find(L'<') == Text::npos;
    if (lineShows_ || isBlankText) {
        const String line(XmlScan::slice(text_, lineStart_, end));
        pieces_.push_back(
            isAll ? Piece{Piece::Kind::Line, line, line}
                  : Piece{Piece::Kind::Paragraph, L"<fo:block>" + line + L"</fo:block>", line});
    }
    lineShows_ = false;
}

/// An empty paragraph gets its place for the caret.
void PastedMarkup::addBlock(int start, int end) {
    const int content = XmlScan::tagEnd(text_, start) + 1;
    const int closing = XmlScan::rFind(text_, L'<', end - 1);
    Piece piece{Piece::Kind::Standing, String(XmlScan::slice(text_, start, end)), {}};
    if (XmlScan::tagName(text_, start) == L"fo:block")
        piece.kind = kindOfBlock(content, closing);
    if (piece.kind == Piece::Kind::Paragraph)
        piece.content = withoutPlaceholder(String(XmlScan::slice(text_, content, closing)));
    if (piece.kind == Piece::Kind::Paragraph && XmlScan::skipSpaces(text_, content) >= closing)
        piece.markup = String(XmlScan::slice(text_, start, content)) + placeholder +
                       String(XmlScan::slice(text_, closing, end));
    pieces_.push_back(piece);
}

PastedMarkup::Piece::Kind PastedMarkup::kindOfBlock(int content, int end) const {
    for (int tag = XmlScan::nextTag(text_, content); tag >= 0 && tag < end;
         tag = XmlScan::nextTag(text_, XmlScan::stepForward(text_, tag)))
        if (!XmlScan::closingAt(text_, tag) && isBlockTag(tag))
            return Piece::Kind::Standing;
    return Piece::Kind::Paragraph;
}

/// An empty block is a line break and part of a line.
bool PastedMarkup::isBlockTag(int tag) const {
    const Text name = XmlScan::tagName(text_, tag);
    return (names_.isBlock(name) || XmlScan::contains(Vocabulary::blockLevel, name) ||
            XmlScan::contains(Vocabulary::blockHolders, name)) &&
           !XmlScan::selfClosingAt(text_, tag);
}
