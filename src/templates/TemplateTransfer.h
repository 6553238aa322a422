#pragma once

class Document;

/// What one template takes from another that was edited in its place.
namespace TemplateTransfer {

/// Gives the target the source's values that are computed, variables, scripts and style sheet; its
/// languages are its own. What is the same stays where it is. One undo step. Answers whether that
/// stands, which it also does where one of them is no template.
bool takeOver(Document& target, Document& source);

} // namespace TemplateTransfer
