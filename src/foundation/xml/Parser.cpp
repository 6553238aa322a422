#include "foundation/xml/Parser.h"

namespace Xml {

Parser::~Parser() = default;

void Parser::setValidate(bool validate) {
    validate_ = validate;
}

bool Parser::getValidate() const {
    return validate_;
}

void Parser::setSubstituteEntities(bool substitute) {
    substituteEntities_ = substitute;
}

bool Parser::getSubstituteEntities() const {
    return substituteEntities_;
}

void Parser::allowNewLineInAttribute(bool allow) {
    newLineInAttribute_ = allow;
}

} // namespace Xml
