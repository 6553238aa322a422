#include "document/BufferAlg.h"

#include <gtest/gtest.h>

namespace {

/// As a host would write one: counts the elements of a name around the caret.
class ElementCounter : public BufferAlgorithms::BufferAlg {
public:
    using BufferAlg::BufferAlg;

    int countIn(const Core::String& around, const Core::String& name) const {
        const int parent = searchParent(around, getCaretPos());
        const int element = parent < 0 ? getRootElement() : parent;
        int count = 0;
        for (int child = getNextElementByName(name, element);
             child >= 0 && child < getClosingTagForTagAtPosition(element);
             child = getNextElementByName(name, child))
            ++count;
        return count;
    }
};

} // namespace

TEST(BufferAlg, GivesAHostsAlgorithmTheScanners) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContent(L"<qfd:document><fo:flow><fo:block>a<fo:block>b</fo:block></fo:block>"
                         L"</fo:flow><fo:block>c</fo:block></qfd:document>",
                         true);
    EXPECT_EQ(ElementCounter(document).countIn(L"fo:flow", L"fo:block"), 2);
    EXPECT_EQ(ElementCounter(document).countIn(L"fo:table", L"fo:block"), 3);
    EXPECT_THROW(ElementCounter(nullptr).countIn(L"", L""), Core::NullPointerException);
}
