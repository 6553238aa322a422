// Loading, the caret, typing, deletion, Enter, formatting.

#include "checks/Check.h"
#include "checks/Keys.h"

using namespace Keys;
using Buffer = EditableDocumentBuffer;

namespace {

constexpr Check bufferChecks[] = {
    {L"a loaded text stays as it is",
     L"<B a='b' >x &lt; y|<!-- c --></B><?p?>\n\t<B/>",
     {},
     L"<B a='b' >x &lt; y|<!-- c --></B><?p?>\n\t<B/>"},
    {L"line ends are line feeds after loading",
     L"<B>|a</B>\r\n<B>b</B>",
     {},
     L"<B>|a</B>\n<B>b</B>"},
    {L"the caret passes tags as a reader does",
     L"<B>a|<I>b</I></B>\n<B>_</B><B>_</B><B><I>c</I></B>",
     {right, right, right, right},
     L"<B>a<I>b</I></B>\n<B>_</B><B>_</B><B><I>|c</I></B>"},
    {L"a run of blanks is one step of the caret", L"<B>a|   b</B>", {right}, L"<B>a   |b</B>"},
    {L"a word is one step with Ctrl",
     L"<B>one| two three</B>",
     {[](Buffer& document) { document.jumpToNextWord(false); }},
     L"<B>one |two three</B>"},
    {L"typing replaces a placeholder", L"<B>|_</B>", {type<L'x'>, type<L'y'>}, L"<B>xy|</B>"},
    {L"typed text is escaped", L"<B>a|b</B>", {type<L'<'>, type<L'&'>}, L"<B>a&lt;&amp;|b</B>"},
    {L"a blank at the end is one when a letter follows",
     L"<B>ab|</B>",
     {type<L' '>, type<L'c'>},
     L"<B>ab c|</B>"},
    {L"typing replaces what is selected", L"<B>a^bc|d</B>", {type<L'x'>}, L"<B>ax|d</B>"},
    {L"markup that is not complete is not inserted",
     L"<B>a|b</B>",
     {[](Buffer& document) { document.insertText(L"<a", true, false); }},
     L"<B>a|b</B>"},
    {L"Backspace takes a character", L"<B>ab&amp;|c</B>", {backspace}, L"<B>ab|c</B>"},
    {L"an emptied block has a placeholder", L"<B>a|</B>", {backspace}, L"<B>|_</B>"},
    {L"Backspace joins blocks", L"<B>one</B>\n<B>|two</B>", {backspace}, L"<B>one|two</B>"},
    {L"Delete takes a word with Ctrl", L"<B>one |two</B>", {deleteWord}, L"<B>one |</B>"},
    {L"what is selected goes over blocks", L"<B>a^b</B><B>c|d</B>", {forwardDelete}, L"<B>a|d</B>"},
    {L"Enter splits inlines",
     L"<B><I color=\"red\">on|e</I></B>",
     {enter},
     L"<B><I color=\"red\">on</I></B>\n<B><I color=\"red\">|e</I></B>"},
    {L"Backspace takes Enter back", L"<B>one|two</B>", {enter, backspace}, L"<B>one|two</B>"},
    {L"Shift+Enter makes a line", L"<B>one|</B>", {softBreak, type<L'x'>}, L"<B>one<B />x|</B>"},
    {L"selected text is formatted",
     L"<B>one ^two|</B>",
     {[](Buffer& document) {
         document.setProperty({L"fo:font-weight", L"bold"}, L"");
     }},
     L"<B>one <I font-weight=\"bold\">^two</I>|</B>"},
    {L"a step is undone and redone",
     L"<B>a|b</B>",
     {type<L'x'>, enter, undo, undo, redo, redo},
     L"<B>ax</B>\n<B>|b</B>"},
};

} // namespace

std::span<const Check> Checks::ofBuffer() {
    return bufferChecks;
}
