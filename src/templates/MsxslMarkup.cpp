#include "templates/MsxslMarkup.h"

#include "foundation/values/ManagedScript.h"
#include "text/Markup.h"
#include "text/XmlScan.h"

#include <utility>

using Core::String;
using XmlScan::Text;

namespace {

constexpr Text assemblyName = L"msxsl:assembly";
constexpr Text usingName = L"msxsl:using";

String escaped(String value) {
    static constexpr std::pair<const wchar_t*, const wchar_t*> references[] = {
        {L"&", L"&amp;"}, {L"<", L"&lt;"},   {L">", L"&gt;"},  {L"\"", L"&quot;"},
        {L"\t", L"&#9;"}, {L"\n", L"&#10;"}, {L"\r", L"&#13;"}};
    for (const auto& [unit, reference] : references)
        value.replaceAll(unit, reference);
    return value;
}

String attribute(const wchar_t* name, const String& value) {
    return value.empty() ? String() : String(name) + L"=\"" + escaped(value) + L"\" ";
}

/// The element that begins there and holds nothing; empty where there is none. What a `<` cuts
/// short is no tag.
Text emptyElementAt(Text script, int at) {
    const Text name = XmlScan::tagName(script, at);
    const int next = XmlScan::find(script, L'<', at + 1);
    const int size = static_cast<int>(script.size());
    const Text tag = XmlScan::slice(script, at, next < 0 ? size : next);
    const int tagEnd = XmlScan::tagEnd(tag, 1);
    if (tagEnd < 0)
        return {};
    if (XmlScan::unitAt(tag, tagEnd - 1) == L'/')
        return XmlScan::slice(tag, 0, tagEnd + 1);
    const int closing = at + tagEnd + 1;
    const bool isClosed = XmlScan::standsAt(script, L"</", closing) &&
                          XmlScan::tagName(script, closing).substr(1) == name;
    const int end = isClosed ? XmlScan::find(script, L'>', closing) : -1;
    return end < 0 ? Text() : XmlScan::slice(script, at, end + 1);
}

String valueIn(Text element, Text name) {
    for (int at = XmlScan::nextAttribute(element, 0); at >= 0;
         at = XmlScan::nextAttribute(element, at))
        if (XmlScan::attributeName(element, at) == name)
            return Markup::unescaped(XmlScan::attributeValue(element, at));
    return {};
}

/// Takes what the element says into the lists; false where that is nothing.
bool take(Text element, ManagedScript& script) {
    const Text name = XmlScan::tagName(element, 0);
    if (name == assemblyName) {
        const MsxslAssembly assembly{valueIn(element, L"name"), valueIn(element, L"href")};
        if (assembly == MsxslAssembly())
            return false;
        script.assemblies.push_back(assembly);
        return true;
    }
    const MsxslUsing used{name == usingName ? valueIn(element, L"namespace") : String()};
    if (used.nameSpace.empty())
        return false;
    script.usings.push_back(used);
    return true;
}

} // namespace

String MsxslMarkup::of(const MsxslAssembly& assembly) {
    const String attributes = attribute(L"name", assembly.name) + attribute(L"href", assembly.href);
    return attributes.empty() ? String() : L"<msxsl:assembly " + attributes + L"/>";
}

String MsxslMarkup::of(const MsxslUsing& used) {
    return used.nameSpace.empty()
               ? String()
               : L"<msxsl:using namespace=\"" + escaped(used.nameSpace) + L"\"/>";
}

void ManagedScript::parseAndRemoveMsxslNodes() {
    static constexpr Text start = L"<msxsl:";
    const String source = text;
    const Text script = source.view();
    assemblies.clear();
    usings.clear();
    text.clear();
    int copied = 0;
    for (int at = XmlScan::find(script, start, 0), behind = 0; at >= 0;
         at = XmlScan::find(script, start, behind)) {
        const Text element = emptyElementAt(script, at);
        behind = at + 1;
        if (element.empty() || !take(element, *this))
            continue;
        text += String(XmlScan::slice(script, copied, at));
        copied = behind = at + static_cast<int>(element.size());
    }
    text += String(XmlScan::slice(script, copied, static_cast<int>(script.size())));
}
