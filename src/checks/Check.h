#pragma once

#include <array>
#include <span>
#include <string>

class EditableDocumentBuffer;

/// A document, commands, and what comes of them.
///
/// The document is the content of a flow. `|` marks the caret, `^` the pivot where it differs; a
/// capital letter stands for the name of a tag, B for "fo:block" and so on, and `_` for a
/// placeholder. What is expected is written in the same way.
struct Check {
    using Command = void (*)(EditableDocumentBuffer& document);

    const wchar_t* name;
    const wchar_t* before;
    std::array<Command, 8> commands; ///< null behind the last
    const wchar_t* expected;
};

/// The tables of checks and what runs them.
namespace Checks {

std::span<const Check> ofBuffer();
std::span<const Check> ofForms();
std::span<const Check> ofLists();
std::span<const Check> ofTables();
/// Their documents are whole texts, and what is expected is one word.
std::span<const Check> ofXmlValidator();

/// Answers what comes of a check.
using Trial = std::wstring (*)(const Check& check);

/// The document behind the commands, with its marks. Where undoing everything or redoing everything
/// gives anything else than it should, that.
std::wstring edit(const Check& check);
/// The same where redoing brings back the text and not the caret, as it does for a tree.
std::wstring editTree(const Check& check);
/// Whether the validator accepts or refuses the document.
std::wstring validate(const Check& check);

/// What is wrong about a check; empty if nothing is.
std::wstring failureOf(const Check& check, Trial trial);
/// Tells the verdicts and answers whether all passed.
bool run(const wchar_t* subject, std::span<const Check> checks, Trial trial) noexcept;

/// A fragment in full.
std::wstring writtenOut(std::wstring_view fragment);

} // namespace Checks
