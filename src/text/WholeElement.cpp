#include "text/WholeElement.h"

int XmlScan::elementLength(Text text) noexcept {
    int depth = 0;
    for (int tag = 0; tag >= 0;) {
        const int end = tagEnd(text, tag + 1);
        if (end < 0)
            return -1;
        if (closingAt(text, tag))
            --depth;
        else if (unitAt(text, end - 1) != L'/')
            ++depth;
        if (depth == 0)
            return end + 1;
        tag = nextTag(text, end + 1);
    }
    return -1;
}
