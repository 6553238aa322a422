#pragma once

#include "export/FoProperties.h"
#include "export/FoWriter.h"
#include "export/ForeignMarkup.h"
#include "export/Namespaces.h"
#include "export/PageNames.h"
#include "export/ShownMarkup.h"
#include "foundation/xml/MarkupReader.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Reads a document and writes what a reader sees of it as XSL-FO.
class FoReader : private Xml::MarkupReader {
public:
    /// The document is UTF-8. It and the names must outlive the reader.
    FoReader(std::string_view document, const PageNames& names);

    /// Once. Throws Failure.
    std::string read();

private:
    /// An element of the document that is open, and is not left out with all that stands in it.
    struct Source {
        std::size_t depth;          ///< how many objects were open before
        bool isOpen = false;        ///< as an object, which ends with it
        bool staysOpen = false;     ///< for what follows it
        bool isMute = false;        ///< text directly in it is not shown
        bool endsStrayLine = false; ///< blocks begin and end with it
    };

    void startElement(const char* name, const char** attributes) override;
    void endElement(const char* name) override;
    void addText(const char* text, int length) override;
    void addEntityReference(const char* name) override;

    void start(const PrefixedName& name, const char** attributes);
    void startShown(const PrefixedName& name, const char** attributes);
    void startForeign(std::string_view name, const char** attributes);
    void startPart(const ShownMarkup::Shown& shown, const char** attributes);
    void startObject(std::string_view name, FoProperties properties);
    void addBookmarkTitle(const char** attributes);
    void addControl(const char** attributes);
    void addPicture(const char** attributes);
    void pass(Source source);
    void leaveOut() { leftOut_ = 1; }
    void flushText();
    bool isForeign(std::string_view prefix) const;
    FoProperties propertiesOf(const char** attributes, bool ofObject) const;
    bool fitsPages(std::string_view object, FoProperties& properties);

    const PageNames& names_;
    FoWriter writer_;
    Namespaces namespaces_;
    ForeignMarkup foreign_;
    std::vector<Source> sources_;
    int leftOut_ = 0; // how many elements are open that are
    std::string text_;
    std::set<std::string> masters_;
    std::set<std::string> flows_; // of the page sequence
    std::string master_;          // of the page sequence
};
