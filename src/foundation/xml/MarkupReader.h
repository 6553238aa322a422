#pragma once

#include "foundation/String.h"
#include "foundation/xml/ParseException.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <set>
#include <string>
#include <string_view>

struct XML_ParserStruct;

namespace Xml {

/// Tells a derived class of the tags and texts of one UTF-8 text, as Expat finds them. Depth, the
/// number of entities and what they expand to are bounded, and nothing outside the text is ever
/// read.
class MarkupReader {
public:
    /// Why and where, as a byte offset, a text was refused.
    struct Failure {
        std::size_t offset;
        Core::String reason;
    };

    MarkupReader(const MarkupReader&) = delete;
    MarkupReader& operator=(const MarkupReader&) = delete;

protected:
    /// The text must outlive the reader.
    explicit MarkupReader(std::string_view text);
    virtual ~MarkupReader();

    /// Reads the text, once. Throws Failure, and what an event throws.
    void read();
    /// Leaves the rest of the text unread.
    void endHere();

    // Names, values and texts are UTF-8. Of the attributes, name and value take turns up to a null.
    virtual void startElement(const char* name, const char** attributes) = 0;
    virtual void endElement(const char* name) = 0;
    virtual void addText(const char* text, int length) = 0;
    /// In the place of an entity that is declared and not replaced by its text.
    virtual void addEntityReference(const char* name) = 0;
    virtual void endDocumentType() {}

    std::string_view text() const { return text_; }
    XML_ParserStruct* parser() const { return parser_.get(); }
    /// Where the markup that is told of begins, and all of it.
    std::size_t offset() const;
    std::string_view currentMarkup() const;
    [[noreturn]] void fail(const Core::String& reason) const;

    /// The C function that hands an event on to a member function of a derived class.
    template <auto Handler>
    struct Forward;

private:
    struct FreeParser {
        void operator()(XML_ParserStruct* parser) const;
    };

    void openElement(const char* name, const char** attributes);
    void closeElement(const char* name);
    void declareEntity(const char* name, int isParameter, const char* value, int length,
                       const char* base, const char* systemId, const char* publicId,
                       const char* notation);
    void skipEntity(const char* name, int isParameter);
    void closeDocumentType();
    void requireDeclaredEntities(std::string_view tag) const;
    void stop(std::exception_ptr thrown) noexcept;
    [[noreturn]] void failWithParserError() const;

    std::string_view text_;
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    int depth_ = 0; // of the element whose content is being read; the root element has 1
    bool hasDocumentType_ = false;
    std::set<std::string, std::less<>> entities_; // the general ones that the text declares
    int entityCount_ = 0;
    bool hasEnded_ = false;
    std::exception_ptr thrown_; // by a handler; it must not pass through the parser's frames
};

template <typename Reader, typename... Arguments, void (Reader::*Handler)(Arguments...)>
struct MarkupReader::Forward<Handler> {
    static void call(void* self, Arguments... arguments) noexcept {
        auto& reader = *static_cast<MarkupReader*>(self);
        if (reader.thrown_ || reader.hasEnded_)
            return;
        try {
            (static_cast<Reader&>(reader).*Handler)(arguments...);
        } catch (...) {
            reader.stop(std::current_exception());
        }
    }
};

/// The failure with its place in lines and columns. `source` names the file, if there is one.
ParseException located(const Core::String& source, std::string_view text,
                       const MarkupReader::Failure& failure);

} // namespace Xml
