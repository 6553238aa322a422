// Sets up the pages of a document, writes its header on a page of its own, and begins a new section
// with pages of another kind.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/pages/LayoutMasterSetBuffer.h>
#include <forme/pages/PGMasterUtilities.h>
#include <forme/pages/PageSequenceBuffer.h>

#include <iostream>

namespace {

Xml::LengthOrPercent length(const wchar_t* text) {
    Xml::LengthOrPercent read;
    Xml::LengthOrPercent::parseLengthOrPercent(text, read);
    return read;
}

/// What a page set-up dialog does with the body of a page. One margin changes and nothing else:
/// what comes back as it was shown is not written.
void setUpPage(EditableDocumentBuffer& document, const Core::String& name) {
    LayoutMasterSetBuffer masters(&document);
    RegionData body = masters.getPageRegionsData(name).body;
    body.marginTop = length(L"40mm");
    masters.editRegionLayout(name, body, RegionType::REGION_BODY,
                             masters.getRegionsForPageMaster(name).back());
    masters.commitChangesToEditableBuffer();
}

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    document.addEditableElement(L"fo:block");
    document.addEditableElement(L"fo:inline");
    document.addInlineEditableElement(L"fo:inline");
}

/// Headers and footers are typed into on a practice page: a document beside the real one, with its
/// page masters and one of its sequences, in which only they can be edited.
void writeIntoHeader(EditableDocumentBuffer& document, const Core::String& master) {
    const int sequence = 0;
    const SmartPtr<EditableDocumentBuffer> practice(new EditableDocumentBuffer);
    setUp(*practice);
    practice->setContent(
        document.getContent().subString(0, document.getFirstPageGeneratorPos() - 1) +
            document.getPageSequenceForEditing(sequence, master, L"xsl-region-body") +
            L"</qfd:document>",
        true);
    practice->setPageMasterEditingMode(true);

    practice->moveCaretToStaticRegion(L"xsl-region-before", 0);
    practice->insertText(L"The ", false, false);

    PGMasterUtilities::applyChanges(&document, practice.get(), master, {sequence});
}

/// A section of wide pages at the end, with the header and footer that its pages have by default.
void addWideSection(EditableDocumentBuffer& document, const Core::String& name) {
    LayoutMasterSetBuffer masters(&document);
    masters.addSimplePageMaster(name, false);
    masters.setPageDimensions(name, L"297mm", L"210mm");
    masters.commitChangesToEditableBuffer();

    PageSequenceBuffer sequences(&document);
    sequences.addNewPageSequence(PageMasterData(name));
    sequences.commitChangesToEditableBuffer();
    document.moveCaretToPageSequence(static_cast<int>(sequences.getPageSequenceInfo().size()) - 1);
    document.insertText(L"Floor plan", false, false);
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: pages IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    const Core::String master = LayoutMasterSetBuffer(document.get()).getSimplePageMasterName(0);
    setUpPage(*document, master);
    writeIntoHeader(*document, master);
    addWideSection(*document, L"wide");
    std::cout << PageSequenceBuffer(document.get()).getPageSequenceInfo().size() << " sections\n";

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
