// A document's protection from editing, and the settings that carry it.

#include "channels/SecurityBuffer.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/EditorState.h"

#include <gtest/gtest.h>

using Core::String;

namespace {

/// A document with such a root's start tag.
String documentWith(const String& attributes) {
    return L"<!-- a > b's --><qfd:document" + attributes +
           L"><fo:layout-master-set/><fo:page-sequence><fo:flow flow-name='b'><fo:block>text"
           L"</fo:block></fo:flow></fo:page-sequence></qfd:document>";
}

const String namespaces =
    L" xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:qf='urn:forme:qf/1.0'"
    L" xmlns:qfd='urn:forme:qfd/1.0'";

void setContent(EditableDocumentBuffer& document, const String& content) {
    setUpAsHost(document);
    document.setContent(content, true);
}

} // namespace

TEST(SecurityBuffer, WritesTheSettingsAndNothingElse) {
    EditableDocumentBuffer document;
    const String root = namespaces + L"\n  qf:protect-forms='a &amp; \"b\"'  id='r'";
    setContent(document, documentWith(root));
    SecurityBuffer security(&document);
    EXPECT_EQ(security.getSettings().getPropertyValue(L"qf:protect-forms"), L"a &amp; \"b\"");
    security.setProtectedFromEditing(false);
    security.commitChangesToEditableBuffer();
    EXPECT_FALSE(document.canUndo());

    const EditorState before = stateOf(document);
    security.setProtectedFromEditing(true);
    EXPECT_FALSE(document.isProtectedFromEditing());
    security.commitChangesToEditableBuffer();
    EXPECT_TRUE(document.isProtectedFromEditing());
    EXPECT_EQ(document.getContent(), documentWith(root + L" qf:protect-editing=\"true\""));
    expectReplays(document, before);
    EXPECT_TRUE(document.isProtectedFromEditing());
    security.setProtectedFromEditing(false);
    security.commitChangesToEditableBuffer();
    EXPECT_EQ(stateOf(document), before);

    PropertyCollection settings;
    for (const wchar_t* name : {L"qf:protect-copy", L"id", L"qf:protect-forms", L"qf:Protect-x"})
        settings.addProperty({name, L"<1>"}, true);
    security.setSettings(settings);
    security.commitChangesToEditableBuffer();
    EXPECT_EQ(document.getContent(),
              documentWith(namespaces + L"\n  qf:protect-forms=\"&lt;1>\"  id='r'"
                                        L" qf:protect-copy=\"&lt;1>\""));
    security.setSettings(settings);
    security.commitChangesToEditableBuffer(); // which is as it stands, escaped
    settings.addProperty({L"qf:protect-a b", L"1"}, true);
    EXPECT_THROW(security.setSettings(settings), Core::Exception);
    document.undo();
    EXPECT_THROW(security.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document), before);
}

TEST(ProtectedDocument, ChangesByAnotherTextAndItsHistoryOnly) {
    EditableDocumentBuffer document;
    setContent(document, documentWith(namespaces + L" qf:protect-editing='TRUE'"));
    const EditorState before = stateOf(document);
    document.insertXmlTextAtPosition(before.caret, L"x");
    document.deleteXmlText(before.caret, before.caret);
    EXPECT_EQ(document.findReplace(L"ex", L"y", true, false, Direction::Forward, true),
              before.caret + 1);
    EXPECT_EQ(document.getContent(), before.text);
    document.setContent(documentWith(namespaces), false);
    EXPECT_FALSE(document.isProtectedFromEditing());
    document.undo();
    document.undo();
    EXPECT_TRUE(document.isProtectedFromEditing());
    document.redo();
    document.redo();
    document.insertText(L"more", false, false);
    EXPECT_NE(document.getContent(), documentWith(namespaces));
}

TEST(ProtectedDocument, KeepsEveryByteAndForgetsItsProtectionWhenThatIsLifted) {
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 2000);
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    constexpr std::size_t perDocument = 100;
    const CommandMix mix = everyCommand();
    for (std::uint32_t seed = first; seed < first + total / perDocument; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        Session free;
        Session held;
        free.serve({"setContent", randomDocument(random), true});
        const String text = free.document().getContent();
        String protectedText = text;
        protectedText.insert(static_cast<unsigned>(text.find(L">", text.find(L"<qfd:document", 0))),
                             L" qf:protect-editing=\"true\"");
        held.document().setContent(protectedText, true);
        for (std::size_t i = 0; i < perDocument; ++i) {
            const std::string command = randomCommand(random, held.document(), mix);
            if (command.starts_with("[\"setContent"))
                continue;
            held.serveLine(command);
            ASSERT_EQ(held.document().getContent(), protectedText) << command;
            ASSERT_FALSE(held.document().canUndo() || held.document().canRedo()) << command;
        }
        for (const char* request :
             {"security.open", "security.setProtectedFromEditing", "security.commit"})
            held.serve(std::string(request).ends_with("g") ? Json{request, false} : Json{request});
        ASSERT_EQ(held.document().getContent(), text);
        for (Session* session : {&free, &held}) {
            session->serve({"setCaretPos", false, -1});
            session->serve({"resetfindReplaceStartPos"});
            session->serve({"resetSelectionOfElement"});
            session->serve({"moveCaretHome", false});
        }
        for (std::size_t i = 0; i < perDocument; ++i) {
            const std::string command = randomCommand(random, free.document(), mix);
            const bool undoesLifting =
                command == R"(["undo"])" && held.document().getContent() == text;
            if (undoesLifting || command.starts_with("[\"saveInitialPosition")) // makes an id
                continue;
            free.serveLine(command);
            held.serveLine(command);
            ASSERT_EQ(stateOf(held.document()), stateOf(free.document())) << command;
        }
    }
}
