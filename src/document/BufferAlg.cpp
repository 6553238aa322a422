#include "document/BufferAlg.h"

namespace BufferAlgorithms {

int BufferAlg::getCaretPos() const {
    return buffer_->getCaretPos();
}

int BufferAlg::getRootElement() const {
    return buffer_->getRootElementPos();
}

int BufferAlg::searchParent(const Core::String& name, int position) const {
    return buffer_->searchParent(name, position, false, true, L"");
}

int BufferAlg::getNextElementByName(const Core::String& name, int position) const {
    return buffer_->getNextElementByName(name, position);
}

int BufferAlg::getClosingTagForTagAtPosition(int position) const {
    return buffer_->getClosingTagForTagAtPosition(position);
}

} // namespace BufferAlgorithms
