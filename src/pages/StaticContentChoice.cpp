#include "pages/StaticContentChoice.h"

#include "foundation/xml/Element.h"
#include "pages/PageMasters.h"
#include "pages/Regions.h"
#include "pages/StaticContents.h"

#include <algorithm>
#include <set>

using Core::String;
using Xml::Element;

namespace {

std::set<String> regionNamesOf(const Element& root, const String& masterName) {
    std::set<String> names;
    const Element* master =
        PageMasters::named(PageMasters::of(root, PageMasters::simpleMaster), masterName);
    if (master)
        for (const Element* region : Regions::of(*master))
            names.insert(Regions::flowNameOf(*region));
    return names;
}

} // namespace

std::map<String, int> StaticContentChoice::in(const DetachedText& text, const Element& root) const {
    const std::set<String> regions = regionNamesOf(root, master);
    const auto isOfMaster = [&](const Element& element) {
        const String reference = StaticContents::masterOf(element);
        return reference == master || PageMasters::refersTo(root, reference, master);
    };
    const auto counts = [&](const Element& element) {
        return master.empty() ||
               ((!ofItsSequences || isOfMaster(element)) &&
                (!ofItsRegions || regions.contains(StaticContents::flowNameOf(element))));
    };
    const std::vector<Element*> elements = StaticContents::of(root);
    const std::vector<DetachedText::StaticContent>& places = text.staticContents();
    std::map<String, int> chosen;
    for (std::size_t i = 0; i < std::min(elements.size(), places.size()); ++i)
        if ((sequence < 0 || places[i].sequence == sequence) && counts(*elements[i]))
            chosen[StaticContents::flowNameOf(*elements[i])] = places[i].element;
    return chosen;
}
