#pragma once
#include <utility>

#include "com/automation/com_api.h"

namespace catalogador::com {

/// Owns one reference to a COM object.
template <class Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ~ComPtr() { reset(); }
    ComPtr(const ComPtr& other) : pointer_(other.pointer_) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    /// Takes over a reference that the caller has.
    static ComPtr owning(Interface* pointer) {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }
    /// Adds a reference of its own.
    static ComPtr sharing(Interface* pointer) {
        if (pointer != nullptr) pointer->AddRef();
        return owning(pointer);
    }

    void reset() {
        if (Interface* const released = std::exchange(pointer_, nullptr)) released->Release();
    }
    [[nodiscard]] Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    /// For calls that hand a reference out.
    Interface** put() {
        reset();
        return &pointer_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

  private:
    Interface* pointer_ = nullptr;
};

}  // namespace catalogador::com
