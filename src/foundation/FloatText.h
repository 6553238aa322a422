#pragma once

#include <string>

/// Floats as text in fixed notation with a point, in every locale.
namespace Core::FloatText {

/// Whether all of a text of digits, signs and points is a number that a float can hold; that is its
/// value then.
bool parse(const std::string& text, float& value);

/// With as few digits as tell it from all other floats.
std::string shortest(float value);
std::string rounded(float value, int decimals);

} // namespace Core::FloatText
