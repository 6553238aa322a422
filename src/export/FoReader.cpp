#include "export/FoReader.h"

#include <algorithm>
#include <cctype>
#include <utility>

using ShownMarkup::As;

namespace {

/// The value under that name with whatever prefix, as the library finds it: rather without one.
std::string_view attributeOf(const char** attributes, std::string_view name) {
    const char* found = "";
    for (; *attributes; attributes += 2) {
        const PrefixedName attribute(attributes[0]);
        if (attribute.local == name && attribute.prefix != "xmlns" &&
            (attribute.prefix.empty() || !*found))
            found = attributes[1];
    }
    return found;
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](unsigned char unit) {
        return static_cast<char>(unit < 0x80 ? std::tolower(unit) : unit);
    });
    return result;
}

} // namespace

FoReader::FoReader(std::string_view document, const PageNames& names)
    : MarkupReader(document), names_(names), writer_(names), foreign_(namespaces_) {}

std::string FoReader::read() {
    MarkupReader::read();
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + writer_.document() + "\n";
}

void FoReader::startElement(const char* name, const char** attributes) {
    flushText();
    namespaces_.enter(attributes);
    if (leftOut_ > 0)
        ++leftOut_;
    else if (foreign_.isOpen())
        startForeign(name, attributes);
    else
        start(PrefixedName(name), attributes);
}

void FoReader::endElement(const char*) {
    flushText();
    namespaces_.leave();
    if (leftOut_ > 0) {
        --leftOut_;
        return;
    }
    if (foreign_.isOpen()) {
        writer_.addForeignMarkup(foreign_.end());
        return;
    }
    const Source source = sources_.back();
    sources_.pop_back();
    if (source.staysOpen) {
        writer_.closeTo(source.depth + 1);
        writer_.leaveOpen();
    } else if (source.isOpen)
        writer_.closeTo(source.depth);
    else if (source.endsStrayLine)
        writer_.endStrayLine();
}

void FoReader::addText(const char* text, int length) {
    text_.append(text, static_cast<std::size_t>(length));
}

void FoReader::addEntityReference(const char*) {
    fail(L"an entity whose text is not known");
}

void FoReader::flushText() {
    const std::string text = std::exchange(text_, {});
    if (text.empty() || leftOut_ > 0)
        return;
    if (foreign_.isOpen())
        writer_.addForeignMarkup(FoWriter::escaped(text));
    else if (!sources_.empty() && !sources_.back().isMute)
        writer_.addText(text);
}

void FoReader::start(const PrefixedName& name, const char** attributes) {
    const bool isObject = namespaces_.isFormattingObjects(name.prefix);
    const bool isDocument =
        isObject ? name.local == "root" : name.prefix == "qfd" && name.local == "document";
    if (sources_.empty() && !isDocument)
        fail(L"the root element is neither fo:root nor qfd:document");
    if (isObject)
        startObject(name.local, propertiesOf(attributes, true));
    else if (writer_.takesForeignMarkup() && isForeign(name.prefix))
        startForeign(
            name.prefix.empty()
                ? name.local
                : std::string_view(name.prefix.data(), name.prefix.size() + 1 + name.local.size()),
            attributes);
    else
        startShown(name, attributes);
}

/// Elements of other languages, but for those by which documents and formatters extend XSL-FO.
bool FoReader::isForeign(std::string_view prefix) const {
    const std::string_view uri = namespaces_.of(prefix);
    return !uri.empty() && prefix != "qfd" && prefix != "qf" && prefix != "qc" &&
           !uri.starts_with("http://xmlgraphics.apache.org/fop/");
}

void FoReader::startForeign(std::string_view name, const char** attributes) {
    writer_.addForeignMarkup(foreign_.start(name, attributes));
}

void FoReader::startShown(const PrefixedName& name, const char** attributes) {
    const ShownMarkup::Shown shown = ShownMarkup::of(name.prefix, name.local);
    switch (shown.as) {
    case As::Object: {
        FoProperties properties = propertiesOf(attributes, false);
        if (!shown.property.empty())
            properties.set(shown.property, std::string(shown.value));
        const bool isBookmark = shown.object == "bookmark";
        if (const auto target = attributeOf(attributes, "internal-destination");
            isBookmark && !target.empty())
            properties.set("internal-destination", std::string(target));
        if (shown.object == "page-sequence" && !properties.has("master-reference"))
            properties.set("master-reference",
                           std::string(attributeOf(attributes, "master-reference")));
        startObject(shown.object, std::move(properties));
        if (isBookmark && leftOut_ == 0)
            addBookmarkTitle(attributes);
        break;
    }
    case As::Blocks:
    case As::Inlines:
        startPart(shown, attributes);
        break;
    case As::Control:
        addControl(attributes);
        leaveOut();
        break;
    case As::Picture:
        addPicture(attributes);
        leaveOut();
        break;
    case As::Nothing:
        writer_.keepLine();
        leaveOut();
        break;
    case As::ObjectsInIt:
        pass({.depth = 0, .isMute = true});
        break;
    }
}

/// A part of the document is an object of its own only where it has properties to carry.
void FoReader::startPart(const ShownMarkup::Shown& shown, const char** attributes) {
    FoProperties properties = propertiesOf(attributes, false);
    if (properties.empty())
        pass({.depth = 0, .endsStrayLine = shown.as == As::Blocks});
    else
        startObject(shown.object, std::move(properties));
}

void FoReader::pass(Source source) {
    if (source.endsStrayLine)
        writer_.endStrayLine();
    sources_.push_back(source);
}

void FoReader::startObject(std::string_view name, FoProperties properties) {
    const FoModel::Object* object = FoModel::find(name);
    if (object && !object->needs.empty() && !properties.has(object->needs) &&
        !properties.has("external-destination")) {
        if (object->otherwise.empty())
            return leaveOut();
        object = FoModel::find(object->otherwise);
    }
    if (!object)
        return pass({.depth = 0});
    if (!fitsPages(name, properties))
        return leaveOut();
    // No page has a second flow here, so that it goes on with the first.
    const bool isFlow = object->name == "flow";
    FoWriter::Place place = writer_.open(*object, std::move(properties));
    // Objects that nobody asked for may have been opened around it, and stay.
    switch (place) {
    case FoWriter::Place::Found:
        return sources_.push_back(
            {.depth = writer_.depth() - 1, .isOpen = true, .staysOpen = isFlow});
    case FoWriter::Place::None:
        return pass({.depth = 0});
    case FoWriter::Place::Refused:
        return leaveOut();
    }
}

void FoReader::addBookmarkTitle(const char** attributes) {
    const std::size_t depth = writer_.depth();
    if (writer_.open(*FoModel::find("bookmark-title"), {}) == FoWriter::Place::Found)
        writer_.addText(attributeOf(attributes, "bookmark-title"));
    writer_.closeTo(depth);
}

void FoReader::addControl(const char** attributes) {
    const ShownMarkup::Control& control =
        ShownMarkup::controlOf(lowerCase(attributeOf(attributes, "type")));
    FoProperties properties = propertiesOf(attributes, false);
    if (!control.border.empty())
        properties.set("border", std::string(control.border));
    if (writer_.open(*FoModel::find("inline"), std::move(properties)) != FoWriter::Place::Found)
        return;
    const std::size_t depth = writer_.depth();
    const std::string_view value = attributeOf(attributes, "value");
    if (!control.checked.empty())
        writer_.addText(attributeOf(attributes, "checked") == "true" ? control.checked
                                                                     : control.unchecked);
    else
        writer_.addText(value.empty() ? control.unchecked : value);
    writer_.closeTo(depth - 1);
}

void FoReader::addPicture(const char** attributes) {
    const std::string_view source = attributeOf(attributes, "preview-src");
    if (source.empty())
        return;
    FoProperties properties = propertiesOf(attributes, false);
    properties.set("src", std::string(source));
    const FoWriter::Place place =
        writer_.open(*FoModel::find("external-graphic"), std::move(properties));
    if (place == FoWriter::Place::Found)
        writer_.closeTo(writer_.depth() - 1);
}

/// What the attributes say as properties of XSL-FO: of an object those without a prefix too.
FoProperties FoReader::propertiesOf(const char** attributes, bool ofObject) const {
    FoProperties properties;
    for (; *attributes; attributes += 2) {
        const PrefixedName name(attributes[0]);
        const std::string value = attributes[1];
        if (value.empty())
            continue;
        if (name.prefix == "xml" && (name.local == "lang" || name.local == "base"))
            properties.set(attributes[0], value);
        const bool isOwn = name.prefix.empty() && ofObject;
        const bool isProperty =
            isOwn || (!name.prefix.empty() && namespaces_.isFormattingObjects(name.prefix));
        if (!isProperty || !FoModel::isProperty(name.local))
            continue;
        if (isOwn || !properties.has(name.local))
            properties.set(name.local, value);
    }
    return properties;
}

/// Makes names of masters, regions and flows those that there are; false where there is no use for
/// the object.
bool FoReader::fitsPages(std::string_view object, FoProperties& properties) {
    if (object == "page-sequence") {
        flows_.clear();
        master_ = names_.masterFor(properties["master-reference"]);
        properties.set("master-reference", master_);
    } else if (object == "flow") {
        properties.set("flow-name", names_.flowFor(master_, properties["flow-name"]));
    } else if (object == "static-content") {
        const std::string name = properties["flow-name"];
        return names_.hasRegion(master_, name) && flows_.insert(name).second;
    } else if (object == "simple-page-master") {
        return masters_.insert(properties["master-name"]).second;
    } else if (object == "page-sequence-master") {
        const std::string name = properties["master-name"];
        return names_.isMaster(name) && !names_.isSimpleMaster(name) &&
               masters_.insert(name).second;
    } else if (object.ends_with("-page-master-reference")) {
        return names_.isSimpleMaster(properties["master-reference"]);
    } else if (object.starts_with("region-")) {
        if (!names_.mayName(std::string(object), properties["region-name"]))
            properties.erase("region-name");
        properties.eraseIf([](const std::string& name) {
            return name.starts_with("border") || name.starts_with("padding");
        });
    }
    return true;
}
