#include "pages/AppliedChanges.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "foundation/xml/Element.h"
#include "pages/BroughtMarkup.h"
#include "pages/DetachedText.h"
#include "pages/MasterText.h"
#include "pages/SequenceForEditing.h"
#include "pages/StaticContentChoice.h"
#include "pages/TextElements.h"
#include "templates/TemplateTransfer.h"
#include "text/Markup.h"
#include "trees/Fragment.h"

#include <map>
#include <set>
#include <utility>

using Core::String;

namespace {

class Application {
public:
    Application(Document& target, const String& source, const String& master)
        : target_(target), source_(source), masterName_(master),
          master_(MasterText::find(source_.text(), master)) {
        Fragment tree(nullptr);
        tree.readText(source);
        brought_ =
            StaticContentChoice{.master = master, .ofItsSequences = true, .ofItsRegions = true}.in(
                source_, *tree.root());
    }

    bool hasMaster() const { return master_ >= 0; }

    /// Answers whether all that had a place was put there.
    bool run(const std::vector<int>& indices) {
        return applyMaster() && applyStaticContents(std::set<int>(indices.begin(), indices.end()));
    }

private:
    bool applyMaster() {
        const int old = MasterText::find(target_.text(), masterName_);
        return old < 0 ||
               MasterText::replace(target_, masterName_,
                                   take(master_, Namespaces::around(target_.text(), old)));
    }

    /// From the last to the first, so that those to come stay where they are but for what the root
    /// has to declare.
    bool applyStaticContents(const std::set<int>& indices) {
        const std::vector<int> sequences = SequenceForEditing::all(target_);
        const int rootEnd = endOfRootTag();
        for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
            if (*index < 0 || *index >= static_cast<int>(sequences.size()))
                continue;
            const int asFound = sequences[static_cast<std::size_t>(*index)];
            const int sequence = asFound + endOfRootTag() - rootEnd;
            if (asFound >= 0 &&
                !SequenceForEditing::putStaticContents(target_, sequence, joinedFor(sequence)))
                return false;
        }
        return true;
    }

    int endOfRootTag() const { return target_.text().tagEnd(target_.text().prolog().root); }

    /// The static contents that the sequence is to have, in the order of their flow names; those of
    /// one name, which only the target can have, as they were.
    String joinedFor(int sequence) const {
        const XmlText& text = target_.text();
        std::multimap<String, String> joined;
        for (const int own : TextElements::childrenOf(text, sequence, L"static-content")) {
            const String flow = TextElements::attributeOf(text, own, L"flow-name");
            if (!brought_.contains(flow))
                joined.emplace(flow, text.markupOf(own));
        }
        const std::set<String> inForce = SequenceForEditing::namespacesIn(text, sequence);
        for (const auto& [flow, element] : brought_)
            joined.emplace(flow, take(element, inForce));
        String all;
        for (const auto& [flow, markup] : joined)
            all += markup;
        return all;
    }

    /// An element of the source for a place in the target where these namespaces are declared.
    String take(int element, const std::set<String>& inForce) const {
        return BroughtMarkup::take(source_.text(), element, inForce);
    }

    Document& target_;
    DetachedText source_;
    String masterName_;
    int master_;                    // in the source
    std::map<String, int> brought_; // from flow names to static contents of the source
};

} // namespace

void AppliedChanges::apply(Document& target, EditableDocumentBuffer& source, const String& master,
                           const std::vector<int>& sequences) {
    Application application(target, source.getContent(), master);
    if (!application.hasMaster())
        return;
    RecordedCommand command(target);
    if (!TemplateTransfer::takeOver(target, Document::of(source)) || !application.run(sequences) ||
        !command.mayStand())
        command.takeBack();
}
