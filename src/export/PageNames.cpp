#include "export/PageNames.h"

#include "export/Namespaces.h"
#include "foundation/xml/MarkupReader.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 5> regionKinds{"region-body", "region-before",
                                                      "region-after", "region-start", "region-end"};

std::string usualName(std::string_view region) {
    return "xsl-" + std::string(region);
}

} // namespace

class PageNames::Reader : public Xml::MarkupReader {
public:
    Reader(std::string_view document, PageNames& names) : MarkupReader(document), names_(names) {
        read();
    }

private:
    /// The value of an attribute without a prefix or with one of formatting objects.
    std::string valueOf(const char** attributes, std::string_view wanted) const {
        for (; *attributes; attributes += 2) {
            const PrefixedName name(attributes[0]);
            if (name.local == wanted &&
                (name.prefix.empty() || namespaces_.isFormattingObjects(name.prefix)))
                return attributes[1];
        }
        return {};
    }

    void startElement(const char* name, const char** attributes) override {
        namespaces_.enter(attributes);
        const PrefixedName element(name);
        if (!namespaces_.isFormattingObjects(element.prefix))
            return;
        if (element.local == "simple-page-master") {
            master_ = valueOf(attributes, "master-name");
            isNew_ = !master_.empty() && !names_.isMaster(master_);
            regions_.clear();
            if (isNew_)
                names_.addSimpleMaster(master_);
        } else if (element.local == "page-sequence-master") {
            master_ = valueOf(attributes, "master-name");
            isNew_ = !master_.empty() && !names_.isMaster(master_);
            references_.clear();
        } else if (std::count(regionKinds.begin(), regionKinds.end(), element.local) > 0) {
            if (isNew_ && regions_.insert(std::string(element.local)).second)
                names_.addRegion(master_, std::string(element.local),
                                 valueOf(attributes, "region-name"));
        } else if (element.local.ends_with("-page-master-reference")) {
            references_.push_back(valueOf(attributes, "master-reference"));
        }
    }

    void endElement(const char* name) override {
        const PrefixedName element(name);
        if (namespaces_.isFormattingObjects(element.prefix)) {
            if (element.local == "layout-master-set")
                endHere();
            else if (element.local == "page-sequence-master" && isNew_)
                sequenceMasters_.emplace_back(master_, references_);
        }
        namespaces_.leave();
    }

    void addText(const char*, int) override {}
    void addEntityReference(const char*) override {}

public:
    /// With what they refer to, which may stand behind them.
    const auto& sequenceMasters() const { return sequenceMasters_; }

private:
    PageNames& names_;
    Namespaces namespaces_;
    std::string master_;
    bool isNew_ = false; // it has a name, and no other has it
    std::set<std::string> regions_;
    std::vector<std::string> references_;
    std::vector<std::pair<std::string, std::vector<std::string>>> sequenceMasters_;
};

PageNames PageNames::of(std::string_view document) {
    PageNames names;
    const Reader reader(document, names);
    for (const auto& [name, references] : reader.sequenceMasters())
        names.addSequenceMaster(name, references);
    names.addMasterWhereNoneIs();
    return names;
}

const std::string& PageNames::masterFor(const std::string& reference) const {
    return isMaster(reference) ? reference : first_;
}

const std::string& PageNames::flowFor(const std::string& master, const std::string& flow) const {
    const Bodies& bodies = bodies_.at(masterFor(master));
    return bodies.all.contains(flow) ? flow : bodies.first;
}

bool PageNames::hasRegion(const std::string& master, const std::string& name) const {
    const auto sides = sides_.find(masterFor(master));
    return name == "xsl-footnote-separator" || name == "xsl-before-float-separator" ||
           (sides != sides_.end() && sides->second.contains(name));
}

bool PageNames::mayName(const std::string& region, const std::string& name) const {
    for (const std::string_view kind : regionKinds)
        if (name == usualName(kind))
            return kind == region;
    const auto known = regions_.find(name);
    return known == regions_.end() || known->second == region;
}

void PageNames::addSimpleMaster(const std::string& name) {
    if (first_.empty())
        first_ = name;
    simple_.insert(name);
    bodies_[name];
}

void PageNames::addRegion(const std::string& master, const std::string& region,
                          const std::string& name) {
    const bool hasName = !name.empty() && mayName(region, name);
    const std::string known = hasName ? name : usualName(region);
    regions_.emplace(known, region);
    if (region == regionKinds[0])
        bodies_[master].add(known);
    else
        sides_[master].insert(known);
}

void PageNames::addSequenceMaster(const std::string& name,
                                  const std::vector<std::string>& references) {
    if (isSimpleMaster(name))
        return;
    for (const std::string& reference : references)
        if (isSimpleMaster(reference)) {
            for (const std::string& body : bodies_[reference].all)
                bodies_[name].add(body);
            sides_[name].insert(sides_[reference].begin(), sides_[reference].end());
        }
}

void PageNames::addMasterWhereNoneIs() {
    if (first_.empty()) {
        hasMaster_ = false;
        addSimpleMaster("page");
    }
    // A page without a body is given one.
    for (auto& [master, bodies] : bodies_)
        if (bodies.all.empty())
            bodies.add(usualName(regionKinds[0]));
}
