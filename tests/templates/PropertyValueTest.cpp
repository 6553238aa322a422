#include "templates/PropertyValueHandler.h"

#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

using Core::String;
using H = PropertyValueHandler;

/// A document with these entries among its template data.
SmartPtr<EditableDocumentBuffer> documentWith(const std::wstring& entries) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUpAsHost(*document);
    document->setContent(
        String(
            LR"(<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="f"><qfd:variable name="v"/>)" +
            entries +
            L"<fo:layout-master-set/><fo:page-sequence><fo:flow><fo:block fo:id='i' "
            L"fo:src=\"url( 'a.png' )\">a</fo:block></fo:flow></fo:page-sequence></qfd:document>"),
        true);
    return document;
}

/// An entry of the object "i"; each text is an attribute.
std::wstring entry(const std::wstring& rest, const wchar_t* name = L"fo:src") {
    return L"<qfd:attribute-value object=\"i\" attribute=\"" + std::wstring(name) + L"\" " + rest +
           L"/>";
}

PropertyValueEx read(const SmartPtr<EditableDocumentBuffer>& document,
                     const wchar_t* name = L"fo:src", const wchar_t* id = L"i") {
    PropertyValueEx value(name, id);
    H::read(document, value);
    return value;
}

std::wstring entriesOf(const SmartPtr<EditableDocumentBuffer>& document) {
    const std::wstring text = wide(document->getContent());
    const std::size_t start = text.find(L"name=\"v\"/>") + 10;
    return text.substr(start, text.find(L"<fo:layout") - start);
}

TEST(PropertyValues, AreOfTheTypeOfTheirFirstEntry) {
    const std::wstring row = entry(L"condition='c' value='v'");
    const std::wstring dynamic = entry(L"dynamic-value='d'");
    const std::wstring otherwise = entry(L"value='o'");
    const std::wstring blank = entry(L"");
    const std::wstring other = entry(L"dynamic-value='z'", L"fo:color");
    const auto typed = [](const std::wstring& entries) {
        const PropertyValueEx value = read(documentWith(entries));
        return std::pair(static_cast<int>(value.getType()), value.getConditionalValues().size());
    };
    EXPECT_EQ(typed(L""), std::pair(0, std::size_t{0}));
    EXPECT_EQ(typed(other), std::pair(0, std::size_t{0}));
    EXPECT_EQ(typed(blank + dynamic + row), std::pair(0, std::size_t{0}));
    EXPECT_EQ(typed(other + dynamic + row), std::pair(1, std::size_t{0}));
    EXPECT_EQ(typed(row + other + row), std::pair(2, std::size_t{2}));
    EXPECT_EQ(typed(otherwise), std::pair(2, std::size_t{1}));
    EXPECT_EQ(typed(row + dynamic + otherwise + blank), std::pair(2, std::size_t{4}));
    EXPECT_EQ(read(documentWith(dynamic)).getDynamicValue(), L"d");
    const auto rows = read(documentWith(row + dynamic)).getConditionalValues();
    EXPECT_EQ(rows,
              (Core::Vector<ConditionalValue>{{L"v", L"", L"c", false}, {L"", L"d", L"", true}}));
}

TEST(PropertyValues, OfLinksAreUnwrapped) {
    const auto document = documentWith(L"");
    const auto unwrapped = [&](const wchar_t* value, const wchar_t* name = L"fo:src",
                               const wchar_t* id = L"i") {
        PropertyValueEx link(name, id);
        link.setStaticValue(value);
        H::read(document, link);
        return link.getStaticValue();
    };
    EXPECT_EQ(unwrapped(L"url('a.png')"), L"a.png");
    EXPECT_EQ(unwrapped(L"url('a.png')", L"fo:color"), L"url('a.png')");
    EXPECT_EQ(unwrapped(L"url('a.png')", L"fo:src", L""), L"url('a.png')");
    EXPECT_EQ(unwrapped(L"url  ( \"a (1).png\" ) "), L"a (1).png");
    for (const wchar_t* empty : {L"url()", L"url('')", L"url( \"' )"})
        EXPECT_EQ(unwrapped(empty), L"");
    for (const wchar_t* kept :
         {L"", L"url", L"a.png", L"url('a'", L"url 'a')", L"url)a(", L"URL(a)"})
        EXPECT_EQ(unwrapped(kept), kept);

    PropertyValueEx source(L"fo:src", L"");
    H::read(document, L"/qfd:document/fo:page-sequence/fo:flow/fo:block", source);
    EXPECT_EQ(source.getObjectID(), L"i");
    EXPECT_EQ(source.getStaticValue(), L"a.png");

    const auto escaped = documentWith(L"<qfd:attribute-value object='a&amp;b' attribute='fo:src' "
                                      L"dynamic-value='d'/>");
    PropertyCollection asWritten;
    asWritten.addProperty({L"fo:id", L"a&amp;b"}, true);
    asWritten.addProperty({L"fo:src", L"url(&quot;x&amp;y&quot;)"}, true);
    H::read(escaped, asWritten, source);
    EXPECT_EQ(source.getDynamicValue(), L"d");
    EXPECT_EQ(source.getStaticValue(), L"x&y");
}

TEST(PropertyValues, AreReadAsWritten) {
    const std::wstring others =
        entry(L"dynamic-value='z'", L"fo:color") +
        L"<qfd:attribute-value object='j' attribute='fo:src' note='n'><!-- kept --></qfd:attribute-"
        L"value><qfd:attribute-value value='w'/><x:attribute-value xmlns:x='u' object='i' "
        L"attribute='fo:src' value='w'/>";
    const auto document =
        documentWith(entry(L"condition='x' value='v' dynamic-value='d'") + others);
    H::write(read(document), document); // the rows as they are
    EXPECT_FALSE(document->canUndo());
    PropertyValueEx value(L"fo:src", L"i");
    value.setType(PropertyValueType::Conditional);
    value.setConditionalValues({{L"a", L"", L"c<d", false}, {L"", L"e", L"f", true}, {}});
    H::write(value, document);
    EXPECT_EQ(read(document).getConditionalValues(), value.getConditionalValues());
    EXPECT_EQ(entriesOf(document), others + entry(L"condition=\"c&lt;d\" value=\"a\"") +
                                       entry(L"condition=\"f\" dynamic-value=\"e\"") +
                                       L"<qfd:attribute-value object=\"i\" attribute=\"fo:src\"/>");

    value.setType(PropertyValueType::Dynamic);
    value.setDynamicValue(L"e'\"&<");
    H::write(value, document);
    EXPECT_TRUE(read(document).isDynamic());
    EXPECT_EQ(read(document).getDynamicValue(), L"e'\"&<");
    const EditorState before = stateOf(*document);
    H::write(value, document);
    EXPECT_EQ(stateOf(*document), before);

    value.setType(PropertyValueType::Static);
    H::write(value, document);
    EXPECT_EQ(entriesOf(document), others);
    EXPECT_TRUE(read(document).isStatic());
    document->undo();
    EXPECT_EQ(stateOf(*document), before);
}

} // namespace
