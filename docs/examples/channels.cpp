// Bookmarks a heading, shows the bookmarks as a panel does, and lets the salutation of a letter
// depend on a condition.
#include <forme/channels/BookmarkBuffer.h>
#include <forme/channels/ConditionalSectionBuffer.h>
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>
#include <string>

namespace {

/// Selects the text; it must be there.
void select(EditableDocumentBuffer& document, const Core::String& text) {
    document.resetfindReplaceStartPos();
    if (document.findReplace(text, L"", true, false, Direction::Forward, false) < 0)
        throw Core::Exception(L"not in the document: " + text);
}

/// What the panel's "add" does: the paragraph around the caret becomes what a bookmark leads to.
void addBookmark(EditableDocumentBuffer& document, const Core::String& title,
                 const Core::String& id) {
    document.setIdForCurrentPos(id);
    BookmarkBuffer bookmarks(&document);
    const auto panel = bookmarks.getProcessedDocumentForControl();
    Xml::Element* added = panel->getRootNode()->add_child(L"bookmark");
    added->set_attribute(L"title", title);
    added->set_attribute(L"id", id);
    bookmarks.getProcessedTreeForDocument(panel);
    bookmarks.commitChangesToEditableBuffer();
}

/// The panel, a line for each bookmark, further in for one within another.
void show(const Xml::Element& bookmarks, const std::string& indent = "") {
    for (const Xml::Node* node : bookmarks.get_children()) {
        const auto& bookmark = static_cast<const Xml::Element&>(*node);
        std::cout << indent
                  << Core::Encoder::toDisplayText(
                         BookmarkBuffer::getAttributeValue(&bookmark, L"title", L""))
                  << '\n';
        show(bookmark, indent + "    ");
    }
}

/// The selected text becomes what is shown where no condition holds.
void makeFallback(EditableDocumentBuffer& document) {
    const Core::String text = document.getSelectionAs(TextFormat::Native);
    document.insertText(L"<qfd:conditional-inline-sequence><qfd:conditional-inline><fo:inline>" +
                            text +
                            L"</fo:inline></qfd:conditional-inline>"
                            L"</qfd:conditional-inline-sequence>",
                        true, false);
    document.moveCaretLeft(false, false, true); // into it
}

/// Adds a condition to those around the caret, and writes what is shown where it holds.
void addCondition(EditableDocumentBuffer& document, const Core::String& test,
                  const Core::String& text) {
    ConditionalSectionBuffer sections(&document, ConditionalSectionBuffer::Type::Inline);
    sections.insertConditionalSection(test);
    sections.commitChangesToEditableBuffer();
    // The caret stands in the new section.
    document.selectParent();
    document.insertText(text, false, false);
}

/// The conditions around the caret, as a panel lists them: the one that the caret is in is marked.
void showConditions(EditableDocumentBuffer& document) {
    const ConditionalSectionBuffer sections(&document, ConditionalSectionBuffer::Type::Inline);
    const int current = document.getConditionIndex(
        document.getCaretPos(), L"conditional-inline-sequence", L"conditional-inline");
    for (int i = 0; const Xml::Element* section = sections.getConditionalBlockAtIndex(i); ++i) {
        const Core::String test = section == sections.getFallbackSection()
                                      ? Core::String(L"otherwise")
                                      : sections.getAttributeValue(section, L"test", L"");
        std::cout << (i == current ? "> " : "  ") << Core::Encoder::toDisplayText(test) << '\n';
    }
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: channels IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->addEditableElement(L"fo:inline");
    document->addInlineEditableElement(L"fo:inline");
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    select(*document, L"The long gallery");
    addBookmark(*document, L"The opening", L"opening");
    show(*BookmarkBuffer(document.get()).getProcessedDocumentForControl()->getRootNode());

    select(*document, L"Ms Thackwray,");
    makeFallback(*document);
    addCondition(*document, L"guest/@friend = 'yes'", L"Elinor,");
    showConditions(*document);

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
