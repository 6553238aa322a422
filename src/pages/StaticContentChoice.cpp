#include "pages/StaticContentChoice.h"

#include "foundation/xml/Element.h"
#include "pages/ComplexMasters.h"
#include "pages/Masters.h"
#include "pages/Regions.h"
#include "pages/StaticContents.h"

#include <set>

using Core::String;
using Xml::Element;

namespace {

std::set<String> regionNamesOf(const Element& root, const String& masterName) {
    std::set<String> names;
    const Element* master = Masters::named(Masters::simpleIn(root), masterName);
    if (master)
        for (const Element* region : Regions::of(*master))
            names.insert(Regions::flowNameOf(*region));
    return names;
}

} // namespace

std::map<String, int> StaticContentChoice::in(const DetachedText& text, const Element& root) const {
    const std::set<String> regions = regionNamesOf(root, master);
    const std::vector<Element*> complexMasters = Masters::complexIn(root);
    std::map<String, bool> areOfMaster; // by their references, which many have in common
    const auto isOfMaster = [&](const Element& element) {
        const String reference = StaticContents::masterOf(element);
        const auto [answer, isNew] = areOfMaster.emplace(reference, reference == master);
        if (isNew && !answer->second) {
            const Element* complex = Masters::named(complexMasters, reference);
            answer->second = complex && ComplexMasters::refersTo(*complex, master);
        }
        return answer->second;
    };
    const auto counts = [&](const Element& element) {
        return master.empty() ||
               ((!ofItsSequences || isOfMaster(element)) &&
                (!ofItsRegions || regions.contains(StaticContents::flowNameOf(element))));
    };
    const std::vector<Element*> elements = StaticContents::of(root);
    const std::vector<DetachedText::StaticContent>& places = text.staticContents();
    std::map<String, int> chosen;
    if (elements.size() != places.size())
        return chosen; // it is not known which is which
    for (std::size_t i = 0; i < elements.size(); ++i)
        if ((sequence < 0 || places[i].sequence == sequence) && counts(*elements[i]))
            chosen[StaticContents::flowNameOf(*elements[i])] = places[i].element;
    return chosen;
}
