#pragma once

#include "document/EditableNames.h"
#include "document/TextVersions.h"
#include "document/history/EditActionStack.h"
#include "foundation/HtmlParser.h"
#include "foundation/SmartPtr.h"
#include "foundation/SpellChecker.h"
#include "foundation/String.h"
#include "foundation/TextSegmenter.h"
#include "text/XmlText.h"

#include <memory>
#include <optional>

class EditableDocumentBuffer;
class IEditableBufferMonitor;
class KnownFormats;
class TableCache;
enum class Direction;

/// All the state of a document that is being edited: text, caret and pivot, history, names, modes,
/// monitor. Commands are functions over it, in the rooms that carry them out.
///
/// What is selected runs from the pivot to the caret; positions are as in XmlText.
class Document {
public:
    Document();
    ~Document();

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The document behind a face.
    static Document& of(EditableDocumentBuffer& face);
    static const Document& of(const EditableDocumentBuffer& face);
    /// Throws Core::NullPointerException for null.
    static Document& of(EditableDocumentBuffer* face);
    /// Its text, which lives as long as the document does.
    static std::shared_ptr<XmlText> textOf(const std::shared_ptr<Document>& document);

    const XmlText& text() const { return text_; }

    // The versions of the text that a host has asked for

    TextVersions::Number textVersion() noexcept { return versions_.current(); }
    const TextVersions& versions() const { return versions_; }

    // The caret and the selection

    int caret() const { return caret_; }
    /// Equal to the caret when nothing is selected.
    int pivot() const { return pivot_; }
    bool hasSelection() const { return caret_ != pivot_; }
    int selectionStart() const { return caret_ < pivot_ ? caret_ : pivot_; }
    /// Excluded from what is selected.
    int selectionEnd() const { return caret_ < pivot_ ? pivot_ : caret_; }

    /// Put the caret to a position, -1 for none, as far as the modes of editing allow. extendTo()
    /// leaves the pivot where it is, and does nothing where the selection would leave its flow or
    /// static content.
    void setCaret(int position) { moveCaret(false, position); }
    void extendTo(int position) { moveCaret(true, position); }
    void moveCaret(bool extend, int position);
    void select(int pivot, int caret);
    /// Whether the caret is kept out of there, as out of the flows while page masters are edited.
    /// What would be edited there stays as it is.
    bool isOutOfReach(int position) const;
    /// No caret, so that the old one has no say in where the next one goes.
    void dropCaret();
    /// What moveCaret() does where the caret is not kept out.
    void placeCaret(bool extend, int position);

    /// Whether an editable element's tag stands at the position.
    bool isEditableAt(int position) const { return names.isEditable(text_.tagName(position)); }
    /// Whether the element around the position is editable.
    bool isInEditable(int position) const { return isEditableAt(text_.elementAround(position)); }

    // What only Edit and the replay of the history do: changes that record nothing. They take caret
    // and pivot along.

    /// Inserts before the position, which may be the length of the text; nothing elsewhere.
    void insertUnrecorded(int position, const Core::String& xml);
    /// Removes from `start` through `end`, both included; answers what was removed. A caret within
    /// goes to `start`, but one exactly on `end` to `start - 1`.
    Core::String removeUnrecorded(int start, int end);
    /// Puts `xml` in the place of `start` up to but excluding `end`, after which caret and pivot
    /// stand where the caller has worked out.
    void rewriteUnrecorded(int start, int end, const Core::String& xml, int pivot, int caret);
    /// Puts `xml` in the place of so many units from `start` on, and the caret where it is told.
    /// Nothing may be selected; whoever types tells the monitor.
    void typeUnrecorded(int start, int count, std::wstring_view xml, int caret);
    /// Takes another text, in which the caret goes to its first place.
    void replaceText(const Core::String& content);
    /// Goes back to a version of the text, with caret and pivot as they were. It needs no memory.
    void goBackTo(const TextMark& text, const TextVersions::Mark& version, int caret,
                  int pivot) noexcept;
    /// Where an offset goes when `start` through `end` are removed.
    static int offsetAfterDeletion(int offset, int start, int end);

    // The history

    EditActionStack history;
    /// The group that a run of typing keeps open, so that it is one undo step.
    std::optional<unsigned> typingGroup;
    void endTyping();
    /// What is known of a place of the caret in a version of the text, so that the next key may go
    /// on without a question; see PlainPlace.
    struct KnownPlace {
        int caret = -1;
        unsigned version = 0;
        bool isText = false;      ///< the caret can stand there and edit
        bool isInRegion = false;  ///< in a flow or static content
        bool isErasable = false;  ///< and in no list
        bool showsBlanks = false; ///< white space is treated there as where nothing is said of it
    };
    mutable KnownPlace knownPlace;
    /// Whether a key that needs no rules may go without them. Who turns this off sees no difference
    /// but in time.
    bool takesShortcuts = true;

    /// Records of what was done. An insertion or a deletion is recorded by Edit, which does it.
    void recordCaret() { recordCaret(caret_, pivot_); }
    void recordCaret(int caret, int pivot);
    void recordInsertion(int position, const Core::String& xml);
    void recordDeletion(int position, const Core::String& xml);
    void recordContent();
    /// The text, which a record that was taken from the history is about to replace.
    void keepReplacedContent(bool isUndone);

    // What the monitor hears

    IEditableBufferMonitor* monitor = nullptr;
    void notifyBufferChanged();
    void notifyCaretChanged();
    void notifySelectionChanged();

    // Settings

    EditableNames names;
    struct Modes {
        bool pageMasters = false;  ///< the caret may only stand in static content
        bool dummyPage = false;    ///< the caret may stand nowhere
        bool clusterSteps = false; ///< keys take what a reader sees as one character as one
    };
    Modes modes;

    // Protection from editing

    /// Whether the root says that nothing is to be edited; see Protection.
    bool isProtected() const;
    /// Set by the scope of a command, which then leaves no trace; see CommandScope.
    bool refusesChanges = false;

    // What commands keep from one call to the next

    /// Where the running search began, -1 while none runs, and how far it came with its last match.
    struct RunningSearch {
        int start = -1;
        bool beganBehindStart = false; ///< which was the last selected unit
        bool hasMatched = false;
        bool hasWrapped = false;
        Core::String text;
        Direction direction{};
    };
    RunningSearch search;
    SmartPtr<Drawing::SpellChecker> spellChecker;
    SmartPtr<HtmlParser> htmlParser;
    SmartPtr<TextSegmenter> textSegmenter;
    Core::String selectedElementName;       ///< what growing the selection reached last
    std::unique_ptr<TableCache> tableCache; ///< null while no table is kept
    mutable std::shared_ptr<const KnownFormats> knownFormats; ///< null until a toolbar asks
    bool isInCommand = false; ///< whether a scope stands around what is being done

private:
    void insert(int position, const Core::String& xml);
    Core::String erase(int start, int end);
    void placeCaretAfterEdit(int caret, int pivot);

    struct KnownProtection {
        unsigned headVersion;
        bool isProtected;
    };

    XmlText text_;
    TextVersions versions_;
    int caret_ = -1;
    int pivot_ = -1;
    mutable std::optional<KnownProtection> knownProtection_;
};
