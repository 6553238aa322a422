#include "document/history/StepReplay.h"

#include "document/Document.h"
#include "document/history/Replay.h"
#include "text/TextChange.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

using Core::String;

namespace {

/// A text while it is edited, here and then there: that costs what lies between the two places.
class GapText {
public:
    explicit GapText(TextView text) : reversedBack_(text.rbegin(), text.rend()) {}

    void goTo(std::size_t position) {
        if (position < front_.size())
            move(front_, reversedBack_, front_.size() - position);
        else
            move(reversedBack_, front_, position - front_.size());
    }
    void insert(std::wstring_view text) { front_ += text; }
    void erase(std::size_t count) { reversedBack_.erase(reversedBack_.size() - count); }

    std::wstring take() && {
        move(reversedBack_, front_, reversedBack_.size());
        return std::move(front_);
    }

private:
    static void move(std::wstring& from, std::wstring& to, std::size_t count) {
        to.append(from.rbegin(), from.rbegin() + static_cast<std::ptrdiff_t>(count));
        from.erase(from.size() - count);
    }

    std::wstring front_;
    std::wstring reversedBack_;
};

/// Where the records of a step take caret and pivot, and what the monitor would hear of that.
class CaretPath {
public:
    explicit CaretPath(const Document& document)
        : caret_(document.caret()), pivot_(document.pivot()) {}

    void place(int caret, int pivot) {
        wasSelecting_ = wasSelecting_ || caret_ != pivot_ || caret != pivot;
        hasMoved_ = hasMoved_ || caret_ != pivot || pivot != caret;
        caret_ = caret;
        pivot_ = pivot;
    }
    void follow(const TextChange& change) {
        const auto moved = [&change](int offset) {
            const int last = change.start + change.removed - 1;
            if (change.removed > 0)
                offset = Document::offsetAfterDeletion(offset, change.start, last);
            return offset >= change.start ? offset + change.inserted : offset;
        };
        place(moved(caret_), moved(pivot_));
    }

    int caret() const { return caret_; }
    int pivot() const { return pivot_; }
    bool hasMoved() const { return hasMoved_; }
    bool wasSelecting() const { return wasSelecting_; }

private:
    int caret_;
    int pivot_;
    bool hasMoved_ = false;
    bool wasSelecting_ = false;
};

bool isOfText(const EditAction& action) {
    return action.getType() == EditAction::EditInsert || action.getType() == EditAction::EditDelete;
}

TextChange changeOf(const EditAction& action) {
    const int length = action.getString().length();
    const bool inserts = action.getType() == EditAction::EditInsert;
    return {action.getActionPosition(), inserts ? 0 : length, inserts ? length : 0};
}

/// All that a step does as one change of the text, if it can be told before anything is done.
class OneRewrite {
public:
    explicit OneRewrite(const Document& document)
        : path_(document), length_(document.text().length()) {}

    /// Takes up the next record; false where it has to be replayed by itself to know.
    bool add(const EditAction& action) {
        if (isOfText(action))
            return addChange(changeOf(action));
        if (action.getType() != EditAction::EditCaret)
            return false;
        path_.place(action.getCaretPosition(), action.getSelPivotPosition());
        return isCaretInText();
    }

    void apply(Document& document, const std::vector<EditAction>& step) const {
        const auto offset = [this](int position) {
            return static_cast<std::size_t>(position - whole_->start);
        };
        const int end = whole_->start + whole_->removed;
        GapText part(document.text().view(whole_->start, end));
        for (const EditAction& action : step) {
            if (!isOfText(action))
                continue;
            part.goTo(offset(action.getActionPosition()));
            if (action.getType() == EditAction::EditInsert)
                part.insert(action.getString().view());
            else
                part.erase(static_cast<std::size_t>(action.getString().length()));
        }
        document.rewriteUnrecorded(whole_->start, end, String(std::move(part).take()),
                                   path_.pivot(), path_.caret());
        if (path_.hasMoved())
            document.notifyCaretChanged();
        if (path_.wasSelecting())
            document.notifySelectionChanged();
    }

private:
    bool addChange(const TextChange& change) {
        if (change.start < 0 || length_ < change.start + change.removed)
            return false;
        length_ += change.inserted - change.removed;
        if (whole_)
            whole_->add(change);
        else
            whole_ = change;
        path_.follow(change);
        return isCaretInText();
    }

    bool isCaretInText() const { return 0 <= path_.caret() && path_.caret() < length_; }

    CaretPath path_;
    int length_;
    std::optional<TextChange> whole_;
};

/// Whether it changes several places, and then says where the caret goes, whatever is on the way.
bool isRewrite(const Document& document, const std::vector<EditAction>& step) {
    return !document.modes.pageMasters && !document.modes.dummyPage && !step.empty() &&
           step.back().getType() == EditAction::EditCaret &&
           std::count_if(step.begin(), step.end(), isOfText) > 1;
}

} // namespace

void StepReplay::replay(Document& document, const std::vector<EditAction>& step) {
    OneRewrite rewrite(document);
    if (isRewrite(document, step) &&
        std::all_of(step.begin(), step.end() - 1,
                    [&rewrite](const EditAction& action) { return rewrite.add(action); })) {
        rewrite.apply(document, step);
        History::replay(document, step.back());
        return;
    }
    for (const EditAction& action : step)
        History::replay(document, action);
}
