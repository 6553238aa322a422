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
    if (const auto taken = of(source.root()); taken != of(target.root()))
        override(target.root(), taken);
}

} // namespace

bool TemplateTransfer::takeOver(Document& target, Document& source) {
    if (!TemplateValues::mayBeIn(target) || !TemplateValues::mayBeIn(source))
        return true;
    TemplateData to(target);
    const TemplateData from(source);
    if (!to.hasTree() || !from.hasTree())
        return true;
    ::takeOver(to, from, AttributeEntries::of, AttributeEntries::override);
    ::takeOver(to, from, Variables::of, Variables::override);
    ::takeOver(to, from, Scripts::of, Scripts::override);
    if (GlobalXslt::textIn(from.root()) != GlobalXslt::textIn(to.root()))
        GlobalXslt::takeOver(to.root(), from.root(), to.documentType());
    return to.commit();
}
