#pragma once

#include "OpenedObjects.h"
#include "Session.h"
#include "Wire.h"

#include <forme/foundation/SmartPtr.h>
#include <forme/foundation/xml/XmlDocument.h>

#include <list>

// How parts of the trees that requests have opened travel as JSON.

/// A node of an opened tree by its number; what is written tells its markup too.
template <typename Node>
struct NodeWire {
    static constexpr const char* name = "element {node, xml} or null";
    static bool matches(const Json& value) {
        return value.is_null() ||
               (value.is_object() && value.contains("node") && Wire<int>::matches(value["node"]));
    }
    static Node* read(const Json& value, Session& session) {
        return value.is_null()
                   ? nullptr
                   : static_cast<Node*>(&session.opened().node(value["node"].get<int>()));
    }
    static Json write(Xml::Node* node, Session& session) {
        if (!node)
            return nullptr;
        const SmartPtr<Xml::XmlDocument> alone(new Xml::XmlDocument);
        alone->createRootNodeByImport(node, true);
        Core::String xml = alone->writeToString();
        return {{"node", session.opened().numberOf(*node)},
                {"xml", Wire<Core::String>::write(xml.trim())}};
    }
};

template <>
struct Wire<Xml::Node*> : NodeWire<Xml::Node> {};
template <>
struct Wire<const Xml::Node*> : NodeWire<const Xml::Node> {};
template <>
struct Wire<Xml::Element*> : NodeWire<Xml::Element> {};
template <>
struct Wire<const Xml::Element*> : NodeWire<const Xml::Element> {};

template <>
struct Wire<std::list<Xml::Node*>> {
    static constexpr const char* name = "list of elements {node, xml}";
    static Json write(const std::list<Xml::Node*>& nodes, Session& session) {
        Json list = Json::array();
        for (Xml::Node* node : nodes)
            list.push_back(Wire<Xml::Node*>::write(node, session));
        return list;
    }
};
