#include "trees/PiecedText.h"

#include "foundation/Encoder.h"
#include "foundation/MemoryStream.h"
#include "foundation/xml/DomParser.h"
#include "foundation/xml/ParseException.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

namespace {

/// A place in a text as a reader counts, both from 1.
struct Place {
    int line = 1;
    int column = 1;

    /// The place behind the unit that stands here.
    Place behind(Text text, std::size_t at) const {
        const bool endsLine =
            text[at] == L'\n' || (text[at] == L'\r' && !text.substr(at + 1).starts_with(L'\n'));
        return endsLine ? Place{line + 1, 1} : Place{line, column + 1};
    }
    bool operator==(const Place&) const = default;
};

Place placeOf(Text text, int offset) {
    Place place;
    for (std::size_t at = 0; at < static_cast<std::size_t>(offset); ++at)
        place = place.behind(text, at);
    return place;
}

int offsetOf(Text text, const Place& sought) {
    std::size_t at = 0;
    for (Place place; place != sought && at < text.size(); ++at)
        place = place.behind(text, at);
    return static_cast<int>(at);
}

} // namespace

PiecedText& PiecedText::stretch(int start, const String& text) {
    stretches_.push_back({text_.length(), start, text.length()});
    return made(text);
}

PiecedText& PiecedText::made(const String& text) {
    text_ += text;
    return *this;
}

SmartPtr<Xml::XmlDocument> PiecedText::parse() const {
    try {
        return parse(text_);
    } catch (const Xml::ParseException& error) {
        // The reader knows the document and nothing of what was added.
        const int offset = inDocument(offsetOf(text_.view(), {error.getLine(), error.getColumn()}));
        const String upTo = document_.text(0, offset);
        const Place place = placeOf(upTo.view(), std::max(upTo.length() - 1, 0));
        throw Xml::ParseException(L"", place.line, place.column,
                                  error.getMessage().substringAfter(L": "));
    }
}

SmartPtr<Xml::XmlDocument> PiecedText::parse(const String& text) {
    Xml::DomParser parser;
    parser.setSubstituteEntities(false);
    parser.parseStream(SmartPtr<Core::IO::Stream>(
        new Core::IO::MemoryStream(Core::Encoder::convertStringToUTF8(text))));
    return parser.getDocument();
}

/// Of what was added, that is where the stretch before it ends, or where the first one begins.
int PiecedText::inDocument(int offset) const {
    int found = stretches_.empty() ? 0 : stretches_.front().start;
    for (const Stretch& stretch : stretches_)
        if (stretch.offset <= offset)
            found = stretch.start + std::min(offset - stretch.offset, stretch.length - 1);
    return found;
}
