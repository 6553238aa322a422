#include "channels/Signatures.h"

#include "channels/Annotations.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "trees/Elements.h"

#include <map>

using Annotations::qf;
using Core::String;
using Xml::Element;

namespace {

const String qfAddress = L"urn:forme:qf/1.0";
const String referenceName = L"annotation-reference";

struct Field {
    const wchar_t* attribute;
    String DocumentSignature::*value;
};

constexpr Field fields[] = {
    {L"name", &DocumentSignature::name},
    {L"location", &DocumentSignature::location},
    {L"reason", &DocumentSignature::reason},
    {L"title", &DocumentSignature::title},
    {L"certificate-serial-number", &DocumentSignature::certificateSerialNumber}};

String valueOf(const Element& element, const String& name, const String& prefix) {
    const Xml::Attribute* attribute = element.get_attribute(name, prefix);
    return attribute ? attribute->get_value() : String();
}

/// The prefix of the root's reference: another one may stand for the same namespace.
String prefixOfReference(const Element& root) {
    std::map<String, String> addresses = root.get_namespace_defs();
    const String address = addresses.try_emplace(qf, qfAddress).first->second;
    for (const Xml::Attribute* attribute : root.get_attributes())
        if (String prefix = attribute->get_namespace_prefix();
            !prefix.empty() && attribute->get_name() == referenceName &&
            addresses[prefix] == address)
            return prefix;
    return qf;
}

/// The element that takes the record; the root refers to `reference` until now.
Element& receiver(Element& root, const String& reference, const String& id) {
    Element* const own = Annotations::find(root, id);
    if (reference.empty())
        return *(own ? *own : Annotations::add(root, id, qf)).add_child(L"signature", qf);
    if (!own) // Deliberate, as AnnotationTest shows: here the id is one of "fo".
        return *Annotations::add(root, id, L"fo").add_child(L"signature", qf);
    if (Element* const last = Signatures::lastIn(own))
        return *last;
    // Deliberate, as AnnotationTest shows: in the annotation that is referred to already, it is no
    // signature.
    return *own->add_child(reference == id ? L"annotation" : L"signature", qf);
}

} // namespace

String Signatures::reference(const Element& root) {
    return valueOf(root, referenceName, prefixOfReference(root));
}

Element* Signatures::lastIn(const Element* annotation) {
    if (!annotation)
        return nullptr;
    const auto found = Elements::childrenOf(*annotation, L"signature");
    return found.empty() ? nullptr : found.back();
}

DocumentSignature Signatures::read(const Element* signature) {
    DocumentSignature said;
    if (signature)
        for (const Field& field : fields)
            said.*field.value = valueOf(*signature, field.attribute, String());
    return said;
}

DocumentSignature Signatures::get(const Element& root) {
    const String id = valueOf(root, referenceName, String());
    return id.empty() ? DocumentSignature() : read(lastIn(Annotations::find(root, id)));
}

void Signatures::set(Element& root, const DocumentSignature& signature, const String& id) {
    Xml::requireXmlText(id);
    for (const Field& field : fields)
        Xml::requireXmlText(signature.*field.value);
    Element& taken = receiver(root, reference(root), id);
    root.set_attribute(referenceName, id, prefixOfReference(root));
    for (const Field& field : fields)
        taken.set_attribute(field.attribute, signature.*field.value, qf);
}

void Signatures::remove(Element& root, const String& id) {
    Element* const annotation = Annotations::find(root, id);
    if (!annotation)
        throw Core::NullPointerException();
    annotation->get_parent()->remove_child(annotation);
    root.remove_attribute(referenceName, prefixOfReference(root));
}
