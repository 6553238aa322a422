// The tables of requests that the page does not ask, and with which the library's code for them is left
// out of the module: texts that belong to no document, promo places, and what is ahead of the pages.

#include "calls/Calls.h"

std::vector<Operation> Calls::detachedPages() {
    return {};
}

std::vector<Operation> Calls::promoPlaces() {
    return {};
}

std::vector<Operation> Calls::templateData() {
    return {};
}

std::vector<Operation> Calls::values() {
    return {};
}
