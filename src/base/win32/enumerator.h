// An OLE enumerator over whatever has a number of items to copy.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <new>
#include <utility>

namespace zv::win32 {

/// `Source` goes along with each clone. It has `std::size_t Count() const noexcept` and
/// `HRESULT Copy(std::size_t index, Item* item) const noexcept`, which gives the caller an item of
/// its own.
template <class Interface, class Item, class Source>
class Enumerator final : public Interface {
    static_assert(noexcept(std::declval<const Source&>().Count()) && noexcept(
        std::declval<const Source&>().Copy(0, nullptr)));

 public:
    explicit Enumerator(Source source, std::size_t position = 0)
        : source_(std::move(source)), position_(position) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != __uuidof(IUnknown) && iid != __uuidof(Interface)) return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    /// An item that cannot be had ends the row of those given; as the first it is the error.
    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
        if (fetched) *fetched = 0;
        if (!items || (count != 1 && !fetched)) return E_POINTER;
        ULONG done = 0;
        for (; done < count && position_ < source_.Count(); done++, position_++) {
            const HRESULT hr = source_.Copy(position_, &items[done]);
            if (FAILED(hr) && done == 0) return hr;
            if (FAILED(hr)) break;
        }
        if (fetched) *fetched = done;
        return done == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = source_.Count() - std::min(position_, source_.Count());
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) noexcept override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        try {
            *copy = new Enumerator(source_, position_);
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

 private:
    ~Enumerator() = default;

    std::atomic<ULONG> references_{1};
    Source source_;
    std::size_t position_;
};

}  // namespace zv::win32
