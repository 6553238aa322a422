#include "editing/clipboard/SelectedContent.h"

#include "document/Document.h"
#include "text/Markup.h"
#include "text/Vocabulary.h"

#include <algorithm>
#include <vector>

using Core::String;

namespace {

/// What is opened with the list or the table that it is a part of.
constexpr Vocabulary::Names<9> parts{
    L"fo:list-item",    L"fo:list-item-label",   L"fo:list-item-body",
    L"fo:table-header", L"fo:table-footer",      L"fo:table-body",
    L"fo:table-row",    L"qfd:table-row-repeat", L"fo:table-cell"};

constexpr XmlScan::Text footnote = L"fo:footnote-body";

class ContentWalk {
public:
    ContentWalk(const Document& document, int start, int end, ContentVisitor& visitor)
        : document_(document), text_(document.text()), at_(start), end_(end), visitor_(visitor) {}

    void run() {
        openAround();
        while (text_.isValid(at_) && at_ < end_)
            if (text_.onTagStart(at_))
                passMarkup();
            else
                passText();
        while (!open_.empty())
            close();
    }

private:
    /// The elements around the start that do not hold the end, and what belongs to them.
    void openAround() {
        const std::vector<int> around = text_.elementsAround(at_);
        std::size_t first = around.size();
        while (first > 0 && text_.closingTag(around[first - 1]) < end_)
            --first;
        while (first > 0 && first < around.size() && isPart(around[first]))
            --first;
        while (first > 0 && document_.names.isInline(text_.tagName(around[first - 1])))
            --first;
        for (; first < around.size(); ++first)
            open(around[first]);
    }

    bool isPart(int element) const { return XmlScan::contains(parts, text_.tagName(element)); }

    void passMarkup() {
        if (text_.ignoredAt(at_)) {
            at_ = text_.next(at_);
        } else if (text_.closingAt(at_)) {
            if (!open_.empty())
                close();
            at_ = text_.next(at_);
        } else if (isLeftOut(text_.tagName(at_))) {
            at_ = text_.behindElement(at_);
        } else {
            open(at_);
            if (text_.selfClosingAt(at_))
                close();
            at_ = text_.next(at_);
        }
    }

    static bool isLeftOut(XmlScan::Text name) {
        return XmlScan::contains(Vocabulary::scripts, name) || name == footnote;
    }

    void passText() {
        const int markup = text_.find(L'<', at_);
        const int limit = markup < 0 ? end_ : std::min(markup, end_);
        const SpaceProperties::Values space = text_.spacePropertiesAround(at_);
        const auto says = [&](SpaceProperties::Property property, XmlScan::Text value) {
            return space[property] && *space[property] == value;
        };
        const bool isPre = says(SpaceProperties::Shorthand, L"pre") ||
                           says(SpaceProperties::Shorthand, L"pre-wrap");
        visitor_.text({Markup::unescaped(text_.view(at_, limit)),
                       isPre || says(SpaceProperties::Collapse, L"false"),
                       isPre || says(SpaceProperties::Linefeed, L"preserve")});
        at_ = limit;
    }

    void open(int element) {
        open_.push_back(text_.nameAt(element));
        visitor_.open(element);
    }

    void close() {
        const String name = open_.back();
        open_.pop_back();
        visitor_.close(name);
    }

    const Document& document_;
    const XmlText& text_;
    int at_;
    int end_;
    ContentVisitor& visitor_;
    std::vector<String> open_;
};

} // namespace

void SelectedContent::visit(const Document& document, int start, int end, ContentVisitor& visitor) {
    ContentWalk(document, start, std::min(end, document.text().length()), visitor).run();
}

void SelectedContent::visit(const Document& document, ContentVisitor& visitor) {
    if (document.hasSelection())
        visit(document, document.selectionStart(), document.selectionEnd(), visitor);
}
