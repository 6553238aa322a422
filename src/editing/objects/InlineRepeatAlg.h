#pragma once

#include "document/BufferAlg.h"

namespace BufferAlgorithms {

/// What can be done to a repeated piece of a line.
class FORME_API InlineRepeatAlg : public BufferAlg {
public:
    using BufferAlg::BufferAlg;

    /// Deletes the nearest qfd:inline-repeat around the caret, with its content; nothing outside of
    /// one. One undo step.
    void deleteInlineRepeat();
};

} // namespace BufferAlgorithms
