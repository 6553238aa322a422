#include "templates/TemplateEntries.h"

using Core::String;

TemplateEntries::TemplateEntries(const QFDAttributeCollection& entries) {
    for (const QFDAttribute& entry : entries.getAttributeList())
        add(entry);
}

QFDAttributeCollection TemplateEntries::all() const {
    QFDAttributeCollection collection;
    for (const QFDAttribute& entry : entries_)
        collection.addAttribute(entry);
    return collection;
}

std::vector<QFDAttribute> TemplateEntries::of(const String& object, const String& attribute) const {
    std::vector<QFDAttribute> found;
    if (const auto places = places_.find({object, attribute}); places != places_.end())
        for (const Place& place : places->second)
            found.push_back(*place);
    return found;
}

void TemplateEntries::add(const QFDAttribute& entry) {
    const Place place = entries_.insert(entries_.end(), entry);
    places_[{entry.getObjectID(), entry.getAttributeName()}].push_back(place);
}

void TemplateEntries::set(const QFDAttribute& entry) {
    const auto known = places_.find({entry.getObjectID(), entry.getAttributeName()});
    if (known == places_.end()) {
        add(entry);
        return;
    }
    std::vector<Place>& places = known->second;
    *places.front() = entry;
    for (; places.size() > 1; places.pop_back())
        entries_.erase(places.back());
}

void TemplateEntries::remove(const String& object, const String& attribute) {
    const auto known = places_.find({object, attribute});
    if (known == places_.end())
        return;
    for (const Place& place : known->second)
        entries_.erase(place);
    places_.erase(known);
}
