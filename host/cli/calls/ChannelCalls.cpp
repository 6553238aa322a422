// What travels in a document beside its content: bookmarks, annotations, sections with conditions.

#include "calls/Calls.h"
#include "calls/RecordWire.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/channels/AnnotationBuffer.h>
#include <forme/channels/BookmarkBuffer.h>
#include <forme/channels/ConditionalSectionBuffer.h>
#include <forme/foundation/xml/DomParser.h>

/// A document of its own as its text.
template <>
struct Wire<SmartPtr<Xml::XmlDocument>> {
    using Tree = SmartPtr<Xml::XmlDocument>;
    static constexpr const char* name = "XML text or null";
    static bool matches(const Json& value) { return value.is_null() || value.is_string(); }
    static Tree read(const Json& value) {
        if (value.is_null())
            return {};
        const std::string& text = value.get_ref<const std::string&>();
        Xml::DomParser parser;
        parser.parseMemory(reinterpret_cast<const unsigned char*>(text.data()), text.size());
        return Tree(parser.getDocument());
    }
    static Json write(const Tree& tree) {
        return tree ? Wire<Core::String>::write(tree->writeToString().trim()) : Json();
    }
};

template <>
const std::vector<RecordField<DocumentSignature>>& fieldsOf<DocumentSignature>() {
    using D = DocumentSignature;
    static const std::vector<RecordField<D>> fields{
        field<&D::name>("name"), field<&D::location>("location"), field<&D::reason>("reason"),
        field<&D::title>("title"), field<&D::certificateSerialNumber>("certificateSerialNumber")};
    return fields;
}
template <>
struct Wire<DocumentSignature> : RecordWire<DocumentSignature> {
    static inline const std::string name = describe("signature");
};

template <>
struct Wire<ConditionalSectionBuffer::Type> {
    using Type = ConditionalSectionBuffer::Type;
    static constexpr const char* name = "type of sections (0 block, 1 inline)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 1;
    }
    static Type read(const Json& value) { return static_cast<Type>(value.get<int>()); }
};

namespace {

using A = AnnotationBuffer;
using B = BookmarkBuffer;
using C = ConditionalSectionBuffer;

template <typename Buffer, typename... Arguments>
SmartPtr<Buffer> open(Session& session, Arguments... arguments) {
    return SmartPtr<Buffer>(new Buffer(&session.document(), arguments...));
}

// Nodes are numbered only where there are some.

OpenedObjects::Tree treeOf(A& annotations) {
    return [&annotations]() -> Xml::Node* {
        const auto nodes = annotations.getAnnotationNodes();
        return nodes.empty() ? nullptr : nodes.front()->get_parent();
    };
}

OpenedObjects::Tree treeOf(C& sections) {
    return [&sections]() -> Xml::Node* {
        if (sections.getDocumentBufferStart() < 0)
            return nullptr;
        const Xml::Element* first = sections.getConditionalBlockAtIndex(0);
        return first ? first->get_parent() : nullptr;
    };
}

std::vector<Operation> bookmarkRows() {
    const OpenedRows<B> bookmarks("bookmarks");
    return {
        bookmarks.openMade(&open<B>, [](B&) { return OpenedObjects::Tree(); }),
        bookmarks.close(),
        bookmarks("getProcessedDocumentForControl", &B::getProcessedDocumentForControl),
        bookmarks("getProcessedTreeForDocument", &B::getProcessedTreeForDocument, {"control"}),
        bookmarks("getXmlDocument", &B::getXmlDocument),
        bookmarks("setXmlDocument", &B::setXmlDocument, {"tree"}),
        bookmarks("getDocumentBufferStart", &B::getDocumentBufferStart),
        bookmarks("getDocumentBufferEnd", &B::getDocumentBufferEnd),
        bookmarks("commitChangesToEditableBuffer", &B::commitChangesToEditableBuffer),
        bookmarks("commit", &B::commitChangesToEditableBuffer),
    };
}

std::vector<Operation> annotationRows() {
    const OpenedRows<A> annotations("annotations");
    return {
        annotations.openMade(&open<A>, &treeOf),
        annotations.close(),
        annotations("getAnnotationNodes", &A::getAnnotationNodes),
        annotations("getAnnotation", &A::getAnnotation, {"id"}),
        annotations("generateAnnotationId", &A::generateAnnotationId),
        annotations("addJavaScriptToAnnotation", &A::addJavaScriptToAnnotation,
                    {"id", "script", "outputType"}),
        annotations("getJSElementsFromAnnotation", &A::getJSElementsFromAnnotation, {"id"}),
        annotations("hasDocumentSignature", &A::hasDocumentSignature),
        annotations("getDocumentSignatureID", &A::getDocumentSignatureID),
        annotations("getDocumentSignature", &A::getDocumentSignature),
        annotations("setDocumentSignature", &A::setDocumentSignature, {"signature", "id"}),
        annotations("removeDocumentSignature", &A::removeDocumentSignature, {"id"}),
        annotations("annotationHasSignature", &A::annotationHasSignature, {"annotation"}),
        annotations("getLastSignatureInAnnotation", &A::getLastSignatureInAnnotation,
                    {"annotation"}),
        annotations("getDocumentSignatureFromElement", &A::getDocumentSignatureFromElement,
                    {"signature"}),
        annotations("getDocumentBufferStart", &A::getDocumentBufferStart),
        annotations("getDocumentBufferEnd", &A::getDocumentBufferEnd),
        annotations("getAttributeValue", &A::getAttributeValue, {"element", "name", "prefix"}),
        annotations("commitChangesToEditableBuffer", &A::commitChangesToEditableBuffer),
        annotations("commit", &A::commitChangesToEditableBuffer),
    };
}

std::vector<Operation> sectionRows() {
    const OpenedRows<C> sections("sections");
    return {
        sections.openMade(&open<C, C::Type>, &treeOf, {"type"}),
        sections.close(),
        sections("hasFallbackSection", &C::hasFallbackSection),
        sections("canDeleteSection", &C::canDeleteSection),
        sections("getConditionalBlockAtIndex", &C::getConditionalBlockAtIndex, {"index"}),
        sections("getFallbackSection", &C::getFallbackSection),
        sections("insertConditionalSection", &C::insertConditionalSection, {"condition"}),
        sections("insertFallbackSection", &C::insertFallbackSection),
        sections("deleteCurrentConditionalSection", &C::deleteCurrentConditionalSection),
        sections("deleteFallbackSection", &C::deleteFallbackSection),
        sections("getDocumentBufferStart", &C::getDocumentBufferStart),
        sections("getDocumentBufferEnd", &C::getDocumentBufferEnd),
        sections("getAttributeValue", &C::getAttributeValue, {"element", "name", "prefix"}),
        sections("commitChangesToEditableBuffer", &C::commitChangesToEditableBuffer),
        sections("commit", &C::commitChangesToEditableBuffer),
        documentRows()("getConditionIndex", &EditableDocumentBuffer::getConditionIndex,
                       {"position", "sequenceName", "sectionName"}),
    };
}

} // namespace

std::vector<Operation> Calls::channels() {
    std::vector<Operation> all;
    for (const auto rows : {bookmarkRows, annotationRows, sectionRows})
        for (Operation& row : rows())
            all.push_back(std::move(row));
    return all;
}
