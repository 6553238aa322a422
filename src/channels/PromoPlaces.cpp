#include "channels/PromoPlaces.h"

#include "channels/PromoText.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/NamespaceBinding.h"
#include "document/PageSequences.h"
#include "document/RecordedCommand.h"
#include "foundation/Exception.h"
#include "foundation/ObjectId.h"
#include "foundation/xml/Element.h"
#include "pages/MasterText.h"
#include "pages/Regions.h"
#include "templates/TemplateValues.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"
#include "trees/PiecedText.h"

#include <algorithm>
#include <set>
#include <utility>

using Core::String;
using Core::Vector;
using Xml::Element;

namespace {

/// The sequence that the caret is in; -1 for none.
int sequenceIn(const Document& document) {
    return PageSequences::around(document, document.caret());
}

PromoElement::Regions regionsOf(Document& document, const String& master) {
    PromoElement::Regions regions;
    const int element = MasterText::find(document.text(), master);
    if (element < 0)
        return regions;
    Fragment tree(&document);
    tree.read(element);
    for (const Element* region : Regions::of(*tree.root()))
        regions[region->get_name()] = Regions::flowNameOf(*region);
    return regions;
}

/// What stands in the root of a tree's text, without the line break behind its start tag.
String placesIn(const String& written) {
    const int start = XmlScan::tagEnd(written.view(), 1) + 1;
    const int end = XmlScan::closingTag(written.view(), 0);
    return end < start ? String() : String(XmlScan::slice(written.view(), start, end)).trim();
}

/// Gives the places whose values are not all static an id each that is not taken, and both their
/// values that id.
void giveIds(Vector<TranspromoInfo>& places, std::set<String> taken) {
    for (TranspromoInfo& place : places) {
        if (PromoElement::isStatic(place))
            continue;
        String id = place.source.getObjectID();
        while (id.empty() || !taken.insert(id).second)
            id = ObjectId::generate();
        place.source.setObjectID(id);
        place.ruleKeyword.setObjectID(id);
    }
}

/// The values to be written: of a static place only that there is nothing any more under its ids,
/// unless something else has them.
std::vector<PropertyValueEx> valuesOf(const Vector<TranspromoInfo>& places,
                                      std::set<String> taken) {
    for (const TranspromoInfo& place : places)
        if (!PromoElement::isStatic(place))
            taken.insert(place.source.getObjectID());
    std::vector<PropertyValueEx> values;
    for (const TranspromoInfo& place : places)
        for (const PropertyValueEx& value : {place.ruleKeyword, place.source})
            if (!PromoElement::isStatic(place) ||
                !(value.getObjectID().empty() || taken.contains(value.getObjectID())))
                values.push_back(value);
    return values;
}

/// Carries a change out as one undo step that leaves a run of typing open, to which it then
/// belongs. If it raises, the scope brings the run back with all else. Answers whether it stood,
/// which one that answers false itself or has changed nothing does not.
template <typename Change>
bool carryOutInRun(Document& document, Change change) {
    const CommandScope scope(document);
    const std::optional<unsigned> run = std::exchange(document.typingGroup, std::nullopt);
    bool stands = false;
    {
        RecordedCommand command(document);
        const TextMark before = document.text().mark();
        stands = change() && !document.text().isAsAt(before) && command.mayStand();
        if (!stands)
            command.takeBack();
    }
    document.typingGroup = run;
    return stands;
}

} // namespace

PromoPlaces::PromoPlaces(Document& document, const String& master, Fragment& fragment)
    : document_(&document) {
    if (const int sequence = sequenceIn(document); document.text().closingTag(sequence) >= 0)
        read(master, sequence, fragment);
}

void PromoPlaces::read(const String& master, int sequence, Fragment& fragment) {
    const XmlText& text = document_->text();
    const int root = text.root();
    regions_ = regionsOf(*document_, master);
    source_ = PromoText::markupIn(text, sequence);
    PiecedText pieces{DocumentSeam(document_)};
    pieces.made(String(text.prolog().documentType)).stretch(root, text.next(root) - 1);
    for (const int element : PromoText::in(text, sequence))
        pieces.stretch(element, text.lastOffsetOf(element));
    fragment.setTree(pieces.made(L"</" + text.nameAt(root) + L">").parse());
    asRead_ = Fragment::textOf(*fragment.tree());
}

Vector<TranspromoInfo> PromoPlaces::list(const Fragment& fragment) const {
    const std::vector<Element*> elements = Elements::childrenOf(*fragment.root(), L"trans-promo");
    const bool hasComputed =
        std::any_of(elements.begin(), elements.end(),
                    [](const Element* element) { return !PromoElement::idOf(*element).empty(); });
    const TemplateEntries entries =
        hasComputed ? TemplateValues::entriesOf(*document_) : TemplateEntries();
    Vector<TranspromoInfo> places;
    for (const Element* element : elements)
        places.push_back(PromoElement::read(*element, regions_, entries));
    return places;
}

void PromoPlaces::override(Fragment& fragment, Vector<TranspromoInfo> places) {
    Element& root = *fragment.root();
    for (const TranspromoInfo& place : places)
        PromoElement::requireText(place);
    const std::set<String> borne =
        places.empty() ? std::set<String>()
                       : PromoText::idsBeside(document_->text(), sequenceIn(*document_));
    giveIds(places, borne);
    for (Xml::Node* child : root.get_children())
        root.remove_child(child);
    for (const TranspromoInfo& place : places)
        PromoElement::write(*root.add_child(L"trans-promo", L"qf"), place, regions_);
    values_ = valuesOf(places, borne);
}

void PromoPlaces::commit(const Fragment& fragment) {
    Document& document = *document_;
    const int sequence = sequenceIn(document);
    if (sequence < 0)
        return;
    const String written = Fragment::textOf(*fragment.tree());
    if (PromoText::markupIn(document.text(), sequence) != source_)
        throw Core::Exception(L"the promo places of the page sequence have changed since they were "
                              L"read, so they are not overwritten");
    if (written == asRead_ && values_.empty())
        return;
    if (!carryOutInRun(document, [&] { return write(written); }))
        return;
    source_ = PromoText::markupIn(document.text(), sequenceIn(document));
    asRead_ = written;
    values_.clear();
}

void PromoPlaces::deleteIn(int sequence) {
    const XmlText::View name = document_->text().tagName(sequence);
    if (name == L"fo:page-sequence" || name == L"qfd:page-sequence-repeat")
        PromoText::removeAll(*document_, sequence);
}

bool PromoPlaces::write(const String& written) {
    Document& document = *document_;
    if (!TemplateValues::write(document, values_))
        return false;
    if (written == asRead_)
        return true;
    const int sequence = sequenceIn(document);
    PromoText::removeAll(document, sequence);
    const String text = placesIn(written);
    if (text.empty())
        return true;
    const int position = document.text().next(sequence);
    document.insertUnrecorded(position, text);
    document.recordInsertion(position, text);
    NamespaceBinding::bind(document, position, position + text.length());
    document.recordCaret();
    return true;
}
