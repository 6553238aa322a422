#pragma once

#include "foundation/Exception.h"

#include <cstddef>
#include <utility>

/// The intrusive pointer of all Core::Object classes. Several may share one object; the object goes
/// with the last of them. Dereferencing a null SmartPtr throws Core::NullPointerException.
template <typename T>
class SmartPtr {
public:
    SmartPtr() noexcept = default;
    SmartPtr(std::nullptr_t) noexcept {}
    SmartPtr(T* object) noexcept : object_(object) { retain(); }
    SmartPtr(const SmartPtr& other) noexcept : object_(other.object_) { retain(); }
    SmartPtr(SmartPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <typename U>
    SmartPtr(const SmartPtr<U>& other) noexcept : object_(other.get()) {
        retain();
    }
    ~SmartPtr() { release(); }

    SmartPtr& operator=(SmartPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    T* get() const noexcept { return object_; }
    T* operator->() const { return checked(); }
    T& operator*() const { return *checked(); }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    friend bool operator==(const SmartPtr& a, const SmartPtr& b) noexcept {
        return a.object_ == b.object_;
    }
    friend bool operator==(const SmartPtr& a, const T* b) noexcept { return a.object_ == b; }
    friend bool operator==(const SmartPtr& a, std::nullptr_t) noexcept { return !a.object_; }
    friend bool operator<(const SmartPtr& a, const SmartPtr& b) noexcept {
        return a.object_ < b.object_;
    }

private:
    void retain() noexcept {
        if (object_)
            object_->AddRef();
    }
    void release() {
        if (object_)
            object_->Release();
    }
    T* checked() const {
        if (!object_)
            Core::throwNullPointer(__FILE__, __LINE__);
        return object_;
    }

    T* object_ = nullptr;
};
