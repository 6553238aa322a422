#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The names of the page masters of a document and of their regions, which page sequences refer to.
class PageNames {
public:
    /// Reads a document, which is UTF-8, up to the end of its page masters. Throws
    /// Xml::MarkupReader::Failure.
    static PageNames of(std::string_view document);

    /// The master that a page sequence with that reference has: that one, or else the first.
    const std::string& masterFor(const std::string& reference) const;
    bool isMaster(const std::string& name) const { return bodies_.contains(name); }
    bool isSimpleMaster(const std::string& name) const { return simple_.contains(name); }
    /// The flow that a page sequence with that master has: that one, or else the first region that
    /// is the body of a page.
    const std::string& flowFor(const std::string& master, const std::string& flow) const;
    /// Whether static content of that name shows on pages with that master, or between the parts
    /// of one.
    bool hasRegion(const std::string& master, const std::string& name) const;
    /// Whether a region of that kind, as "region-before", may have the name: all that have it are
    /// of one kind.
    bool mayName(const std::string& region, const std::string& name) const;
    /// Whether there is a master. If not, the names are those of one that is to be written.
    bool hasMaster() const { return hasMaster_; }

private:
    class Reader;

    struct Bodies {
        std::string first;
        std::set<std::string> all;

        void add(const std::string& name) {
            first = all.empty() ? name : first;
            all.insert(name);
        }
    };

    void addSimpleMaster(const std::string& name);
    void addRegion(const std::string& master, const std::string& region, const std::string& name);
    void addSequenceMaster(const std::string& name, const std::vector<std::string>& references);
    void addMasterWhereNoneIs();

    std::string first_; // of the simple masters
    bool hasMaster_ = true;
    std::set<std::string> simple_;
    std::map<std::string, Bodies> bodies_;               // of all masters
    std::map<std::string, std::set<std::string>> sides_; // the regions around them
    std::map<std::string, std::string> regions_;         // from name to kind
};
