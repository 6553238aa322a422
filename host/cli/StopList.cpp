#include "StopList.h"

#include "ReadableText.h"
#include "Session.h"

#include <forme/foundation/Encoder.h>

#include <vector>

namespace {

/// A document whose stops can be asked for: the scans are there for derived classes.
class Stops : public EditableDocumentBuffer {
public:
    std::vector<int> all() const {
        std::vector<int> stops;
        for (int stop = getNextEditablePositionInFo(getFirstEditablePositionInXml(), false, false);
             stop >= 0; stop = getNextEditablePositionInFo(stop, false, false))
            stops.push_back(stop);
        return stops;
    }
};

} // namespace

std::string listStops(const std::string& path) {
    const SmartPtr<Stops> document(new Stops);
    setUpAsHost(*document);
    loadDocument(*document, Core::Encoder::convertUTF8ToString(path));
    return readableText(document->getContent(), document->all());
}
