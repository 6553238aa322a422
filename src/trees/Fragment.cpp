#include "trees/Fragment.h"

#include "foundation/Exception.h"
#include "text/Prolog.h"
#include "trees/PiecedText.h"

#include <algorithm>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

const String templatePrefix = L"qfd";
const String templateDeclaration = L"xmlns:qfd=\"urn:forme:qfd/1.0\"";

/// A declaration of a namespace in a start tag.
struct Declaration {
    int position;
    Text name; ///< "xmlns:fo"
    String text;
};

/// Those in the start tag that the markup begins with.
std::vector<Declaration> declarationsIn(Text markup) {
    std::vector<Declaration> found;
    for (int at = XmlScan::nextAttribute(markup, 0); at >= 0;
         at = XmlScan::nextAttribute(markup, at)) {
        const Text name = XmlScan::attributeName(markup, at);
        if (name.starts_with(L"xmlns:"))
            found.push_back(
                {at, name,
                 String(name) + L"=\"" + String(XmlScan::attributeValue(markup, at)) + L"\""});
    }
    return found;
}

/// The offset behind the last attribute of the start tag that the markup begins with.
int attributesEnd(Text markup) {
    const int end = XmlScan::tagEnd(markup, 1);
    return XmlScan::unitAt(markup, end - 1) == L'/' ? end - 1 : end;
}

String withInStartTag(String markup, const String& text) {
    markup.insert(static_cast<unsigned>(attributesEnd(markup.view())), text);
    return markup;
}

/// Whether the prefix is used by the element or in it where nothing within declares it.
bool usesUndeclared(const Xml::Element& element, const String& prefix) {
    if (element.get_namespace_defs().contains(prefix))
        return false;
    const auto hasPrefix = [&](const Xml::Node* node) {
        return node->get_namespace_prefix() == prefix;
    };
    const auto attributes = element.get_attributes();
    const auto children = element.get_children();
    return hasPrefix(&element) || std::any_of(attributes.begin(), attributes.end(), hasPrefix) ||
           std::any_of(children.begin(), children.end(), [&](const Xml::Node* child) {
               return child->is_element() &&
                      usesUndeclared(static_cast<const Xml::Element&>(*child), prefix);
           });
}

} // namespace

// Without the document type, which goes in front of the root element.
String Fragment::textOf(const Xml::XmlDocument& tree) {
    const String text = tree.writeToString(L"UTF-8");
    const Text root =
        text.view().substr(static_cast<std::size_t>(XmlScan::prologOf(text.view()).root));
    return String(root).trim();
}

void Fragment::read(int element) {
    const int end = document_.elementEnd(element);
    if (end < 0)
        throw Core::Exception(L"no element begins at offset " + String::formatS(element));
    const String source = document_.text(element, end);
    tree_ = readTree(element, source);
    start_ = element;
    end_ = end;
    source_ = source;
    asRead_ = textOf(*tree_);
    borrowed_ = borrowedDeclarations();
}

void Fragment::readHead(int element, int end) {
    const String source = document_.text(element, end - 1);
    tree_ = readTree(element, source + L"</" + String(XmlScan::tagName(source.view(), 0)) + L">");
    setPlace(element, end - 1);
    source_ = source;
    asRead_ = textOf(*tree_);
    borrowed_ = borrowedDeclarations();
}

void Fragment::readText(const String& text) {
    // The mark says that it is decoded, whatever encoding its declaration names.
    tree_ = PiecedText::parse(L"\xFEFF" + text);
    source_ = text;
    setPlace(-1, -1);
}

SmartPtr<Xml::XmlDocument> Fragment::readTree(int element, const String& source) const {
    const auto attributes = static_cast<std::size_t>(attributesEnd(source.view()));
    return PiecedText(document_)
        .made(document_.documentType())
        .stretch(element, String(source.view().substr(0, attributes)))
        .made(document_.declarationsMissingAt(element, element))
        .stretch(element + static_cast<int>(attributes), String(source.view().substr(attributes)))
        .parse();
}

/// Those that are written and whose prefixes the element itself does not declare.
std::set<String> Fragment::borrowedDeclarations() const {
    std::set<Text> own;
    for (const Declaration& declaration : declarationsIn(source_.view()))
        own.insert(declaration.name);
    std::set<String> borrowed;
    for (const Declaration& written : declarationsIn(asRead_.view()))
        if (!own.contains(written.name))
            borrowed.insert(written.text);
    return borrowed;
}

void Fragment::commit(const CommitCaret& caret) {
    const String written = textOf(*tree_);
    if (document_.text(start_, end_) != source_)
        throw Core::Exception(L"the text from offset " + String::formatS(start_) + L" through " +
                              String::formatS(end_) +
                              L" has changed since it was read, so it is not overwritten");
    if (written == asRead_) {
        document_.place(caret);
        return;
    }
    const String text = withOwnDeclarations(written);
    if (!document_.replace(start_, end_, text, caret))
        return;
    end_ = start_ + text.length() - 1;
    source_ = text;
    asRead_ = written;
}

/// Leaves the declarations out that were borrowed, and those that say once more what the root says
/// and nothing between contradicts.
String Fragment::withOwnDeclarations(const String& written) const {
    const std::set<String> ofRoot = document_.declarationsAtRoot();
    const std::set<String> around = document_.declarationsAround(start_);
    const std::vector<Declaration> declarations = declarationsIn(written.view());
    String text = written;
    for (auto it = declarations.rbegin(); it != declarations.rend(); ++it) {
        const bool isRepeated = ofRoot.contains(it->text) && around.contains(it->text);
        if (isRepeated || borrowed_.contains(it->text))
            text.erase(static_cast<unsigned>(it->position - 1),
                       static_cast<unsigned>(it->text.length() + 1));
    }
    const bool lacksTemplate = usesUndeclared(*root(), templatePrefix);
    return lacksTemplate ? withInStartTag(text, L" " + templateDeclaration) : text;
}
