#include "document/BufferAlg.h"

#include <gtest/gtest.h>

namespace {

/// As a host would write one: counts the elements of a name in the element around the caret.
class ElementCounter : public BufferAlgorithms::BufferAlg {
public:
    using BufferAlg::BufferAlg;

    int count(const Core::String& name, const Core::String& around) const {
        const int parent = searchParent(around, getCaretPos());
        return countIn(parent < 0 ? getRootElement() : parent, name);
    }

private:
    int countIn(int element, const Core::String& name) const {
        int count = 0;
        const int end = getClosingTagForTagAtPosition(element);
        for (int child = getNextElementByName(name, element); child >= 0 && child < end;
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
    const ElementCounter counter(document);
    EXPECT_EQ(counter.count(L"fo:block", L"fo:flow"), 2);
    EXPECT_EQ(counter.count(L"fo:block", L"fo:table"), 3);
}

TEST(BufferAlg, NeedsADocument) {
    EXPECT_THROW(ElementCounter(nullptr).count(L"fo:block", L""), Core::NullPointerException);
}
