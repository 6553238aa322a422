#pragma once

#include "OpenedObjects.h"
#include "Wire.h"

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/document/IEditableBufferMonitor.h>
#include <forme/foundation/SmartPtr.h>

#include <cstdint>
#include <string>
#include <string_view>

/// Registers the names that a host registers as a rule.
void setUpAsHost(EditableDocumentBuffer& document);

/// Loads a file and sets the root that it has, "qfd:document" or "fo:root". Throws Core::Exception
/// when it cannot be read.
void loadDocument(EditableDocumentBuffer& document, const Core::String& path);

/// One document being edited by requests: JSON arrays that name an operation and its arguments. It
/// is set up as a host's document is.
class Session : private IEditableBufferMonitor {
public:
    Session();
    ~Session() override;

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    EditableDocumentBuffer& document() { return *document_; }
    /// What requests have opened on the document.
    OpenedObjects& opened() { return opened_; }

    /// Takes up another document, on which nothing is open. When the file cannot be read, this
    /// throws and the old one stays.
    void open(const Core::String& path);
    /// Saves the document, which stays as it is. A declaration that names another encoding names
    /// this one in the file.
    void save(const Core::String& path, DocumentEncoding encoding);

    /// Carries out a request and answers {"result", "caret", "pivot", "notices"}, with "change"
    /// where the text changed, or {"error"} saying what was wrong. Never throws for a request.
    Json serve(const Json& request);
    /// The same for a line of text.
    Json serveLine(std::string_view line);
    /// The same, with the reply as a line of text.
    std::string replyTo(std::string_view line);

private:
    /// What the monitor heard. A monitor must not raise, so that no memory is asked for.
    struct Notices {
        bool buffer = false;
        bool caret = false;
        bool selection = false;
    };

    void onBufferChanged() override { notices_.buffer = true; }
    void onCaretChanged() override { notices_.caret = true; }
    void onSelectionChanged() override { notices_.selection = true; }

    template <typename Answer>
    auto undivided(Answer answer);
    Json carryOut(const Json& request);
    TextChange changeSince(const SmartPtr<EditableDocumentBuffer>& before,
                           std::uint64_t version) const;
    void adopt(const SmartPtr<EditableDocumentBuffer>& document) noexcept;

    SmartPtr<EditableDocumentBuffer> document_;
    OpenedObjects opened_;
    Notices notices_;
};
