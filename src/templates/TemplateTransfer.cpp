#include "templates/TemplateTransfer.h"

#include "templates/AttributeEntries.h"
#include "templates/GlobalXslt.h"
#include "templates/Scripts.h"
#include "templates/TemplateData.h"
#include "templates/TemplateValues.h"
#include "templates/Variables.h"

namespace {

/// One kind of data.
template <typename Of, typename Override>
void takeOver(const TemplateData& target, const TemplateData& source, Of of, Override override) {
    if (const auto taken = of(source); taken != of(target))
        override(target.root(), taken);
}

/// Those that belong to an object.
QFDAttributeCollection entriesOf(const TemplateData& data) {
    QFDAttributeCollection entries;
    for (const QFDAttribute& entry : AttributeEntries::of(data.root()).getAttributeList())
        if (!entry.getObjectID().empty())
            entries.addAttribute(entry);
    return entries;
}

} // namespace

bool TemplateTransfer::takeOver(Document& target, Document& source) {
    if (!TemplateValues::mayBeIn(target) || !TemplateValues::mayBeIn(source))
        return true;
    TemplateData to(target);
    const TemplateData from(source);
    if (!to.hasTree() || !from.hasTree())
        return true;
    ::takeOver(to, from, entriesOf, AttributeEntries::override);
    ::takeOver(
        to, from, [](const TemplateData& data) { return Variables::of(data.root()); },
        Variables::override);
    ::takeOver(
        to, from,
        [](const TemplateData& data) { return Scripts::of(data.root(), data.documentType()); },
        Scripts::override);
    GlobalXslt::takeOver({to.root(), to.documentType()}, {from.root(), from.documentType()});
    return to.commit();
}
