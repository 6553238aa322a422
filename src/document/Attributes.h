#pragma once

#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;
class TextRewrite;
class XmlText;

/// The attributes of one tag as properties, and what of namespaces must be declared for them. A tag
/// is named by its offset. What is no start tag and no processing instruction bears none, and
/// nothing happens there.
namespace Attributes {

/// The attributes of the tag at the position; one without a prefix gets its element's.
PropertyCollection of(const Document& document, int element);
/// The properties as attributes of an element with that prefix, a blank first.
Core::String asText(PropertyCollection properties, const Core::String& elementPrefix);

/// Behind the last attribute of the tag, or its name; -1 where it bears none.
int endOf(const XmlText& text, int element);

// Changes, each one undo step

/// Merges the properties into the tag's attributes, new values winning, and declares what
/// namespaces they need on the root. Answers by how much the text behind the tag moved.
int merge(Document& document, int element, PropertyCollection properties);
/// Gives the tag exactly these attributes. Answers by how much the text behind it moved.
int replace(Document& document, int element, const PropertyCollection& properties);
/// Removes all attributes; answers their text.
Core::String clear(Document& document, int element);

// Parts of a step

/// Leaves it to the rewrite to give the tag the properties, whose namespaces are declared.
void plan(const Document& document, int element, PropertyCollection properties,
          TextRewrite& rewrite);
/// Leaves it to the rewrite to give the tag exactly these attributes.
void planReplacement(const Document& document, int element, const PropertyCollection& properties,
                     TextRewrite& rewrite);
/// Removes all attributes. Declarations of namespaces stay, for what the element holds may need
/// them.
void removeAll(Document& document, int element);

// Namespaces

/// Whether it is a prefix for which the root can be given its declaration.
bool isStandardNamespace(const Core::String& prefix);
/// Declares such a prefix, which the root does not declare, on the root, whose other attributes
/// stay as they are spelt; answers whether there is one that can bear it.
bool addDeclaration(Document& document, const Core::String& prefix);
/// Declares such a prefix on the root; answers by how much the text behind that moved.
int declareStandard(Document& document, const Core::String& prefix);
/// Sets one declaration, xmlns:x="uri", on the root element; answers by how much the text behind it
/// moved. Anything else is refused with 0. One undo step.
int declareOnRoot(Document& document, const Core::String& declaration);
/// Declares on the root what the properties need; moves `element` along and answers by how much.
int declareNamespaces(Document& document, const PropertyCollection& properties, int& element);

} // namespace Attributes
