#include "editing/objects/InlineRepeatAlg.h"

namespace BufferAlgorithms {

void InlineRepeatAlg::deleteInlineRepeat() {
    buffer().deleteParent(L"qfd:inline-repeat");
}

} // namespace BufferAlgorithms
