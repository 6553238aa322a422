// Objects, conditional and repeating sections, autotext.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/editing/objects/InlineRepeatAlg.h>

using BufferAlgorithms::InlineRepeatAlg;
using D = EditableDocumentBuffer;

std::vector<Operation> Calls::objects() {
    const auto document = documentRows();
    const Rows inlineRepeat([](Session& session) { return InlineRepeatAlg(&session.document()); },
                            "inlineRepeat");
    return {
        document("deleteObject", &D::deleteObject, {"path", "container", "inlineContext"}),
        document("removeComponent", &D::removeComponent, {"position"}),
        document("deleteFloatingRegion", &D::deleteFloatingRegion),
        document("deleteCurrentConditionalBlock", &D::deleteCurrentConditionalBlock),
        document("deleteConditionalBlockSequence", &D::deleteConditionalBlockSequence),
        document("deleteCurrentConditionalInline", &D::deleteCurrentConditionalInline),
        document("deleteConditionalInlineSequence", &D::deleteConditionalInlineSequence),
        document("deleteRepeatingSection", &D::deleteRepeatingSection),
        inlineRepeat("deleteInlineRepeat", &InlineRepeatAlg::deleteInlineRepeat),
        document("isRepeatingElement", &D::isRepeatingElement, {"name"}),
        document("getComponentContentFromPath", &D::getComponentContentFromPath, {"path"}),
        document("canDeleteListItem", &D::canDeleteListItem, {"path"}),
        document("insertAutotext", &D::insertAutotext, {"text", "replaceWord"}),
    };
}
