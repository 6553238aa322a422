// The promo places of the page sequence around the caret.

#include "calls/Calls.h"
#include "calls/PageWire.h"
#include "calls/Rows.h"

#include <forme/channels/TranspromoBuffer.h>

namespace {

/// An enumeration whose numbers go up to `last`.
template <typename Enum, int last>
struct EnumWire {
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= last;
    }
    static Enum read(const Json& value) { return static_cast<Enum>(value.get<int>()); }
    static Json write(Enum value) { return static_cast<int>(value); }
};

} // namespace

template <>
struct Wire<Xml::PageConstraint> : EnumWire<Xml::PageConstraint, 5> {
    static constexpr const char* name =
        "pages (0 all, 1 first, 2 last, 3 odd, 4 even, 5 blank ones)";
};
template <>
struct Wire<Xml::AlignmentConstraint> : EnumWire<Xml::AlignmentConstraint, 3> {
    static constexpr const char* name = "alignment (0 none, 1 left, 2 center, 3 right)";
};
template <>
struct Wire<Xml::PageRegionConstraint> : EnumWire<Xml::PageRegionConstraint, 5> {
    static constexpr const char* name =
        "region (0 none, 1 body, 2 before, 3 after, 4 start, 5 end)";
};

template <>
const std::vector<RecordField<TranspromoInfo>>& fieldsOf<TranspromoInfo>() {
    using I = TranspromoInfo;
    static const std::vector<RecordField<I>> fields{
        field<&I::source>("source"), field<&I::alignmentConstraint>("alignmentConstraint"),
        field<&I::pageConstraint>("pageConstraint"),
        field<&I::regionConstraint>("regionConstraint"), field<&I::ruleKeyword>("ruleKeyword")};
    return fields;
}
template <>
struct Wire<TranspromoInfo> : RecordWire<TranspromoInfo> {
    static inline const std::string name = describe("promo place");
};

namespace {

using Places = TranspromoBuffer;

SmartPtr<Places> ofSequence(Session& session, Core::String master) {
    return SmartPtr<Places>(new Places(&session.document(), master));
}

/// Its nodes are not named by requests.
OpenedObjects::Tree treeOf(Places&) {
    return {};
}

} // namespace

std::vector<Operation> Calls::promoPlaces() {
    const OpenedRows<Places> promo("promo");
    return {
        promo.openMade(&ofSequence, &treeOf, {"master"}),
        promo.close(),
        promo("getTranspromoList", &Places::getTranspromoList),
        promo("overrideTranspromoList", &Places::overrideTranspromoList, {"places"}),
        promo("commitChangesToEditableBuffer", &Places::commitChangesToEditableBuffer),
        promo("commit", &Places::commitChangesToEditableBuffer),
        promo("deleteExistingTranspromo", &Places::deleteExistingTranspromo, {"sequence"}),
        promo("getRegionTypeAsString", &Places::getRegionTypeAsString, {"region"}),
        promo("getRegionType", &Places::getRegionType, {"name"}),
    };
}
