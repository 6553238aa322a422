#include "pages/PracticePages.h"

#include "foundation/StringFormatStream.h"
#include "text/Markup.h"
#include "text/XmlScan.h"

using Core::String;
using Core::StringFormatStream;

namespace {

constexpr int emptyLines = 10;

constexpr const wchar_t* notice =
    LR"-(<fo:block text-align="center" font-family="Arial" font-weight="bold" font-size="12pt" )-"
    LR"-(color="rgb(153,153,153)">{0}</fo:block>)-";

constexpr const wchar_t* page = LR"(<fo:page-sequence master-reference="{0}">
	<fo:static-content flow-name="{1}">
		<fo:block>&#x00A0;</fo:block>
	</fo:static-content>
	<fo:static-content flow-name="{2}">
		<fo:block>&#x00A0;</fo:block>
	</fo:static-content>
	<fo:static-content flow-name="{3}">
		<fo:block>&#x00A0;</fo:block>
	</fo:static-content>
	<fo:static-content flow-name="{4}">
		<fo:block>&#x00A0;</fo:block>
	</fo:static-content>
	<fo:flow flow-name="{5}" font-family="Arial" font-size="12pt">
	{6}
		{7}
</fo:flow>
</fo:page-sequence>)";

constexpr const wchar_t* document = LR"(<?xml version="1.0" encoding="utf-8"?>
<fo:root xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qf="urn:forme:qf/1.0" xmlns:qc="urn:forme:2008/qc" xmlns:svg="http://www.w3.org/2000/svg" font-family="Times" font-size="12pt">
<fo:layout-master-set>
<fo:simple-page-master master-name="Letter Page">
<fo:region-body region-name="xsl-region-body"/>
</fo:simple-page-master>
</fo:layout-master-set>
<fo:page-sequence master-reference="Letter Page">
<fo:flow flow-name="xsl-region-body">
<fo:block>{0}</fo:block>
</fo:flow>
</fo:page-sequence>
</fo:root>
)";

template <typename... Texts>
String filled(const wchar_t* format, const Texts&... texts) {
    StringFormatStream stream(format);
    (stream << ... << texts);
    return stream.getString();
}

String escaped(String plain) {
    Markup::escape(plain);
    return plain;
}

String noticeOf(const String& plain) {
    return filled(notice, escaped(plain));
}

String lockedNotice(const String& master) {
    return noticeOf(L"You are editing " + master + L" page type");
}

String repeated(const wchar_t* line) {
    String lines;
    for (int i = 0; i < emptyLines; ++i)
        lines += line;
    return lines;
}

bool isQuoteAt(XmlScan::Text text, int position) {
    return XmlScan::standsAt(text, L"\"", position) || XmlScan::standsAt(text, L"'", position);
}

/// Whether behind the unit an attribute's name without its prefix can begin.
bool canPrecedeName(wchar_t unit) {
    return unit == L':' || String::isSpace(unit);
}

} // namespace

String PracticePages::lockedFlow(const String& flowName, const String& master) {
    return filled(
               L"\t\t<fo:flow flow-name=\"{0}\" font-family=\"Arial\" font-size=\"10pt\">\n\t\t\t",
               escaped(flowName)) +
           repeated(L"<fo:block>&#x00A0;</fo:block>\n\t\t\t") + lockedNotice(master) +
           L"\n\t\t</fo:flow>";
}

String PracticePages::lockedContent(const String& master) {
    return repeated(L"<fo:block fo:text-align=\"center\">&#x00A0;</fo:block>\n") +
           lockedNotice(master) + L"\n";
}

String PracticePages::dummyPage(const String& master, std::map<String, String> regions) {
    const auto nameOf = [&](const wchar_t* region) { return escaped(regions[region]); };
    return filled(page, escaped(master), nameOf(L"region-before"), nameOf(L"region-after"),
                  nameOf(L"region-start"), nameOf(L"region-end"), nameOf(L"region-body"),
                  noticeOf(filled(String::loadString(19600), master)),
                  noticeOf(String::loadString(19601)));
}

String PracticePages::dummyDocument(const String& markup) {
    return filled(document, markup);
}

void PracticePages::changeMasterReference(String& text, const String& master) {
    static const String name = L"master-reference";
    if (master.empty())
        return;
    for (int start = text.find(name, 0); start >= 0;
         start = text.find(name, static_cast<unsigned>(start + 1))) {
        const XmlScan::Text all = text.view();
        const int equals = XmlScan::skipSpaces(all, start + name.length());
        const int open = XmlScan::skipSpaces(all, equals + 1);
        const bool isAttribute = (start == 0 || canPrecedeName(text[start - 1])) &&
                                 XmlScan::standsAt(all, L"=", equals) && isQuoteAt(all, open);
        const int close = isAttribute ? text.find(text[open], static_cast<unsigned>(open + 1)) : -1;
        if (close < 0)
            continue;
        const String quote(text[open], 1);
        text.replace(static_cast<unsigned>(start), static_cast<unsigned>(close - start + 1),
                     name + L"=" + quote + escaped(master) + quote);
        return;
    }
}
