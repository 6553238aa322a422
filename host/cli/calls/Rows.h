#pragma once

#include "CallTable.h"
#include "OpenedObjects.h"
#include "Session.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// How a room's table of requests is written: a row for each operation, made from a name, a member
/// of the library and the names of its arguments. What the arguments and the result are, and how
/// they travel, is told by the member's type and Wire.
///
///     const Rows lists([](Session& session) -> ListBuffer& { return ...; });
///     return {lists("removeList", &ListBuffer::removeList),
///             lists("changeLabelType", &ListBuffer::changeLabelType, {"type"})};
using ArgumentNames = std::vector<const char*>;

template <typename... A, std::size_t... I>
std::vector<Parameter> parametersOf(const ArgumentNames& names, std::index_sequence<I...>) {
    return {Parameter{names.at(I), Wire<std::remove_cvref_t<A>>::name,
                      &Wire<std::remove_cvref_t<A>>::matches}...};
}

template <typename R>
std::string resultName() {
    if constexpr (std::is_void_v<R>)
        return "null";
    else
        return Wire<std::remove_cvref_t<R>>::name;
}

// Values of which Wire must know what is open are read and written with the session.

template <typename T>
auto readAs(const Json& value, Session& session) {
    if constexpr (requires { Wire<T>::read(value, session); })
        return Wire<T>::read(value, session);
    else
        return Wire<T>::read(value);
}

template <typename T>
Json written(const T& value, Session& session) {
    if constexpr (requires { Wire<T>::write(value, session); })
        return Wire<T>::write(value, session);
    else
        return Wire<T>::write(value);
}

/// Calls with the request's arguments, the first of which stands behind the name.
template <typename R, typename... A, typename Call, std::size_t... I>
Json callWith(const Call& call, Session& session, const Json& request, std::index_sequence<I...>) {
    if constexpr (std::is_void_v<R>) {
        call(session, readAs<std::remove_cvref_t<A>>(request[I + 1], session)...);
        return nullptr;
    } else {
        return written<std::remove_cvref_t<R>>(
            call(session, readAs<std::remove_cvref_t<A>>(request[I + 1], session)...), session);
    }
}

template <typename R, typename... A, typename Call>
Operation makeOperation(std::string name, const ArgumentNames& names, Call call) {
    using Indices = std::index_sequence_for<A...>;
    return {std::move(name), parametersOf<A...>(names, Indices()), resultName<R>(),
            [call](Session& session, const Json& request) {
                return callWith<R, A...>(call, session, request, Indices());
            }};
}

/// Picks the overload of that type.
template <typename Signature, typename Class>
constexpr auto overload(Signature Class::*member) {
    return member;
}

/// Rows of the operations of one object. The target is asked for the object at each request.
template <typename Target>
class Rows {
public:
    using Object = std::remove_cvref_t<std::invoke_result_t<Target, Session&>>;

    /// With a qualifier, "pageSequence", a name in a request begins with it and a dot.
    explicit Rows(Target target, const std::string& qualifier = {})
        : target_(std::move(target)), prefix_(qualifier.empty() ? "" : qualifier + ".") {}

    template <typename R, typename C, typename... A>
    Operation operator()(const char* name, R (C::*member)(A...),
                         const ArgumentNames& names = {}) const {
        return row<R, A...>(name, names, member);
    }

    template <typename R, typename C, typename... A>
    Operation operator()(const char* name, R (C::*member)(A...) const,
                         const ArgumentNames& names = {}) const {
        return row<R, A...>(name, names, member);
    }

    /// A static member.
    template <typename R, typename... A>
    Operation operator()(const char* name, R (*function)(A...),
                         const ArgumentNames& names = {}) const {
        return makeOperation<R, A...>(
            prefix_ + name, names,
            [function](Session&, A... arguments) -> R { return function(arguments...); });
    }

    /// What this program makes of what the object offers.
    template <typename R, typename... A>
    Operation made(const char* name, R (*function)(Object&, A...),
                   const ArgumentNames& names = {}) const {
        return makeOperation<R, A...>(
            prefix_ + name, names,
            [target = target_, function](Session& session, A... arguments) -> R {
                auto&& object = target(session);
                return function(object, arguments...);
            });
    }

private:
    template <typename R, typename... A, typename Member>
    Operation row(const char* name, const ArgumentNames& names, Member member) const {
        return makeOperation<R, A...>(
            prefix_ + name, names,
            [target = target_, member](Session& session, A... arguments) -> R {
                auto&& object = target(session);
                return (object.*member)(arguments...);
            });
    }

    Target target_;
    std::string prefix_;
};

/// The rows of the document's own operations.
inline auto documentRows() {
    return Rows([](Session& session) -> EditableDocumentBuffer& { return session.document(); });
}

/// Finds what requests have opened under a qualifier.
template <typename Object>
struct OpenedTarget {
    std::string qualifier;

    Object& operator()(Session& session) const {
        return *static_cast<Object*>(session.opened().at(qualifier));
    }
};

/// Rows of an object that requests open and close themselves. Under "table", ["table.open", ...]
/// makes one, in the place of one that was open, ["table.close"] drops it, and an operation without
/// one is an error.
template <typename Object>
class OpenedRows : public Rows<OpenedTarget<Object>> {
public:
    /// Leads to the tree that the object edits.
    using TreeOf = typename OpenedObjects::Tree (*)(Object&);

    explicit OpenedRows(const std::string& qualifier)
        : Rows<OpenedTarget<Object>>({qualifier}, qualifier), qualifier_(qualifier) {}

    /// Asks the document for the object. Where it gives none, that is an error.
    template <typename... A>
    Operation open(SmartPtr<Object> (EditableDocumentBuffer::*member)(A...), TreeOf treeOf,
                   const ArgumentNames& names) const {
        return opening<A...>(
            [member](Session& session, const A&... arguments) {
                return (session.document().*member)(arguments...);
            },
            treeOf, names);
    }

    /// Opens what the function makes, of the session's document or of the arguments alone.
    template <typename... A>
    Operation openMade(SmartPtr<Object> (*make)(Session&, A...), TreeOf treeOf,
                       const ArgumentNames& names = {}) const {
        return opening<A...>(make, treeOf, names);
    }

    Operation close() const {
        return makeOperation<void>(
            qualifier_ + ".close", {},
            [qualifier = qualifier_](Session& session) { session.opened().close(qualifier); });
    }

private:
    template <typename... A, typename Make>
    Operation opening(Make make, TreeOf treeOf, const ArgumentNames& names) const {
        return makeOperation<void, A...>(
            qualifier_ + ".open", names,
            [qualifier = qualifier_, make, treeOf](Session& session, const A&... arguments) {
                const SmartPtr<Object> object = make(session, arguments...);
                if (!object)
                    throw std::invalid_argument("there is no " + qualifier);
                session.opened().open(qualifier,
                                      std::shared_ptr<void>(object.get(), [object](void*) {}),
                                      treeOf(*object));
            });
    }

    std::string qualifier_;
};
