#pragma once

/// What fills each parameter of each operation, by "operation.parameter" or by the parameter's name
/// alone; a boolean without an entry is asked both ways. What begins with "$" is filled in from the
/// document.
inline const char* const argumentTable = R"json({
"name": "fo:block", "elementName": "fo:block", "container": "", "path": "",
"open.path": "$file", "setContentFromFile.path": "$file",
"save.path": "$other file", "saveToFile.path": "$other file",
"selectElement.path": "/qfd:document/fo:page-sequence/fo:flow",
"encoding": 1, "changeXmlEncoding.encoding": "UTF-16", "declaration": "xmlns:a=\"urn:a\"",
"content": "$content", "isInsideStartTag.text": "$content", "getNamespaces.text": "$content",
"text": "x", "xml": "<fo:inline>x</fo:inline>",
"replaceXmlText.xml": "x", "insertStyleSheet.xml": "<qf:stylesheet href=\"a\"/>",
"indentXmlText.xml": "$content", "insertDocumentInformation.xml": "<qf:info/>",
"position": "$caret", "start": "$pivot", "end": "$caret", "from": "$pivot", "to": "$caret",
"offset": 50, "offsetIsInSelection.offset": "$caret",
"index": 0, "sequenceIndex": 0, "flowName": "xsl-region-before",
"character": "x", "find": "never there", "replacement": "y", "direction": 0, "replace": false,
"defaultDictionaries": "en_US", "dictionaries": "en_US", "format": 0,
"type": 0, "properties": [["fo:color", "red"], ["font-weight", "bold"]],
"property": ["fo:color", "red"], "getParentProperty.property": "fo:color",
"getInheritablePropertyValueAtPosition.name": "fo:color", "setParentProperty.property": "fo:color",
"value": "red", "setItemLabelValue.value": "*", "className": "title", "label": "1)",
"item": "$item", "element": "$element", "level": "PDF508", "id": "here",
"cell": "$cell", "table": "$table", "groupElement": "$group", "group": 1, "row": 0,
"prefix": "fo", "column": 0, "columnNumber": 0, "table.getColumns.columns": [0], "span": 2, "width": "100pt",
"height": "20pt", "delta": 1, "border": 5, "info": {"width": "1pt", "color": "red", "style":
"solid"}, "elements": 0, "operation": 0, "style": "solid", "names": ["fo:color"],
"documentPosition": "$caret", "document": "<fo:table xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"/>",
"xpath": "/a/b", "fromXPath": "/a/b", "toXPath": "/a", "rowXPath": "/a/b", "groupXPath": "/a",
"groupBy": "c", "table.parseBorder.border": "1pt solid red",
"rows": 1, "table.getSpanOverMatrixFromRowGroupMatrix.columns": 1, "tableStart": "$table",
"getCellPositionInTable.columns": 1, "getCellPositionInTable.table": "table",
"buildSpanMatrix.columns": 1, "buildSpanMatrix.table": "table",
"pages.text": "$content", "detached.text": "$content", "detachedText.text": "$content",
"sequences.text": "$content", "buffer": "$content", "range": [0, 1], "region": "xsl-region-before",
"masters.position": "left", "getDrawn.count": 200, "getComputedProperty.name": "fo:border-top-width"
})json";

/// For any other parameter, the first that fits.
inline const char* const usualValues = R"json(["page", 0, [], {}, {"name": "page"}])json";

/// What is asked of an object that requests open is asked of one that the first request opened.
inline const char* const openingRequests = R"json({
    "table": ["table.open", -1], "masters": ["masters.open"], "sequences": ["sequences.open"],
    "detached": ["detached.open", "$content"], "detachedText": ["detachedText.open", "$content"]
})json";

/// Further requests; where a row holds several, those before the last come before the clock is
/// started.
inline const char* const furtherRequests = R"json([
    [["insertText", " ", false, false]],
    [["insertText", "&amp;", true, false]],
    [["insertText", "<fo:block>x</fo:block>", true, false]],
    [["insertText", "$blanks", false, false]],
    [["insertText", "$content text", false, true]],
    [["insertBreak", 1, false]], [["insertBreak", 2, false]], [["insertBreak", 5, false]],
    [["insertBreak", 5, true]], [["insertBreak", 6, false]],
    [["makeList", 1]], [["makeList", 2]], [["changeLabelType", 1]], [["changeLabelType", 2]],
    [["findReplace", "e", "y", false, false, 0, true]],
    [["findReplace", "never there", "y", false, true, 2, true]],
    [["findReplace", "never there", "y", true, false, 1, false]],
    [["getSelectionAs", 2]],
    [["setProperties", [["fo:text-align", "end"]], ""]],
    [["setProperties", [["qf:kind", "k"]], ""]],
    [["getNextSpellingError", "en_US", false]],
    [["erase", true, false], ["undo"]],
    [["erase", true, false], ["undo"], ["redo"]],
    [["insertText", "x", false, false], ["undo"]],
    [["insertText", "x", false, false], ["undo"], ["redo"]],
    [["setProperties", [["font-weight", "bold"]], ""], ["undo"]],
    [["setProperties", [["font-weight", "bold"]], ""], ["undo"], ["redo"]],
    [["setProperties", [["font-weight", "bold"]], ""], ["removeProperties", ""]],
    [["makeList", 0], ["undo"]],
    [["makeList", 0], ["undo"], ["redo"]],
    [["makeList", 0], ["removeList"]],
    [["table.open", -1], ["table.insertRow", true], ["table.commit"]],
    [["table.open", -1], ["table.insertRow", true], ["table.commit"], ["undo"]],
    [["moveCaretToFirstStaticRegion"], ["resetCaretFromStaticContent"]],
    [["setPageMasterEditingMode", true], ["moveCaretLeft", false, false, false]]
])json";

/// Where the caret stands, and what is selected, before each request.
inline const char* const placeTable = R"json({
"start": [["moveCaretHome", false]],
"middle": [["setCaretPos", false, "$middle"]],
"end": [["moveCaretToEnd", false]],
"rest": [["setCaretPos", false, "$middle"], ["moveCaretToEnd", true]],
"first": [["moveCaretHome", false], ["setCaretPos", true, "$middle"]],
"all": [["moveCaretHome", false], ["moveCaretToEnd", true]]
})json";

/// Documents of one flow: a beginning, a piece that comes again and again, an end. What closes the
/// pieces, if they are nested, comes as often, and so does what stands side by side in the
/// innermost one. For "@" in a piece its number stands in the text.
struct Shape {
    const char* name;
    const wchar_t* start;
    const wchar_t* piece;
    const wchar_t* end;
    const wchar_t* closing = L"";
    const wchar_t* inner = L"";
};

inline constexpr Shape shapes[]{
    {"paragraphs", L"", L"<fo:block>the quarterly statement &amp; its charges</fo:block>\n", L""},
    {"table", L"<fo:table><fo:table-body>",
     L"<fo:table-row><fo:table-cell><fo:block>12.50</fo:block></fo:table-cell>"
     L"<fo:table-cell><fo:block>charges</fo:block></fo:table-cell></fo:table-row>",
     L"</fo:table-body></fo:table><fo:block>end</fo:block>"},
    {"list", L"<fo:list-block>",
     L"<fo:list-item><fo:list-item-label><fo:block>&#x2022;</fo:block></fo:list-item-label>"
     L"<fo:list-item-body><fo:block>payments received</fo:block></fo:list-item-body>"
     L"</fo:list-item>",
     L"</fo:list-block>"},
    {"inlines", L"<fo:block>", L"a <fo:inline font-weight=\"bold\">bold</fo:inline> word, ",
     L"</fo:block>"},
    {"empty blocks", L"<fo:block>a</fo:block>", L"<fo:block/>", L"<fo:block>z</fo:block>"},
    {"comments", L"<fo:block>a", L"<!-- a note -->", L"z</fo:block>"},
    {"blanks", L"<fo:block>a", L" \n", L"z</fo:block>"},
    {"leading blanks", L"<fo:block>", L" ", L"z</fo:block>"},
    {"nonbreaking", L"<fo:block>", L"&#x00A0;", L"z</fo:block>"},
    {"static regions", L"<fo:block>a</fo:block></fo:flow></fo:page-sequence>",
     L"<fo:page-sequence master-reference=\"page\"><fo:static-content "
     L"flow-name=\"xsl-region-before\"><fo:block>a</fo:block></fo:static-content>"
     L"<fo:flow flow-name=\"xsl-region-body\"><fo:block>b</fo:block></fo:flow>"
     L"</fo:page-sequence>",
     L"<fo:page-sequence master-reference=\"page\"><fo:flow flow-name=\"xsl-region-body\">"
     L"<fo:block>z</fo:block>"},
    {"one word", L"<fo:block>", L"x", L"</fo:block>"},
    {"angle brackets", L"<fo:block>", L"a > b ", L"</fo:block>"},
    {"mixed siblings", L"",
     L"<fo:block>alpha</fo:block><fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)"
     L"</fo:block></fo:list-item-label><fo:list-item-body><fo:block>item</fo:block>"
     L"</fo:list-item-body></fo:list-item></fo:list-block>\n<fo:table><fo:table-body>"
     L"<fo:table-row><fo:table-cell><fo:block>cell</fo:block></fo:table-cell></fo:table-row>"
     L"</fo:table-body></fo:table>",
     L"<fo:block>end</fo:block>"},
    {"full cells", L"<fo:table><fo:table-body>",
     L"<fo:table-row><fo:table-cell><fo:block>a <fo:inline color=\"red\">b</fo:inline></fo:block>"
     L"<fo:block>c<fo:block/>d</fo:block></fo:table-cell><fo:table-cell><fo:list-block>"
     L"<fo:list-item><fo:list-item-label><fo:block>1)</fo:block></fo:list-item-label>"
     L"<fo:list-item-body><fo:block>item</fo:block></fo:list-item-body></fo:list-item>"
     L"</fo:list-block></fo:table-cell></fo:table-row>",
     L"</fo:table-body></fo:table><fo:block>end</fo:block>"},
    // 8,000 elements in each other in the largest, with the text of a few lines each.
    {"nested", L"",
     L"<fo:block>payments received in the last quarter, and what was charged for them, are listed "
     L"below in the order of their dates; for each the account is told that it went to, with the "
     L"rate",
     L"", L"</fo:block>"},
    {"nested inlines", L"<fo:block>a", L"<fo:inline>b ", L"z</fo:block>", L" c</fo:inline>"},
    {"nested lists", L"",
     L"<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)</fo:block>"
     L"</fo:list-item-label><fo:list-item-body><fo:block>item</fo:block>",
     L"<fo:block>z</fo:block>", L"</fo:list-item-body></fo:list-item></fo:list-block>"},
    {"nested tables", L"",
     L"<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>a</fo:block>",
     L"<fo:block>z</fo:block>", L"</fo:table-cell></fo:table-row></fo:table-body></fo:table>"},
    {"bare inlines", L"<fo:block>a ", L"<fo:inline>", L"z</fo:block>", L"</fo:inline>"},
    {"bare links", L"<fo:block>a ", L"<fo:basic-link>", L"z</fo:block>", L"</fo:basic-link>"},
    {"bare blocks", L"", L"<fo:block>", L"<fo:block>z</fo:block>", L"</fo:block>"},
    // Nested, with more behind what is nested
    {"followed blocks", L"", L"<fo:block>a", L"", L"<fo:block>b</fo:block></fo:block>"},
    {"followed inlines", L"<fo:block>", L"<fo:inline>a", L"</fo:block>",
     L"<fo:inline>b</fo:inline></fo:inline>"},
    {"followed lists", L"",
     L"<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)</fo:block>"
     L"</fo:list-item-label><fo:list-item-body><fo:block>item</fo:block>",
     L"<fo:block>z</fo:block>",
     L"<fo:block>more</fo:block></fo:list-item-body></fo:list-item></fo:list-block>"},
    // As many side by side as there are around them
    {"deep blocks", L"", L"<fo:block>a", L"", L"</fo:block>", L"<fo:block>b</fo:block>"},
    {"deep inlines", L"<fo:block>", L"<fo:inline>a", L"</fo:block>", L"</fo:inline>",
     L"<fo:inline>b</fo:inline>"},
    {"core inlines", L"<fo:block>a ", L"<fo:inline>", L" z</fo:block>", L"</fo:inline>", L"b"},
    {"deep words", L"<fo:block>", L"<fo:inline>a", L"</fo:block>", L"</fo:inline>", L"b "},
    {"deep lists", L"",
     L"<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)</fo:block>"
     L"</fo:list-item-label><fo:list-item-body><fo:block>item</fo:block>",
     L"<fo:block>z</fo:block>", L"</fo:list-item-body></fo:list-item></fo:list-block>",
     L"<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)</fo:block>"
     L"</fo:list-item-label><fo:list-item-body><fo:block>inner</fo:block>"
     L"</fo:list-item-body></fo:list-item></fo:list-block>"},
    {"attributes", L"<fo:block>a</fo:block><fo:block", L" n@=\"v\"", L">z</fo:block>"},
    {"table attributes", L"<fo:table", L" n@=\"v\"",
     L"><fo:table-body><fo:table-row><fo:table-cell><fo:block>a</fo:block></fo:table-cell>"
     L"</fo:table-row></fo:table-body></fo:table>"},
    // Texts whose tags do not match
    {"names in quotes", L"<fo:block>a</fo:block>", L"<x'>'", L"<fo:block>z</fo:block>"},
    {"closing inlines", L"<fo:block>a", L"</fo:inline>", L"z</fo:block>"},
    {"open inlines", L"<fo:block>a", L"<fo:inline>", L"z</fo:block>"},
    {"open blocks", L"<fo:block>a", L"<fo:block>b", L"z</fo:block>"},
    {"cut tags", L"<fo:block>a</fo:block>", L"<fo:block", L">z</fo:block>"},
    {"open quote", L"<fo:block>a<fo:inline b=\"", L">", L"z</fo:block>"},
    {"quotes", L"<fo:block>a</fo:block>", L"\">", L"<fo:block>z</fo:block>"},
    {"brackets", L"<fo:block>a", L">", L"z</fo:block>"},
    {"angles", L"<fo:block>a</fo:block>", L"<", L"<fo:block>z</fo:block>"},
    {"comment starts", L"<fo:block>a</fo:block>", L"<!--", L"<fo:block>z</fo:block>"},
    {"comment ends", L"<fo:block>a", L"-->", L"z</fo:block>"},
    {"section starts", L"<fo:block>a</fo:block>", L"<![CDATA[", L"<fo:block>z</fo:block>"},
    {"section ends", L"<fo:block>a", L"]]>", L"z</fo:block>"},
    {"instruction starts", L"<fo:block>a</fo:block>", L"<?", L"<fo:block>z</fo:block>"},
    {"instruction ends", L"<fo:block>a", L"?>", L"z</fo:block>"},
    {"types", L"<fo:block>a</fo:block>", L"<!DOCTYPE ", L"<fo:block>z</fo:block>"},
    {"ampersands", L"<fo:block>a", L"&", L"z</fo:block>"},
    {"semicolons", L"<fo:block>a", L";", L"z</fo:block>"},
    {"open cells", L"<fo:block>a</fo:block>", L"<fo:table-cell>", L"<fo:block>z</fo:block>"},
    {"open tables", L"<fo:block>a</fo:block>", L"<fo:table><fo:block>b", L"<fo:block>z</fo:block>"},
    {"closing tables", L"<fo:block>a</fo:block>", L"</fo:table>", L"<fo:block>z</fo:block>"},
    {"open items", L"<fo:block>a</fo:block>", L"<fo:list-item>", L"<fo:block>z</fo:block>"},
    {"open lists", L"<fo:block>a</fo:block>",
     L"<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)</fo:block></"
     L"fo:list-item-label><fo:list-item-body><fo:block>b</fo:block>",
     L"<fo:block>z</fo:block>"},
    {"open scripts", L"<fo:block>a</fo:block>", L"<qfd:xslt>", L"<fo:block>z</fo:block>"},
    {"closing scripts", L"<fo:block>a</fo:block>", L"</qfd:xslt>", L"<fo:block>z</fo:block>"},
    {"open sequences", L"<fo:block>a</fo:block>", L"<fo:page-sequence>", L"<fo:block>z</fo:block>"},
    {"open regions", L"<fo:block>a</fo:block>", L"<fo:page-sequence><fo:static-content>",
     L"<fo:block>z</fo:block>"},
    {"open masters", L"<fo:block>a</fo:block>", L"<fo:layout-master-set><fo:simple-page-master>",
     L"<fo:block>z</fo:block>"},
    {"closing flows", L"<fo:block>a</fo:block>", L"</fo:block></fo:flow>",
     L"<fo:block>z</fo:block>"},
    {"open flows", L"<fo:block>a</fo:block>", L"<fo:flow><fo:block>b", L"<fo:block>z</fo:block>"},
};
