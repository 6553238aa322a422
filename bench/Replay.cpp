#include "Replay.h"

void Replay::advanceTo(std::size_t keys) {
    while (!isAtEnd() && costs_.times.size() < keys)
        replay(trace_.patches[next_++]);
}

void Replay::replay(const Patch& patch) {
    erase(patch);
    writer_.goTo(patch.position, written_);
    for (const char character : patch.inserted)
        writer_.type(character, costs_);
    written_.insert(static_cast<std::size_t>(patch.position), patch.inserted);
    noteIndex(patch.position + static_cast<int>(patch.inserted.size()));
}

/// By Backspace where the caret is behind what goes, else by Delete.
void Replay::erase(const Patch& patch) {
    const int behind = patch.position + patch.deleted;
    const bool backward = writer_.index() == behind;
    for (int i = 0; i < patch.deleted; ++i) {
        const int at = backward ? behind - i - 1 : patch.position;
        writer_.goTo(backward ? at + 1 : at, written_);
        writer_.eraseCharacter(backward, written_[static_cast<std::size_t>(at)], costs_);
        written_.erase(static_cast<std::size_t>(at), 1);
        noteIndex(at);
    }
}

void Replay::noteIndex(int index) {
    const std::size_t lineFeed =
        index == 0 ? std::string::npos : written_.rfind('\n', static_cast<std::size_t>(index - 1));
    const int line = lineFeed == std::string::npos ? 0 : static_cast<int>(lineFeed) + 1;
    writer_.noteIndex(index, index - line);
}
