#include "document/BufferAlg.h"

#include "document/Document.h"

namespace BufferAlgorithms {

int BufferAlg::getCaretPos() const {
    return buffer_->getCaretPos();
}

int BufferAlg::getRootElement() const {
    return Document::of(*buffer_).text().root();
}

int BufferAlg::searchParent(const Core::String& name, int position) const {
    return Document::of(*buffer_).text().ancestor(position, name.view());
}

int BufferAlg::getNextElementByName(const Core::String& name, int position) const {
    return Document::of(*buffer_).text().nextNamed(position, name.view());
}

int BufferAlg::getClosingTagForTagAtPosition(int position) const {
    return Document::of(*buffer_).text().closingTag(position);
}

} // namespace BufferAlgorithms
