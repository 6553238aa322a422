#include "channels/TranspromoBuffer.h"

#include "foundation/Messages.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

namespace {

using Core::String;
using T = TranspromoBuffer;
using Places = Core::Vector<TranspromoInfo>;

const std::wstring first =
    L"\n\t<qf:trans-promo src='a &amp;amp; b' page-constraint=\"odd\" "
    L"alignment-constraint=\"left\" "
    L"region-constraint=\"Top &amp; all\" rule=' gold '/>"
    L"<!-- kept --><qf:trans-promo fo:id=\"p\" rule=\"X(a(b)c) \"  region-constraint=\"no\">\n"
    L"</qf:trans-promo>";
const std::wstring second =
    L"<qfd:page-sequence-repeat><qf:trans-promo src=\"other\"/><fo:flow><fo:block>z</fo:block>"
    L"</fo:flow></qfd:page-sequence-repeat>";

/// A template with two sequences; the caret is in the first.
struct Sequences : MarkedDocument {
    explicit Sequences(const std::wstring& places = first) {
        face().setContent(
            String(
                L"<!DOCTYPE qfd:document [<!ENTITY e 'E'>]>\n<qfd:document "
                L"xmlns:qfd=\"urn:forme:qfd/1.0\" xmlns:fo=\"urn:fo\" xmlns:qf=\"urn:qf\">"
                L"<qfd:attribute-value object=\"p\" attribute=\"fo:src\" dynamic-value=\"x/y\"/>"
                L"<fo:layout-master-set><fo:simple-page-master master-name=\"M\"><fo:region-body/>"
                L"<fo:region-before region-name=\"Top &amp; all\"/></fo:simple-page-master>"
                L"</fo:layout-master-set>" +
                start + places + flow + second + L"</qfd:document>"),
            true);
        document().setCaret(find(L"text") + 1);
    }
    T open() { return T(&face(), L"M"); }
    Places places() { return open().getTranspromoList(); }
    std::wstring text() const {
        const std::wstring all = content();
        EXPECT_TRUE(all.ends_with(second + L"</qfd:document>"));
        EXPECT_EQ(xmlError(all.c_str()), "");
        const std::size_t from = all.find(start) + start.size();
        return all.substr(from, all.rfind(flow) - from);
    }
    /// One step, after which there is nothing left to commit.
    void commit(const Places& places) {
        const EditorState before = stateOf(face());
        T buffer = open();
        buffer.overrideTranspromoList(places);
        EXPECT_EQ(stateOf(face()), before);
        buffer.commitChangesToEditableBuffer();
        T same = open();
        same.overrideTranspromoList(same.getTranspromoList());
        same.commitChangesToEditableBuffer();
        expectReplays(face(), before);
        const EditorState after = stateOf(face());
        EXPECT_EQ(after.text.view().substr(static_cast<std::size_t>(after.caret), 3), L"ext");
        buffer.commitChangesToEditableBuffer();
        open().commitChangesToEditableBuffer();
        EXPECT_EQ(stateOf(face()), after);
    }

    static inline const std::wstring start = L"<fo:page-sequence>";
    static inline const std::wstring flow =
        L"\n<fo:flow><fo:block>text</fo:block></fo:flow></fo:page-sequence>";
};

/// What a list says, ids aside.
std::vector<std::wstring> saidBy(const Places& places) {
    std::vector<std::wstring> said;
    const auto add = [&](const PropertyValueEx& value) {
        std::wstring all = std::to_wstring(static_cast<int>(value.getType())) +
                           wide(value.isStatic() ? value.getStaticValue() : String()) + L"|" +
                           wide(value.isDynamic() ? value.getDynamicValue() : String());
        for (const ConditionalValue& row : value.getConditionalValues())
            all += L"|" + wide(row.condition + L"?" + row.staticValue + L":" + row.dynamicValue);
        said.push_back(all);
    };
    for (const TranspromoInfo& place : places) {
        add(place.source);
        add(place.ruleKeyword);
        said.push_back(
            wide(T::getRegionTypeAsString(place.regionConstraint) + L" " +
                 TranspromoInfo::getPageConstraintAsString(place.pageConstraint) + L" " +
                 TranspromoInfo::getAlignmentConstraintAsString(place.alignmentConstraint)));
    }
    return said;
}

TEST(Transpromo, IsReadFromTheSequenceOfTheCaret) {
    Sequences document;
    const Places places = document.places();
    EXPECT_EQ(saidBy(places),
              (std::vector<std::wstring>{L"0a & b|", L"0gold|", L"region-before odd left", L"1|x/y",
                                         L"0a(b)c|", L"  "}));
    EXPECT_EQ(places[1].source.getObjectID(), L"p");
    document.document().setCaret(document.find(L"z<"));
    EXPECT_EQ(saidBy(document.places()), (std::vector<std::wstring>{L"0other|", L"0|", L"  "}));
    EXPECT_EQ(T::getRegionType(L"region-end"), Xml::PageRegionConstraint::End);
    EXPECT_EQ(T::getRegionType(L"region"), Xml::PageRegionConstraint::None);
}

TEST(Transpromo, IsReadAsCommitted) {
    Sequences document;
    Places places = document.places();
    TranspromoInfo odd;
    odd.source.setStaticValue(L"<a>&'\"\n\xA0");
    odd.ruleKeyword.setStaticValue(L" ) & (");
    odd.regionConstraint = Xml::PageRegionConstraint::Body;
    odd.pageConstraint = Xml::PageConstraint::Blank;
    odd.alignmentConstraint = Xml::AlignmentConstraint::Right;
    places.insert(places.begin(), odd);
    places.push_back(places[2]); // two under one id
    places[2].source.setType(PropertyValueType::Conditional);
    places[2].source.setConditionalValues({{L"", L"d", L"c", true}, {L"s", L"", L"", false}});
    places.push_back(odd);
    places[4].ruleKeyword.setType(PropertyValueType::Dynamic);
    places[4].ruleKeyword.setDynamicValue(L"k < 'k'");
    places[4].ruleKeyword.setStaticValue(L"");
    document.commit(places);
    EXPECT_EQ(saidBy(document.places()), saidBy(places));
    EXPECT_TRUE(document.text().starts_with(
        L"<qf:trans-promo fo:src=\"&lt;a&gt;&amp;'&quot;&#10;\xA0\" page-constraint=\"blank\" "
        L"alignment-constraint=\"right\" region-constraint=\"xsl-region-body\" "
        L"rule=\"FIND_KEYWORD( ) &amp; ()\"/><qf:trans-promo"));

    places = {document.places()[2]};
    places[0].source.setType(PropertyValueType::Static);
    places[0].regionConstraint = Xml::PageRegionConstraint::End; // which the master lacks
    document.commit(places);
    EXPECT_EQ(document.text(), L"<qf:trans-promo rule=\"FIND_KEYWORD(a(b)c)\"/><!-- kept -->");
    EXPECT_EQ(document.find(L"object=\"p\""), -1);
    document.commit({});
    EXPECT_EQ(document.text(), L"<!-- kept -->");
}

/// What cannot be done leaves no trace, and what changes nothing is no step.
TEST(Transpromo, IsLeftAlone) {
    Sequences document;
    T untouched = document.open();
    untouched.commitChangesToEditableBuffer();
    EXPECT_FALSE(document->canUndo());
    TranspromoInfo control;
    control.source.setStaticValue(L"\x1");
    EXPECT_THROW(untouched.overrideTranspromoList({control}), Core::Exception);
    EXPECT_EQ(untouched.getTranspromoList().size(), 2u);

    untouched.overrideTranspromoList({});
    document.document().setCaret(document.find(L"z<"));
    const EditorState before = stateOf(document.face());
    EXPECT_THROW(untouched.commitChangesToEditableBuffer(), Core::Exception);
    document.document().setCaret(-1);
    untouched.commitChangesToEditableBuffer();
    T without = document.open();
    without.commitChangesToEditableBuffer();
    EXPECT_THROW(without.getTranspromoList(), Core::NullPointerException);
    document.document().setCaret(before.caret);
    EXPECT_THROW(without.commitChangesToEditableBuffer(), Core::NullPointerException);
    EXPECT_EQ(stateOf(document.face()), before);

    document.open().deleteExistingTranspromo(document.find(L"<qfd:document"));
    EXPECT_EQ(stateOf(document.face()), before);
    document.open().deleteExistingTranspromo(document.find(L"<fo:page-sequence"));
    EXPECT_EQ(document.text(), L"<!-- kept -->");
    document->undo();
    EXPECT_EQ(stateOf(document.face()), before);
    EXPECT_FALSE(document->canUndo());
}

TEST(Transpromo, LeavesIdsToTheElementsThatBearThem) {
    Sequences document(first + L"<b id='p'/>");
    Places places = document.places();
    document.commit(places);
    EXPECT_EQ(saidBy(document.places()), saidBy(places));
    EXPECT_NE(document.places()[1].source.getObjectID(), L"p");
    places[1].source.setType(PropertyValueType::Static);
    document.commit(places);
    EXPECT_NE(document.find(L"object=\"p\""), -1);
}

/// Each takes tabs and a line break along, be it those that the one before has left.
TEST(Transpromo, GoesWithTheSpacesBeforeIt) {
    const std::wstring place = L"<qf:trans-promo/>";
    Sequences document(L"\n\t\n\t" + place + L"\t" + place + L" \n" + place + place + L"\n" +
                       place);
    const EditorState before = stateOf(document.face());
    document.open().deleteExistingTranspromo(document.find(L"<fo:page-sequence"));
    EXPECT_EQ(document.text(), L" ");
    expectReplays(document.face(), before);

    document->setContent(L"<qfd:document>\n<fo:page-sequence>\n<qf:trans-promo><a></b>"
                         L"</qf:trans-promo><fo:flow>a</fo:flow></fo:page-sequence></qfd:document>",
                         true);
    document.document().setCaret(document.find(L"a</fo"));
    EXPECT_TRUE(messageOf([&] { document.open(); }).starts_with("3:"));
}

} // namespace
