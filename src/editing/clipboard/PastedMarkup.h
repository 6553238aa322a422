#pragma once

#include "foundation/String.h"
#include "text/XmlScan.h"

#include <optional>
#include <vector>

class EditableNames;

/// Markup that is pasted, taken apart into what stands beside each other in it.
class PastedMarkup {
public:
    struct Piece {
        enum class Kind {
            Line,      ///< text and inlines
            Paragraph, ///< a block that holds nothing but lines, and can join another
            Standing   ///< a list, a table, a block with blocks in it
        };
        Kind kind = Kind::Line;
        Core::String markup;
        Core::String content; ///< of a paragraph and a line: what can join another line
    };

    /// Nothing where the markup is not well formed, or where a part of a table, a list or a page
    /// comes without the whole. White space and comments between blocks are left out.
    static std::optional<PastedMarkup> read(const EditableNames& names, const Core::String& xml);

    const std::vector<Piece>& pieces() const { return pieces_; }
    /// Whether it is one line, or nothing.
    bool isLine() const;
    /// All of it as lines, with soft breaks in between; nothing where something can be no line.
    std::optional<Core::String> asLines() const;

private:
    using Text = XmlScan::Text;

    PastedMarkup(const EditableNames& names, Text text) : names_(names), text_(text) {}

    bool readPieces();
    bool readElement();
    void endLine(int end);
    void addBlock(int start, int end);
    Piece::Kind kindOfBlock(int content, int end) const;
    bool isBlockTag(int tag) const;

    const EditableNames& names_;
    Text text_;
    int at_ = 0;
    int lineStart_ = 0;
    bool lineShows_ = false;
    std::vector<Piece> pieces_;
};
