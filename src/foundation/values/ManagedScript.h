#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/MsxslAssembly.h"
#include "foundation/values/MsxslUsing.h"

#include <utility>

/// A script that a template's expressions call by its prefix.
struct FORME_API ManagedScript {
    ManagedScript() = default;
    ManagedScript(Core::String thePrefix, Core::String theLanguage, Core::String theText)
        : namespacePrefix(std::move(thePrefix)), language(std::move(theLanguage)),
          text(std::move(theText)) {}

    Core::String namespacePrefix;
    Core::String language; ///< "CSharp" and others
    Core::String text;

    // Empty until parseAndRemoveMsxslNodes() finds them in the text
    Core::Vector<MsxslAssembly> assemblies;
    Core::Vector<MsxslUsing> usings;

    /// Moves what the text says in `<msxsl:assembly name="..."/>`, or with `href`, and in
    /// `<msxsl:using namespace="..."/>` into the lists. An empty element may have a closing tag,
    /// and quotes may be single. One that says nothing stays in the text, as all else does.
    void parseAndRemoveMsxslNodes();

    bool operator==(const ManagedScript&) const = default;
};
