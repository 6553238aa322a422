#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/String.h"

#include <utility>
#include <vector>

/// Hears what an HTML text holds, in its order. Each element that is opened is closed.
class FORME_API HtmlEvents {
public:
    using Attributes = std::vector<std::pair<Core::String, Core::String>>;

    HtmlEvents() = default;
    HtmlEvents(const HtmlEvents&) = delete;
    HtmlEvents& operator=(const HtmlEvents&) = delete;
    virtual ~HtmlEvents();

    /// `name` and the names of attributes are in small letters; values are plain text.
    virtual void open(const Core::String& name, const Attributes& attributes) = 0;
    virtual void close(const Core::String& name) = 0;
    /// Plain text, references to characters replaced.
    virtual void text(const Core::String& plain) = 0;
};

/// What reads HTML, which is torn more often than not. A host gives one to a document; the
/// component `forme-html` has one that follows the rules by which browsers read.
class FORME_API HtmlParser : public Core::Object {
public:
    ~HtmlParser() override;

    /// Tells the events of a whole text or of a part of one, in time in proportion to its length.
    /// Comments are left out. Throws Core::Exception, before the first event, where the text is too
    /// deeply nested or needs too much memory to be read.
    virtual void parse(const Core::String& html, HtmlEvents& events) const = 0;
};
