#pragma once

#include "editing/clipboard/SelectedContent.h"
#include "html/HtmlFormat.h"

#include <string>
#include <vector>

class Document;

/// Writes what is selected as HTML: paragraphs, headings, lists and tables by their elements,
/// formatted text by elements and, for colours and fonts, by styles.
class HtmlWriter : private ContentVisitor {
public:
    static Core::String write(const Document& document);

private:
    /// An element that is open, and what the text in it inherits.
    struct Level {
        HtmlFormat format;
        std::string closing;     ///< of the HTML element that it is
        bool isLeftOut = false;  ///< as a label is, which HTML makes itself
        bool startsBare = false; ///< whether its first paragraph needs no tags
        bool isParagraph = false;
        std::size_t contentStart = 0; ///< in the HTML
        bool isInBlock = false;       ///< whether a block is around in the flow
        std::string paragraph{};      ///< the name of the element for its paragraphs
        std::string style{};          ///< and their style
    };

    /// One that formats text.
    struct Tag {
        std::string name;
        std::string attributes;

        friend bool operator==(const Tag&, const Tag&) = default;
    };

    explicit HtmlWriter(const Document& document) : document_(document) {}

    void open(int element) override;
    void close(TextView name) override;
    void text(const Run& run) override;

    void openBlock(int element, Level& level);
    void openList(int element, Level& level);
    std::string tablePart(int element) const;
    void openTablePart(int element, const std::string& part, Level& level);
    void inheritFormat(int element, Level& level, bool isParagraph) const;
    void begin(const std::string& name, const std::string& attributes, Level& level);

    void beginParagraph(bool keepsBlanks);
    void endParagraph();
    void put(const HtmlFormat& format, const std::string& html);
    static std::vector<Tag> tagsOf(const HtmlFormat& format);
    void closeTags(std::size_t kept);
    void closeFormat();
    void addText(const Run& run);
    void addBreak();
    void putBreaks();
    void putDueBlank();
    void addTab();

    const Document& document_;
    std::string html_;
    std::vector<Level> open_{Level()};
    bool isInParagraph_ = false;
    std::string paragraphEnd_;
    HtmlFormat format_;     // that the end of the text has
    std::vector<Tag> tags_; // that are open for it, the outermost first
    bool isLineEmpty_ = true;
    int breaksDue_ = 0; // which show once something follows them
    bool blankDue_ = false;
    HtmlFormat blankFormat_; // of that blank
};
