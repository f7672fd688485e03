// One control and all that a host hands to it.
#pragma once

#include <string>

#include "e2e/container/container.h"
#include "site.h"

namespace zv::ring::com {

using win32::ComPtr;
using win32::Variant;
using zv::com::ITask;

/// Its members are used in calls that may end the control: they are borrowed, not held.
class Stage {
 public:
    Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// An interface without a reference of its own: the control lives as long as `control` or by
    /// itself during a call. Null when the control is gone.
    template <class Interface>
    Interface* Borrow(REFIID iid = __uuidof(Interface)) const {
        return control.As<Interface>(iid).Get();
    }
    IConnectionPoint* Point(REFIID iid) const;
    bool Lives() const { return static_cast<bool>(control); }

    /// What a well-behaved host does at the end; says what is wrong afterwards: references that are
    /// left, a window, a site that takes the control for active.
    std::string Close();
    /// The same for the last control, and for a normal life after it.
    std::string End();

    Trouble trouble;
    Troupe troupe;
    Site& site;
    Site& otherSite;
    Stream& stream;
    Stream& systemStream;
    Storage& storage;
    Bag& bag;
    Sink& sink;
    Sink& secondSink;
    HWND window = nullptr;
    ComPtr<IUnknown> control;
    DWORD cookie = 0;        ///< of `sink`, or 0
    DWORD secondCookie = 0;  ///< of `secondSink`, or 0
};

/// The properties as a stream holds them; empty when they cannot be had.
std::string Image(IUnknown& control);
/// What is left once no control lives: a window, a class of windows, a file that cannot be
/// unloaded.
std::string WhatIsLeft();
/// A new control sets, reads, stores and connects as it should, and leaves nothing; what does not,
/// in words.
std::string NormalLife();

}  // namespace zv::ring::com
