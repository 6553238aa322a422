#include "checks/Check.h"

#include "checks/SelfChecks.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/Console.h"
#include "foundation/Encoder.h"
#include "text/XmlValidator.h"

#include <algorithm>
#include <exception>
#include <string_view>

using Core::String;

namespace {

constexpr std::wstring_view start = LR"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:qf="urn:forme:qf/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format">
<fo:layout-master-set><fo:simple-page-master master-name="a"><fo:region-body/></fo:simple-page-master></fo:layout-master-set>
<fo:page-sequence master-reference="a"><fo:flow flow-name="xsl-region-body">)";
constexpr std::wstring_view end = LR"(</fo:flow></fo:page-sequence></qfd:document>)";

struct ShortName {
    wchar_t letter;
    const wchar_t* name;
};

constexpr ShortName shortNames[] = {
    {L'B', L"fo:block"},           {L'I', L"fo:inline"},         {L'T', L"fo:table"},
    {L'H', L"fo:table-header"},    {L'D', L"fo:table-body"},     {L'R', L"fo:table-row"},
    {L'C', L"fo:table-cell"},      {L'L', L"fo:list-block"},     {L'E', L"fo:list-item"},
    {L'N', L"fo:list-item-label"}, {L'P', L"fo:list-item-body"}, {L'F', L"qf:form"},
    {L'K', L"qf:form-control"},
};

/// More steps than a check has, which end even where the history does not.
constexpr int mostSteps = 100;

struct State {
    std::wstring text;
    int caret = -1;
    int pivot = -1;

    bool operator==(const State&) const = default;
};

State stateOf(const EditableDocumentBuffer& document) {
    return {std::wstring(document.getContent().view()), document.getCaretPos(),
            document.getSelectionPivotPos()};
}

State stateMarkedIn(std::wstring text) {
    State state;
    for (std::size_t at = 0; (at = text.find_first_of(L"|^", at)) != std::wstring::npos;) {
        (text[at] == L'|' ? state.caret : state.pivot) = static_cast<int>(at);
        text.erase(at, 1);
    }
    if (state.pivot < 0)
        state.pivot = state.caret;
    state.text = std::move(text);
    return state;
}

void insertMark(std::wstring& text, int position, wchar_t mark) {
    if (position >= 0)
        text.insert(static_cast<std::size_t>(position), 1, mark);
}

/// The content of the flow with its marks; all of the text, if anything around that has changed.
std::wstring shown(const State& state) {
    std::wstring text = state.text;
    const bool isBackward = state.caret < state.pivot;
    insertMark(text, std::max(state.caret, state.pivot), isBackward ? L'^' : L'|');
    if (state.caret != state.pivot)
        insertMark(text, std::min(state.caret, state.pivot), isBackward ? L'|' : L'^');
    if (text.starts_with(start) && text.ends_with(end))
        text = text.substr(start.size(), text.size() - start.size() - end.size());
    return text;
}

SmartPtr<EditableDocumentBuffer> load(const State& state) {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"qf:form"})
        document->addEditableElement(name);
    document->addInlineEditableElement(L"fo:inline");
    document->setContent(String(state.text), true);
    document->setCaretPos(false, state.pivot);
    document->setCaretPos(true, state.caret);
    return document;
}

/// What a document should be when everything is undone, and when it is redone.
struct Replay {
    State undone;
    State redone;
};

void carryOut(EditableDocumentBuffer& document, Check::Command command, Replay& replay) {
    const State before = stateOf(document);
    const bool couldUndo = document.canUndo();
    command(document);
    if (!couldUndo && document.canUndo())
        replay.undone = before;
    if (const State after = stateOf(document); after.text != before.text)
        replay.redone = after;
}

void undoAll(EditableDocumentBuffer& document) {
    for (int step = 0; step < mostSteps && document.canUndo(); ++step)
        document.undo();
}

void redoAll(EditableDocumentBuffer& document) {
    for (int step = 0; step < mostSteps && document.canRedo(); ++step)
        document.redo();
}

using IsRedone = bool (*)(const State& state, const State& last);

/// Carries out the commands, undoes all and redoes all.
std::wstring edited(const Check& check, IsRedone isRedone) {
    const SmartPtr<EditableDocumentBuffer> document = load(
        stateMarkedIn(std::wstring(start) + Checks::writtenOut(check.before) + std::wstring(end)));
    const State loaded = stateOf(*document);
    Replay replay{loaded, loaded};
    for (const Check::Command command : check.commands)
        if (command)
            carryOut(*document, command, replay);
    const State after = stateOf(*document);
    if (after.text == loaded.text && !document->canUndo())
        return shown(after);
    undoAll(*document);
    if (const State undone = stateOf(*document); undone != replay.undone)
        return L"undone " + shown(undone);
    redoAll(*document);
    if (const State redone = stateOf(*document); !isRedone(redone, replay.redone))
        return L"redone " + shown(redone);
    return shown(after);
}

std::wstring outcomeOf(const Check& check, Checks::Trial trial) {
    try {
        return trial(check);
    } catch (const std::exception& failure) {
        return L"an exception, " +
               std::wstring(Core::Encoder::convertUTF8ToString(failure.what()).view());
    } catch (...) {
        return L"an exception";
    }
}

std::wstring onOneLine(std::wstring text) {
    std::replace(text.begin(), text.end(), L'\n', L'\x00B6');
    return text;
}

/// Answers whether the check passed.
bool tell(const wchar_t* subject, const Check& check, Checks::Trial trial) {
    const std::wstring failure = Checks::failureOf(check, trial);
    const std::wstring name = subject + std::wstring(L": ") + check.name;
    Core::Console::writeLine(
        (failure.empty() ? L"ok " + name : L"FAILED " + name + L": " + failure).c_str());
    return failure.empty();
}

} // namespace

std::wstring Checks::writtenOut(std::wstring_view fragment) {
    std::wstring text;
    for (const wchar_t unit : fragment) {
        const bool isName = text.ends_with(L'<') || text.ends_with(L"</");
        const auto known =
            std::find_if(std::begin(shortNames), std::end(shortNames),
                         [unit](const ShortName& name) { return name.letter == unit; });
        if (isName && known != std::end(shortNames))
            text += known->name;
        else if (unit == L'_')
            text += L"&#x00A0;";
        else
            text += unit;
    }
    return text;
}

std::wstring Checks::edit(const Check& check) {
    return edited(check, [](const State& state, const State& last) { return state == last; });
}

std::wstring Checks::editTree(const Check& check) {
    return edited(check,
                  [](const State& state, const State& last) { return state.text == last.text; });
}

std::wstring Checks::validate(const Check& check) {
    return XmlValidator(check.before).validate() ? L"accepted" : L"refused";
}

std::wstring Checks::failureOf(const Check& check, Trial trial) {
    const std::wstring expected = writtenOut(check.expected);
    const std::wstring outcome = outcomeOf(check, trial);
    return outcome == expected ? L"" : onOneLine(L"expected " + expected + L", got " + outcome);
}

bool Checks::run(const wchar_t* subject, std::span<const Check> checks, Trial trial) noexcept try {
    const auto passed = std::count_if(checks.begin(), checks.end(), [&](const Check& check) {
        return tell(subject, check, trial);
    });
    const auto failed = static_cast<std::ptrdiff_t>(checks.size()) - passed;
    Core::Console::writeLine((subject + std::wstring(L": ") + std::to_wstring(passed) +
                              L" passed, " + std::to_wstring(failed) + L" failed")
                                 .c_str());
    return failed == 0;
} catch (...) {
    return false; // even the verdict could not be told
}

bool testBuffer() {
    return Checks::run(L"buffer", Checks::ofBuffer(), Checks::edit);
}

bool testFormBuffer() {
    return Checks::run(L"forms", Checks::ofForms(), Checks::edit);
}

bool testListBuffer() {
    return Checks::run(L"lists", Checks::ofLists(), Checks::edit);
}

bool testTableBuffer() {
    return Checks::run(L"tables", Checks::ofTables(), Checks::editTree);
}

bool testXmlValidator() {
    return Checks::run(L"validator", Checks::ofXmlValidator(), Checks::validate);
}
