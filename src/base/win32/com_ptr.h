// A counted reference to a COM interface.
#pragma once

#include <unknwn.h>

#include <cstddef>
#include <utility>

namespace zv::win32 {

/// Owns one reference, or is null. Copying adds a reference.
template <class T>
class ComPtr {
 public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Adds a reference of its own; see Attach to take over the caller's.
    explicit ComPtr(T* pointer) : pointer_(pointer) {
        if (pointer_) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() { Reset(); }

    /// Takes over a reference that the caller owns.
    static ComPtr Attach(T* pointer) {
        ComPtr result;
        result.pointer_ = pointer;
        return result;
    }
    /// Hands the reference to the caller.
    [[nodiscard]] T* Detach() { return std::exchange(pointer_, nullptr); }
    void Reset() {
        if (T* old = std::exchange(pointer_, nullptr)) old->Release();
    }

    T* Get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    T& operator*() const { return *pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    bool operator==(const ComPtr& other) const { return pointer_ == other.pointer_; }

    /// The address for a function that hands out a reference; what was held is released.
    T** Put() {
        Reset();
        return &pointer_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    /// Another interface of the same object; null when it has none.
    template <class U>
    ComPtr<U> As(REFIID iid = __uuidof(U)) const {
        ComPtr<U> result;
        if (pointer_ && FAILED(pointer_->QueryInterface(iid, result.PutVoid()))) result.Reset();
        return result;
    }
    /// Stores an added reference for an out parameter; null is stored as null.
    template <class U>
    void CopyTo(U** target) const {
        if (pointer_) pointer_->AddRef();
        *target = pointer_;
    }

 private:
    T* pointer_ = nullptr;
};

/// An object just made with `new`, whose count starts at one.
template <class T, class... Arguments>
ComPtr<T> MakeCom(Arguments&&... arguments) {
    return ComPtr<T>::Attach(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace zv::win32
