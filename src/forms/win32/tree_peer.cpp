#include "forms/win32/tree_peer.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "base/text.h"
#include "forms/win32/common_controls.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {
namespace {

constexpr UINT kSynchronize = WM_APP + 10;
constexpr int kImageSize = 16;
/// Space between the rows besides text and image.
constexpr int kRowGap = 4;
// Four blanks that do not break: every font has them, and nobody types them.
constexpr wchar_t kGap[] = L"\u00A0\u00A0\u00A0\u00A0";
constexpr char kGapUtf8[] = "\u00A0\u00A0\u00A0\u00A0";
/// The native tree finds the place behind a given item by walking; more than this many are put at
/// the end instead.
constexpr std::size_t kMostPlaced = 64;

/// Deleting an item by itself costs about as much as this many when all go.
constexpr std::size_t kDeletionCost = 10;

std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash;
}

LPARAM AsParam(const void* pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

}  // namespace

NativeTree::NativeTree(FormWindow& window, Control& control) : NativeControl(window, control) {}

NativeTree::~NativeTree() {
    Owner().Backend().Controls().Destroy(images_);
}

void NativeTree::ToDisplay(std::string_view text, std::wstring& display) {
    ToWide(text, display);
    for (std::size_t at = display.find(L'\t'); at != std::wstring::npos;
         at = display.find(L'\t', at)) {
        display.replace(at, 1, kGap);
    }
}

std::string NativeTree::FromDisplay(const std::wstring& display) {
    return text::Replace(FromWide(display), kGapUtf8, "\t");
}

void NativeTree::Create(HWND parent, int id) {
    CreateNative(parent, id, WC_TREEVIEWW,
                 WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                     (Tree().sign ? TVS_INFOTIP : 0),
                 WS_EX_CLIENTEDGE);
    Send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
    ShowImages();
    OfferDescriptions();
    Synchronize();
}

void NativeTree::OfferDescriptions() {
    if (!Tree().describe) return;
    Win32Backend& backend = Owner().Backend();
    descriptions_ = ItemDescriptions::Offer(
        Handle(), [&backend] { return backend.ScreenReaders(); },
        [this](DWORD child) { return DescribeItem(child); });
}

std::string NativeTree::DescribeItem(DWORD child) const {
    if (Gone()) return {};
    const auto item = reinterpret_cast<HTREEITEM>(Send(TVM_MAPACCIDTOHTREEITEM, child));
    const int node = stale_ ? TreeView::kNone : NodeOf(item);
    return node == TreeView::kNone ? std::string() : Tree().describe(node);
}

void NativeTree::OnDestroy() noexcept {
    if (descriptions_) descriptions_->Withdraw();
}

void NativeTree::ShowImages() {
    const CommonControls& controls = Owner().Backend().Controls();
    const int size = GetScale().ToPixels(kImageSize);
    if (const ImageList* source = Tree().Images()) {
        const HIMAGELIST former = std::exchange(images_, controls.CreateImageList(*source, size));
        Send(TVM_SETIMAGELIST, TVSIL_NORMAL, AsParam(images_));
        controls.Destroy(former);
    }
    const int row = std::max(size, static_cast<int>(MeasureText(Owner().UiFont(), "X").cy));
    Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(row + GetScale().ToPixels(kRowGap)));
}

void NativeTree::ResolutionChanged() {
    NativeControl::ResolutionChanged();
    ShowImages();
}

int NativeTree::SlotOf(int node) const {
    const auto at = static_cast<std::size_t>(node);
    return node >= 0 && at < slotOfNode_.size() ? slotOfNode_[at] : kNone;
}

HTREEITEM NativeTree::ItemOf(int node) const {
    const int slot = SlotOf(node);
    return slot == kNone ? nullptr : At(slot).item;
}

int NativeTree::NodeOf(HTREEITEM item) const {
    if (!item) return TreeView::kNone;
    TVITEMW query{};
    query.mask = TVIF_PARAM;
    query.hItem = item;
    if (!Direct(TVM_GETITEMW, 0, AsParam(&query))) return TreeView::kNone;
    return At(static_cast<int>(query.lParam)).node;
}

void NativeTree::FillBegins() {
    filling_ = true;
}

void NativeTree::FillEnds() {
    filling_ = false;
    if (!stale_) return;
    try {
        Synchronize();
    } catch (const std::exception&) {
        // A fill ends in a destructor too. Without memory for it now, the tree follows later.
        stale_ = true;
        PostMessageW(Handle(), kSynchronize, 0, 0);
    }
}

void NativeTree::Defer() {
    if (!std::exchange(stale_, true) && !filling_) PostMessageW(Handle(), kSynchronize, 0, 0);
}

// Mostly the tree is filled again at once, so the items are kept until then.
void NativeTree::NodesCleared() {
    Defer();
}

void NativeTree::NodeAdded(int node) {
    if (filling_ || stale_) {
        Defer();
        return;
    }
    const Quiet quiet(*this);
    const int parent = SlotOf(Tree().Parent(node));
    Insert(parent, kNone, node);
    if (parent != kNone && Tree().Expanded(Tree().Parent(node))) Expand(parent, true);
}

void NativeTree::NodeRemoved(int node) {
    if (filling_ || stale_) {
        Defer();
        return;
    }
    const Quiet quiet(*this);
    Delete(SlotOf(node));
}

void NativeTree::NodeChanged(int node) {
    if (filling_ || stale_) {
        Defer();
        return;
    }
    const Quiet quiet(*this);
    const int slot = SlotOf(node);
    const int image = At(slot).image;
    Reuse(slot, node);
    if (descriptions_ && image != At(slot).image) {
        NotifyWinEvent(EVENT_OBJECT_DESCRIPTIONCHANGE, Handle(), OBJID_CLIENT,
                       static_cast<LONG>(
                           Send(TVM_MAPHTREEITEMTOACCID, reinterpret_cast<WPARAM>(At(slot).item))));
    }
    if (At(slot).first != kNone) Expand(slot, Tree().Expanded(node));
}

void NativeTree::Synchronize() {
    stale_ = false;
    if (Gone()) return;
    const Quiet quiet(*this);
    Send(WM_SETREDRAW, FALSE);
    slotOfNode_.clear();
    toExpand_.clear();
    Direct(TVM_SELECTITEM, TVGN_CARET, 0);
    const std::size_t present = slots_.size() - freeSlots_.size();
    if (CountGone(kNone, TreeView::kNone) * kDeletionCost > present) DeleteAll();
    SynchronizeChildren(kNone, TreeView::kNone);
    for (const int slot : toExpand_) Expand(slot, Tree().Expanded(At(slot).node));
    ShowSelection();
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(Handle(), nullptr, TRUE);
}

// Groups are the same when they have the same key; of single items it counts only what is seen.
bool NativeTree::Matches(const Slot& slot, int node) const {
    const TreeView& tree = Tree();
    if (slot.first != kNone || tree.FirstChild(node) != TreeView::kNone) {
        return slot.key == Hash(tree.Key(node));
    }
    return slot.image == tree.ImageIndex(node) && slot.text == Hash(tree.Text(node));
}

NativeTree::Difference NativeTree::Compare(int parent, int parentNode) const {
    const TreeView& tree = Tree();
    Difference difference;
    int slot = parent == kNone ? firstRoot_ : At(parent).first;
    int node = parentNode == TreeView::kNone ? tree.FirstRoot() : tree.FirstChild(parentNode);
    while (slot != kNone && node != TreeView::kNone && Matches(At(slot), node)) {
        difference.same.emplace_back(slot, node);
        slot = At(slot).next;
        node = tree.NextSibling(node);
    }
    for (; slot != kNone; slot = At(slot).next) difference.gone.push_back(slot);
    for (; node != TreeView::kNone; node = tree.NextSibling(node)) difference.added.push_back(node);

    std::vector<int>& gone = difference.gone;
    std::vector<int>& added = difference.added;
    std::size_t tail = 0;
    while (tail < gone.size() && tail < added.size() &&
           Matches(At(gone[gone.size() - 1 - tail]), added[added.size() - 1 - tail])) {
        tail++;
    }
    if (tail == 0 || added.size() - tail > kMostPlaced) return difference;
    difference.before = gone[gone.size() - tail];
    for (std::size_t i = tail; i > 0; i--) {
        difference.same.emplace_back(gone[gone.size() - i], added[added.size() - i]);
    }
    gone.resize(gone.size() - tail);
    added.resize(added.size() - tail);
    return difference;
}

// How many native items would be deleted one by one.
std::size_t NativeTree::CountGone(int parent, int parentNode) const {
    const Difference difference = Compare(parent, parentNode);
    std::size_t count = difference.gone.size();
    for (const int slot : difference.gone) {
        for (int child = At(slot).first; child != kNone; child = At(child).next) count++;
    }
    for (const auto& [slot, node] : difference.same) {
        if (At(slot).first != kNone) count += CountGone(slot, node);
    }
    return count;
}

void NativeTree::SynchronizeChildren(int parent, int parentNode) {
    const Difference difference = Compare(parent, parentNode);
    for (const auto& [slot, node] : difference.same) {
        Reuse(slot, node);
        if (At(slot).first != kNone || Tree().FirstChild(node) != TreeView::kNone) {
            SynchronizeChildren(slot, node);
        }
        if (At(slot).expanded != Tree().Expanded(node)) toExpand_.push_back(slot);
    }
    if (difference.added.size() > kMostPlaced && parent != kNone) {
        Expand(parent, false);
        toExpand_.push_back(parent);
    }
    for (std::size_t i = difference.gone.size(); i > 0; i--) Delete(difference.gone[i - 1]);
    InsertAll(parent, difference.before, difference.added);
}

void NativeTree::DeleteAll() {
    Direct(TVM_DELETEITEM, 0, AsParam(TVI_ROOT));
    slots_.clear();
    freeSlots_.clear();
    firstRoot_ = lastRoot_ = kNone;
}

// All of a level before what lies below: a native tree takes ten times as long for a group that
// comes behind one with many items.
void NativeTree::InsertAll(int parent, int before, const std::vector<int>& nodes) {
    std::vector<int> slots;
    slots.reserve(nodes.size());
    for (const int node : nodes) slots.push_back(Insert(parent, before, node));
    std::vector<int> children;
    for (std::size_t i = 0; i < nodes.size(); i++) {
        if (Tree().Expanded(nodes[i])) toExpand_.push_back(slots[i]);
        children.clear();
        for (int child = Tree().FirstChild(nodes[i]); child != TreeView::kNone;
             child = Tree().NextSibling(child)) {
            children.push_back(child);
        }
        if (!children.empty()) InsertAll(slots[i], kNone, children);
    }
}

void NativeTree::Reuse(int slot, int node) {
    Slot& at = At(slot);
    if (static_cast<std::size_t>(node) >= slotOfNode_.size()) {
        slotOfNode_.resize(static_cast<std::size_t>(node) + 1, kNone);
    }
    slotOfNode_[static_cast<std::size_t>(node)] = slot;
    at.node = node;
    at.key = Hash(Tree().Key(node));
    TVITEMW item{};
    item.hItem = at.item;
    const std::uint64_t text = Hash(Tree().Text(node));
    if (text != at.text) {
        item.mask |= TVIF_TEXT;
        ToDisplay(Tree().Text(node), buffer_);
        item.pszText = buffer_.data();
        at.text = text;
    }
    if (at.image != Tree().ImageIndex(node)) {
        item.mask |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
        at.image = Tree().ImageIndex(node);
        item.iImage = item.iSelectedImage = at.image;
    }
    if (item.mask) Direct(TVM_SETITEMW, 0, AsParam(&item));
}

// In front of `before`, or at the end.
int NativeTree::Insert(int parent, int before, int node) {
    int id = static_cast<int>(slots_.size());
    if (freeSlots_.empty()) {
        slots_.emplace_back();
    } else {
        id = freeSlots_.back();
        freeSlots_.pop_back();
        At(id) = Slot();
    }
    TVINSERTSTRUCTW request{};
    request.hParent = parent == kNone ? TVI_ROOT : At(parent).item;
    const int previous = before == kNone ? LastOf(parent) : At(before).previous;
    if (before == kNone) {
        request.hInsertAfter = TVI_LAST;
    } else {
        request.hInsertAfter = previous == kNone ? TVI_FIRST : At(previous).item;
    }
    ToDisplay(Tree().Text(node), buffer_);
    request.itemex.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    request.itemex.pszText = buffer_.data();
    request.itemex.iImage = request.itemex.iSelectedImage = Tree().ImageIndex(node);
    request.itemex.lParam = id;

    Slot& slot = At(id);
    slot.item = reinterpret_cast<HTREEITEM>(Direct(TVM_INSERTITEMW, 0, AsParam(&request)));
    slot.key = Hash(Tree().Key(node));
    slot.text = Hash(Tree().Text(node));
    slot.image = Tree().ImageIndex(node);
    slot.node = node;
    slot.parent = parent;
    slot.previous = previous;
    slot.next = before;
    (previous == kNone ? FirstOf(parent) : At(previous).next) = id;
    (before == kNone ? LastOf(parent) : At(before).previous) = id;
    if (static_cast<std::size_t>(node) >= slotOfNode_.size()) {
        slotOfNode_.resize(static_cast<std::size_t>(node) + 1, kNone);
    }
    slotOfNode_[static_cast<std::size_t>(node)] = id;
    return id;
}

void NativeTree::Delete(int slot) {
    Direct(TVM_DELETEITEM, 0, AsParam(At(slot).item));
    const Slot gone = At(slot);
    (gone.previous == kNone ? FirstOf(gone.parent) : At(gone.previous).next) = gone.next;
    (gone.next == kNone ? LastOf(gone.parent) : At(gone.next).previous) = gone.previous;
    Forget(slot);
}

void NativeTree::Forget(int slot) {
    for (int child = At(slot).first; child != kNone; child = At(child).next) Forget(child);
    freeSlots_.push_back(slot);
}

void NativeTree::Expand(int slot, bool expanded) {
    Slot& at = At(slot);
    if (at.expanded == expanded || at.first == kNone) return;
    Direct(TVM_EXPAND, expanded ? TVE_EXPAND : TVE_COLLAPSE, AsParam(at.item));
    at.expanded = expanded;
}

void NativeTree::ShowSelection() {
    selecting_ = true;
    const HTREEITEM item = ItemOf(Tree().Selected());
    Send(TVM_SELECTITEM, TVGN_CARET, AsParam(item));
    if (item) Send(TVM_ENSUREVISIBLE, 0, AsParam(item));
    selecting_ = false;
}

void NativeTree::Mirror(Aspect aspect) {
    if (aspect == Aspect::Selection && !stale_) ShowSelection();
    if (aspect == Aspect::Image) InvalidateRect(Handle(), nullptr, FALSE);
}

std::optional<Sign> NativeTree::SignOf(LPARAM slot) const {
    // What the native items show is not what the nodes are while these change.
    const bool known = slot >= 0 && static_cast<std::size_t>(slot) < slots_.size();
    if (stale_ || filling_ || !known || !Tree().sign) return std::nullopt;
    return Tree().sign(At(static_cast<int>(slot)).node);
}

// The whole text and the sign of a node that cannot show them.
void NativeTree::OnInfoTip(NMTVGETINFOTIPW& tip) {
    const std::optional<Sign> sign = SignOf(tip.lParam);
    std::wstring text;
    const int node = NodeOf(tip.hItem);
    if (!stale_ && node != TreeView::kNone && IsCut(Handle(), tip.hItem, sign)) {
        ToDisplay(std::string(Tree().Text(node)) + (sign ? "\t" + sign->text : ""), text);
    }
    lstrcpynW(tip.pszText, text.c_str(), tip.cchTextMax);
}

std::optional<LRESULT> NativeTree::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (stale_ && !filling_) Synchronize();
    switch (message) {
        case kSynchronize:
            return 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            clickReported_ = false;
            press_ = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
            return std::nullopt;
        case WM_SIZE:
        case WM_HSCROLL:
            // The signs stay at the edge while the texts move.
            if (Tree().sign) InvalidateRect(Handle(), nullptr, FALSE);
            return std::nullopt;
        case WM_CONTEXTMENU:
            if (lParam != -1) return std::nullopt;
            OnMenuKey();
            return 0;
        case WM_KEYUP:
            // The system would ask for the menu that the key opened when it went down.
            if (wParam == VK_APPS) return 0;
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

LRESULT NativeTree::OnCustomDraw(NMTVCUSTOMDRAW& draw) {
    return DrawTreeSigns(
        draw, [this](LPARAM slot) { return SignOf(slot); },
        [this](LPARAM slot) {
            std::wstring text;
            ToDisplay(Tree().Text(At(static_cast<int>(slot)).node), text);
            return text;
        },
        theme_.At(draw.nmcd, Tree().Owner().Windows().GetBackend()));
}

LRESULT NativeTree::OnNotify(NMHDR& header) {
    switch (header.code) {
        case TVN_SELCHANGINGW:
            // Some versions select the first node by themselves when the focus arrives.
            return IsQuiet() && !selecting_ && !stale_ &&
                   reinterpret_cast<const NMTREEVIEWW&>(header).action == TVC_UNKNOWN &&
                   reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem != nullptr;
        case TVN_SELCHANGEDW:
            if (!IsQuiet()) OnSelected(reinterpret_cast<const NMTREEVIEWW&>(header));
            return 0;
        case TVN_ITEMEXPANDEDW: {
            if (IsQuiet()) return 0;
            const auto& change = reinterpret_cast<const NMTREEVIEWW&>(header);
            Slot& slot = At(static_cast<int>(change.itemNew.lParam));
            slot.expanded = change.itemNew.state & TVIS_EXPANDED;
            Tree().UserExpanded(slot.node, slot.expanded);
            return 0;
        }
        case static_cast<UINT>(NM_CUSTOMDRAW):
            if (!Tree().sign) return CDRF_DODEFAULT;
            return OnCustomDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
        case TVN_GETINFOTIPW:
            OnInfoTip(reinterpret_cast<NMTVGETINFOTIPW&>(header));
            return 0;
        case static_cast<UINT>(NM_CLICK):
            if (!IsQuiet()) OnClick();
            return 0;
        case static_cast<UINT>(NM_RCLICK):
            if (!IsQuiet()) OnRightClick(press_);
            return TRUE;
        default:
            return 0;
    }
}

void NativeTree::OnSelected(const NMTREEVIEWW& change) {
    if (change.action != TVC_BYMOUSE && change.action != TVC_BYKEYBOARD) return;
    clickReported_ = change.action == TVC_BYMOUSE;
    const int node = NodeOf(change.itemNew.hItem);
    if (node != TreeView::kNone) Tree().UserClick(node);
}

// A click on the selected node changes no selection but is a click.
void NativeTree::OnClick() {
    const int node = NodeAt(press_);
    if (clickReported_ || node == TreeView::kNone || node != Tree().Selected()) return;
    clickReported_ = true;
    Tree().UserClick(node);
}

void NativeTree::OnRightClick(POINT at) {
    Tree().UserRightClick(NodeAt(at), GetScale().ToTwips(static_cast<int>(at.x)),
                          GetScale().ToTwips(static_cast<int>(at.y)));
}

void NativeTree::OnMenuKey() {
    const int node = Tree().Selected();
    const Position at = PlaceOf(node);
    Tree().UserRightClick(node, at.x, at.y);
}

Position NativeTree::PlaceOf(int node) {
    if (stale_ && !filling_) Synchronize();
    RECT place{};
    const HTREEITEM item = ItemOf(node);
    if (item) Send(TVM_ENSUREVISIBLE, 0, AsParam(item));
    std::memcpy(&place, &item,
                sizeof(HTREEITEM));  // the message reads the item from the result's place
    if (!item || !Send(TVM_GETITEMRECT, TRUE, AsParam(&place))) place = {};
    return {GetScale().ToTwips(static_cast<int>(place.left)),
            GetScale().ToTwips(static_cast<int>(place.bottom))};
}

int NativeTree::NodeAt(POINT at) const {
    TVHITTESTINFO hit{};
    hit.pt = at;
    Send(TVM_HITTEST, 0, AsParam(&hit));
    return hit.flags & TVHT_ONITEM ? NodeOf(hit.hItem) : TreeView::kNone;
}

}  // namespace zv::forms::win32
