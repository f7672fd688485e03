// The native tree.
//
// Filling it anew is the common case, mostly with nearly the same nodes, and deleting native items
// is what costs most. So changes inside a fill are not made one by one: when the fill ends the
// native items are compared with the nodes, and only what differs is deleted or inserted.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "forms/tree_view.h"
#include "forms/win32/accessibility.h"
#include "forms/win32/native_control.h"
#include "forms/win32/sign_drawing.h"

namespace zv::forms::win32 {

class NativeTree : public NativeControl {
 public:
    NativeTree(FormWindow& window, Control& control);
    ~NativeTree() override;
    void Create(HWND parent, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
    void ResolutionChanged() override;
    void OnDestroy() noexcept override;

    /// In twips, below the beginning of the node's text.
    Position PlaceOf(int node);
    void NodeAdded(int node);
    void NodeRemoved(int node);
    void NodeChanged(int node);
    void NodesCleared();
    void FillBegins();
    void FillEnds();

    /// The native item of a node, null when it has none.
    HTREEITEM ItemOf(int node) const;
    int NodeOf(HTREEITEM item) const;
    /// The text that stands for a node's, and back: a tab has no shape of its own in a tree.
    static void ToDisplay(std::string_view text, std::wstring& display);
    static std::string FromDisplay(const std::wstring& display);

 protected:
    void Mirror(Aspect aspect) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    void OnMenuKey();
    static constexpr int kNone = -1;

    /// A native item and what it shows. Items are numbered for good, nodes are not.
    struct Slot {
        HTREEITEM item = nullptr;
        std::uint64_t key = 0;   ///< hash
        std::uint64_t text = 0;  ///< hash
        int image = 0;
        int node = kNone;
        int parent = kNone;
        int first = kNone;
        int last = kNone;
        int next = kNone;
        int previous = kNone;
        bool expanded = false;
    };

    TreeView& Tree() const { return static_cast<TreeView&>(Logical()); }
    Slot& At(int slot) { return slots_[static_cast<std::size_t>(slot)]; }
    const Slot& At(int slot) const { return slots_[static_cast<std::size_t>(slot)]; }
    int SlotOf(int node) const;
    int& FirstOf(int parent) { return parent == kNone ? firstRoot_ : At(parent).first; }
    int& LastOf(int parent) { return parent == kNone ? lastRoot_ : At(parent).last; }

    /// Between the items below `parent` and the nodes that they should show.
    struct Difference {
        std::vector<std::pair<int, int>> same;  ///< item, node
        std::vector<int> gone;                  ///< items
        std::vector<int> added;                 ///< nodes
        int before = kNone;                     ///< the item that those added come in front of
    };

    Difference Compare(int parent, int parentNode) const;
    std::size_t CountGone(int parent, int parentNode) const;
    void Synchronize();
    void SynchronizeChildren(int parent, int parentNode);
    bool Matches(const Slot& slot, int node) const;
    void Reuse(int slot, int node);
    int Insert(int parent, int before, int node);
    void InsertAll(int parent, int before, const std::vector<int>& nodes);
    void DeleteAll();
    void Delete(int slot);
    void Forget(int slot);
    void Expand(int slot, bool expanded);
    void ShowImages();
    void OfferDescriptions();
    std::string DescribeItem(DWORD child) const;
    void ShowSelection();
    std::optional<Sign> SignOf(LPARAM slot) const;
    LRESULT OnCustomDraw(NMTVCUSTOMDRAW& draw);
    void OnInfoTip(NMTVGETINFOTIPW& tip);
    void OnSelected(const NMTREEVIEWW& change);
    void OnClick();
    void OnRightClick(POINT at);
    int NodeAt(POINT at) const;
    void Defer();

    PaintedTheme theme_;
    std::vector<Slot> slots_;
    std::vector<int> freeSlots_;
    std::vector<int> slotOfNode_;
    int firstRoot_ = kNone;
    int lastRoot_ = kNone;
    std::vector<int> toExpand_;
    std::wstring buffer_;
    HIMAGELIST images_ = nullptr;
    POINT press_{};
    bool filling_ = false;
    bool stale_ = false;  ///< nodes have changed that the native tree does not show yet
    bool selecting_ = false;
    bool clickReported_ = false;  ///< in the press that is going on
    zv::win32::ComPtr<ItemDescriptions> descriptions_;
};

class NativeTreePeer : public PeerOf<TreePeer, NativeTree> {
 public:
    using PeerOf::PeerOf;
    void NodeAdded(int node) override { GetNative().NodeAdded(node); }
    void NodeRemoved(int node) override { GetNative().NodeRemoved(node); }
    void NodeChanged(int node) override { GetNative().NodeChanged(node); }
    void NodesCleared() override { GetNative().NodesCleared(); }
    void FillBegins() override { GetNative().FillBegins(); }
    void FillEnds() override { GetNative().FillEnds(); }
    Position PlaceOf(int node) override { return GetNative().PlaceOf(node); }
};

}  // namespace zv::forms::win32
