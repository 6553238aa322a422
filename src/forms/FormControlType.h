#pragma once

namespace Xml {

/// What a control of a form is.
enum class FormControlType { CheckBox = 0, Text = 1, Button = 2, RadioButton = 3, Submit = 4 };

} // namespace Xml
