#pragma once

#include "PeerDocument.h"
#include "Replay.h"

#include <memory>

/// An editor at a document, and its keys.
class Keyboard {
public:
    virtual ~Keyboard() = default;

    virtual void type(char letter) = 0;
    virtual void backspace() = 0;
    virtual void enter() = 0;
    virtual void left() = 0;
    virtual void right() = 0;
    virtual void undo() = 0;
    virtual void goTo(const Place& place) = 0;

    /// Where the caret is: of the two offsets the one that counts here.
    virtual Place caret() const = 0;
    /// Whether the document is as it was at the beginning.
    virtual bool isUnchanged() const = 0;
};

std::shared_ptr<Writer> formeWriter(const PeerDocument& document);
std::shared_ptr<Keyboard> formeKeyboard(const PeerDocument& document);

// A QTextDocument with undo and without a layout, in which each key is an edit block.
std::shared_ptr<Writer> qtWriter(const PeerDocument& document);
std::shared_ptr<Keyboard> qtKeyboard(const PeerDocument& document);
