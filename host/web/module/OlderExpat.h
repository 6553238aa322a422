#pragma once

#include <expat.h>

// Expat before 2.4 does not count what entities expand to. A text that was made to do harm stops
// the page of whoever opened it, and nothing else.
constexpr auto XML_ERROR_AMPLIFICATION_LIMIT_BREACH = static_cast<XML_Error>(43);
inline void XML_SetBillionLaughsAttackProtectionMaximumAmplification(XML_Parser, float) {}
inline void XML_SetBillionLaughsAttackProtectionActivationThreshold(XML_Parser,
                                                                    unsigned long long) {}
