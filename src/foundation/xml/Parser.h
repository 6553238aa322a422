#pragma once

#include "foundation/Api.h"

namespace Xml {

/// What the parsers of XML have in common: how they read. Failure to parse throws ParseException,
/// which is a Core::Exception.
class FORME_API Parser {
public:
    Parser() = default;
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;
    virtual ~Parser();

    /// Stored for the host. Documents are checked to be well formed and never against a grammar.
    virtual void setValidate(bool validate);
    virtual bool getValidate() const;

    /// True, as it is at first: a reference in the content to an entity that the text declares is
    /// replaced by the entity's text. False: it is kept as a reference. In attribute values such
    /// references are always replaced, as are character references and the five predefined entities
    /// everywhere. A reference to an entity outside the text, or to an undeclared one, is an error.
    virtual void setSubstituteEntities(bool substitute);
    virtual bool getSubstituteEntities() const;

    /// True: line breaks in attribute values are kept. False, as it is at first: they become
    /// blanks.
    virtual void allowNewLineInAttribute(bool allow);

protected:
    bool keepsLineBreaks() const { return newLineInAttribute_; }

private:
    bool validate_ = false;
    bool substituteEntities_ = true;
    bool newLineInAttribute_ = false;
};

} // namespace Xml
