#pragma once

#include "foundation/Api.h"

namespace Core {

/// The root of every reference-counted class. A new object has count zero; the first SmartPtr that
/// takes it raises the count to one, and the last one that lets go calls OnFinalRelease().
class FORME_API Object {
public:
    Object() noexcept = default;
    Object(const Object&) noexcept {}
    Object& operator=(const Object&) noexcept { return *this; }
    virtual ~Object();

    void AddRef() noexcept { ++references_; }
    void Release();

    /// Called when the count falls to zero. Deletes the object unless a class says otherwise.
    virtual void OnFinalRelease();

private:
    int references_ = 0; // not copied with the object: a copy has owners of its own
};

} // namespace Core
