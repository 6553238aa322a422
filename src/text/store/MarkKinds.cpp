#include "text/store/MarkKinds.h"

#include "foundation/String.h"
#include "text/store/TextUnits.h"

namespace {

/// Sorts names into kinds. The factor is one for which the elements that documents hold most of and
/// those that hold most of a document are each of a kind of their own, or share it with a rare one.
class NameSorter {
public:
    void add(wchar_t unit) { hash_ = (hash_ ^ static_cast<std::uint32_t>(unit)) * 0x1FA2660B; }
    MarkKind kind() const {
        constexpr auto kinds = static_cast<std::uint64_t>(MarkKind::CutStart);
        return MarkKind((std::uint64_t{hash_ ^ hash_ >> 15} * kinds) >> 32);
    }

private:
    std::uint32_t hash_ = 0;
};

bool endsName(wchar_t unit) {
    return unit == L'>' || unit == L'/' || Core::String::isSpace(unit);
}

} // namespace

MarkKinds MarkKinds::named(TextView name) {
    if (name.starts_with(L'/'))
        name = name.substr(1);
    if (name.starts_with(L'?'))
        return {MarkKind::InstructionStart, MarkKind::CutStart};
    if (name.starts_with(L'!'))
        return {MarkKind::SectionStart, MarkKind::TypeStart, MarkKind::CutStart};
    NameSorter sorter;
    for (const wchar_t unit : name)
        sorter.add(unit);
    return {sorter.kind(), MarkKind::CutStart};
}

MarkKind kindOfStart(const TextUnits& units, int start) {
    const int name = start + 1 < units.size() && units[start + 1] == L'/' ? start + 2 : start + 1;
    if (name >= units.size())
        return MarkKind::CutStart;
    if (units[name] == L'?')
        return MarkKind::InstructionStart;
    if (units[name] == L'!' && name + 1 < units.size())
        return units[name + 1] == L'D' ? MarkKind::TypeStart : MarkKind::SectionStart;
    NameSorter sorter;
    for (int at = name; at < units.size(); ++at) {
        if (endsName(units[at]))
            return sorter.kind();
        sorter.add(units[at]);
    }
    return MarkKind::CutStart;
}
