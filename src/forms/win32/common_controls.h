// Version 6 of the common controls, which a module gets only through a manifest of its own: the
// manifest is resource 2 of the module and in force while windows are made.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "forms/icon.h"
#include "forms/win32/handles.h"

namespace zv::forms::win32 {

/// Makes the module's manifest count for the thread as long as it lives.
class ManifestInForce {
 public:
    /// `context` may be null: the process's own manifest counts.
    explicit ManifestInForce(HANDLE context);
    ~ManifestInForce();
    ManifestInForce(const ManifestInForce&) = delete;
    ManifestInForce& operator=(const ManifestInForce&) = delete;

 private:
    bool active_ = false;
    ULONG_PTR cookie_ = 0;
};

class CommonControls {
 public:
    explicit CommonControls(HINSTANCE module);

    HANDLE Manifest() const { return context_.get(); }
    /// A list of `images` drawn at size × size pixels. The caller destroys it with Destroy.
    HIMAGELIST CreateImageList(const ImageList& images, int size) const;
    void Destroy(HIMAGELIST list) const;

 private:
    // Image lists are made by the version that the windows come from, never by the one that this
    // module would be linked with.
    decltype(&ImageList_Create) create_ = nullptr;
    decltype(&ImageList_Add) add_ = nullptr;
    decltype(&ImageList_Destroy) destroy_ = nullptr;
    Context context_;
    Library library_;
};

/// Whether the colours of a bitmap are multiplied with its alpha already.
enum class Alpha { Premultiplied, Straight };

/// A bitmap of size × size pixels with an alpha channel.
Bitmap CreateIconBitmap(const Icon& icon, int size, Alpha alpha);

}  // namespace zv::forms::win32
