// Counted doubles of what a host hands to the control, and the trouble that they make.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zv::ring::com {

/// The N-th call that reaches any double of a run misbehaves. All doubles of the run share it.
class Trouble {
 public:
    /// Nothing happens before `Plan`.
    void Plan(int call, std::optional<HRESULT> answer, std::function<void()> act = {});
    /// Calls that came since the plan was made.
    int Calls() const { return calls_; }
    bool Happened() const { return happened_; }
    /// Name of the call that misbehaved.
    const std::string& Where() const { return where_; }

    /// Every method of a double begins with it: what it answers instead of doing its work, or
    /// nothing when it shall work. The act runs inside the call.
    std::optional<HRESULT> Enter(const char* call);

 private:
    int planned_ = 0;
    int calls_ = 0;
    bool happened_ = false;
    std::string where_;
    std::optional<HRESULT> answer_;
    std::function<void()> act_;
};

/// Counts the references to one double. The double itself lives as long as its troupe, so that a
/// reference too few is seen instead of crashing.
class Counted {
 public:
    explicit Counted(std::string name) : name_(std::move(name)) {}
    virtual ~Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    ULONG Add() { return static_cast<ULONG>(++references_); }
    ULONG Drop();
    /// What is wrong with the count, empty when nothing is: the references are all given back.
    std::string Imbalance() const;

 private:
    std::string name_;
    std::atomic<long> references_{0};
    std::atomic<bool> wentBelow_{false};
};

/// Owns the doubles of a test.
class Troupe {
 public:
    template <class T, class... Arguments>
    T& Make(Arguments&&... arguments) {
        auto made = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T& result = *made;
        doubles_.push_back(std::move(made));
        return result;
    }
    /// One line for each double whose references are not balanced.
    std::string Imbalance() const;
    std::size_t Size() const { return doubles_.size(); }

 private:
    std::vector<std::unique_ptr<Counted>> doubles_;
};

/// IUnknown of a double. `Self` gives `IUnknown* Find(REFIID)`, null for what it does not offer.
template <class Self, class... Interfaces>
class Double : public Counted, public Interfaces... {
 public:
    Double(std::string name, Trouble& trouble) : Counted(std::move(name)), trouble_(trouble) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (const auto answer = trouble_.Enter("QueryInterface")) return *answer;
        IUnknown* const found = static_cast<Self*>(this)->Find(iid);
        if (!found) return E_NOINTERFACE;
        *object = found;
        Add();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return Add(); }
    STDMETHODIMP_(ULONG) Release() override { return Drop(); }

 protected:
    Trouble& trouble_;
};

/// Ends a method of a double that misbehaves now.
#define ZV_TROUBLE(call) \
    if (const auto trouble = trouble_.Enter(call)) return *trouble

}  // namespace zv::ring::com
