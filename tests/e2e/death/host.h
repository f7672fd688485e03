// A host thread with two windows and the control, and how its windows come to their end.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "base/win32/com_ptr.h"

namespace zv::death {

/// What ends a window while it stands.
enum class Death {
    OwnerDestroyed,             ///< by the owner's own thread
    OwnerDestroyedFromOutside,  ///< by a message that another thread sends
    LoopQuit,
    SessionEnded,
    HandleDestroyed,  ///< that of the window itself
};
const char* NameOf(Death death);

/// Windows of a thread. Found by the name in their property "zv.Name", dialogs of the system by
/// their class.
HWND FindNamed(DWORD thread, const std::wstring& name);
HWND FindChild(HWND parent, const std::wstring& name);
HWND FindDialog(DWORD thread);

/// Repeats `ready` until it says yes or `seconds` have passed.
bool Wait(double seconds, const std::function<bool()>& ready);

struct Outcome {
    bool stood = false;     ///< the window was there
    HRESULT result = S_OK;  ///< of refresh
    double seconds = -1;  ///< from the death to the return of the call; below 0: it did not return
    bool othersEnabled = false;
    bool lowerEnabled = true;  ///< that above which it stood, once it died alone
    bool quitIsHeard = true;   ///< the host's own loop gets the end that was posted
    bool meanwhileGood = true;
    int windowsLeft = 0;  ///< of the control and of the system
    bool mayUnload = false;
};

struct Case {
    std::wstring name;
    long mode = 1;
    /// Brings the window up, called on another thread once refresh has been called; null when it
    /// does not come.
    std::function<HWND(DWORD thread)> open;
    /// It stands above a modal window, which lives on when it dies alone.
    bool above = false;
    /// What is called on the host's thread in the place of refresh.
    std::function<HRESULT(const std::string& dataPath)> call = {};
    /// Runs on the host's thread while the window stands; answers whether all is as it should be.
    std::function<bool()> meanwhile = {};
};

/// Plays a case on a thread of its own. The program ends when refresh does not come back.
Outcome Play(const Case& one, Death death, const std::string& dataPath);

/// The control's file: whether it may be unloaded.
bool MayUnload();
win32::ComPtr<IDispatch> CreateControl();
HRESULT Refresh(IDispatch& control, long mode, short modal);
void SetText(IDispatch& control, const wchar_t* name, const std::string& text);
void PumpWaiting();

}  // namespace zv::death
