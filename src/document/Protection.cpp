#include "document/Protection.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/NamespaceBinding.h"
#include "document/RecordedCommand.h"

#include <vector>

using Core::String;

namespace {

/// A setting as it stands in the root's start tag.
struct Standing {
    int start; ///< of the white space before it
    int name;
    int end; ///< behind the closing quote
};

Standing standingAt(const XmlText& text, int name) {
    int start = name;
    while (start > 0 && String::isSpace(text.unitAt(start - 1)))
        --start;
    const int value = text.findQuote(name) + 1;
    return {start, name, value + static_cast<int>(text.attributeValue(name).size()) + 1};
}

String attribute(const String& name, const String& value) {
    PropertyCollection alone;
    alone.addProperty({name, value}, true);
    return alone.getPropertiesString();
}

/// A rewriting of the settings. Each stays in its place, and what is new comes behind.
class SettingsRewrite {
public:
    SettingsRewrite(Document& document, int root, const PropertyCollection& settings)
        : document_(document), root_(root), settings_(settings) {
        const XmlText& text = document.text();
        for (int at = text.nextAttribute(root + 1); at >= 0; at = text.nextAttribute(at))
            if (Protection::isSetting(String(text.attributeName(at))))
                standing_.push_back(standingAt(text, at));
        findNew();
    }

    bool changesNothing() const {
        return new_.isEmpty() && std::all_of(standing_.begin(), standing_.end(),
                                             [&](const auto& one) { return stays(one); });
    }

    /// From the back, so that what is still to be done stays where it is.
    void run() {
        document_.recordCaret();
        if (!new_.isEmpty())
            Edit(document_).insert(Attributes::endOf(text(), root_),
                                   L" " + new_.getPropertiesString());
        for (auto one = standing_.rbegin(); one != standing_.rend(); ++one)
            rewrite(*one);
    }

private:
    const XmlText& text() const { return document_.text(); }
    String name(const Standing& one) const { return String(text().attributeName(one.name)); }
    String value(const Standing& one) const { return settings_.getPropertyValue(name(one)); }

    void findNew() {
        new_ = settings_;
        for (const Standing& one : standing_)
            new_.removePropertyByName(name(one));
    }

    /// Whether its attribute would be written with what stands there.
    bool stays(const Standing& one) const {
        return settings_.containsProperty(name(one)) &&
               attribute(name(one), value(one)) ==
                   attribute(name(one), String(text().attributeValue(one.name)));
    }

    void rewrite(const Standing& one) {
        if (!settings_.containsProperty(name(one))) {
            Edit(document_).remove(one.start, one.end);
        } else if (!stays(one)) {
            const String changed = attribute(name(one), value(one));
            Edit(document_).remove(one.name, one.end);
            Edit(document_).insert(one.name, changed);
        }
    }

    Document& document_;
    int root_;
    const PropertyCollection& settings_;
    PropertyCollection new_;
    std::vector<Standing> standing_;
};

} // namespace

bool Protection::isSetting(const String& name) {
    return name.startsWith(L"qf:protect-");
}

int Protection::bearer(const XmlText& text) {
    const int root = text.root();
    const XmlText::View name = text.tagName(root);
    return name == L"qfd:document" || name == L"fo:root" ? root : -1;
}

PropertyCollection Protection::settingsOf(const XmlText& text) {
    PropertyCollection settings;
    const int root = bearer(text);
    if (root < 0)
        return settings;
    for (int at = text.nextAttribute(root + 1); at >= 0; at = text.nextAttribute(at)) {
        const String name(text.attributeName(at));
        if (isSetting(name))
            settings.addProperty({name, String(text.attributeValue(at))}, false);
    }
    return settings;
}

bool Protection::refusesEditing(const PropertyCollection& settings) {
    return settings.getPropertyValue(editing).toLower() == L"true";
}

bool Protection::write(Document& document, const PropertyCollection& settings) {
    const int root = bearer(document.text());
    if (root < 0)
        return true;
    SettingsRewrite rewrite(document, root, settings);
    return rewrite.changesNothing() || carryOut(document, [&] {
               rewrite.run();
               NamespaceBinding::bind(document, root, document.text().tagEnd(root) + 1);
           });
}
