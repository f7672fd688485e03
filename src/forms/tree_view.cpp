#include "forms/tree_view.h"

#include <algorithm>
#include <functional>

#include "base/errors.h"
#include "forms/form.h"

namespace zv::forms {
namespace {

constexpr int kEmpty = -1;
constexpr int kDeleted = -2;
constexpr std::size_t kFirstBuckets = 16;

}  // namespace

TreeView::TreeView(Form& form, std::string name, Control* parent, int index)
    : Control(form, ControlKind::TreeView, std::move(name), parent, index),
      buckets_(kFirstBuckets, kEmpty) {
    SetTabStop(true);
}

TreeView::~TreeView() = default;

TreePeer* TreeView::Native() const {
    return static_cast<TreePeer*>(Peer());
}

const TreeView::Node& TreeView::At(int node) const {
    if (node < 0 || node >= static_cast<int>(nodes_.size()) ||
        !nodes_[static_cast<std::size_t>(node)].alive) {
        throw RuntimeError(ErrorNumber::KeyNotFound);
    }
    return nodes_[static_cast<std::size_t>(node)];
}

TreeView::Node& TreeView::At(int node) {
    return const_cast<Node&>(static_cast<const TreeView*>(this)->At(node));
}

TreeView::Slice TreeView::Store(std::string_view text) {
    const Slice slice{static_cast<std::uint32_t>(texts_.size()),
                      static_cast<std::uint32_t>(text.size())};
    texts_.append(text);
    return slice;
}

int TreeView::FindImage(std::string_view key) {
    if (!images_) throw RuntimeError(ErrorNumber::KeyNotFound);
    return images_->Find(key);
}

// The bucket that holds `key`, or the one to put it into.
std::size_t TreeView::Bucket(std::string_view key) const {
    const std::size_t mask = buckets_.size() - 1;
    std::size_t free = buckets_.size();
    for (std::size_t at = std::hash<std::string_view>{}(key)&mask;; at = (at + 1) & mask) {
        const int entry = buckets_[at];
        if (entry == kEmpty) return free < buckets_.size() ? free : at;
        if (entry == kDeleted) {
            free = std::min(free, at);
        } else if (View(nodes_[static_cast<std::size_t>(entry)].key) == key) {
            return at;
        }
    }
}

void TreeView::Rehash(std::size_t buckets) {
    buckets_.assign(buckets, kEmpty);
    used_ = 0;
    for (std::size_t i = 0; i < nodes_.size(); i++) {
        if (!nodes_[i].alive) continue;
        buckets_[Bucket(View(nodes_[i].key))] = static_cast<int>(i);
        used_++;
    }
}

void TreeView::Reserve(int nodes) {
    const auto wanted = static_cast<std::size_t>(std::max(nodes, 0));
    nodes_.reserve(wanted);
    std::size_t buckets = kFirstBuckets;
    while (buckets < wanted * 2) buckets *= 2;
    if (buckets > buckets_.size()) Rehash(buckets);
}

int TreeView::Add(int parent, std::string_view key, std::string_view text, std::string_view image) {
    if (parent != kNone) At(parent);
    const int imageIndex = FindImage(image);
    if (static_cast<std::size_t>(used_ + 1) * 2 > buckets_.size()) {
        Rehash(std::max(kFirstBuckets, static_cast<std::size_t>(count_ + 1) * 4 > buckets_.size()
                                           ? buckets_.size() * 2
                                           : buckets_.size()));
    }
    const std::size_t bucket = Bucket(key);
    if (buckets_[bucket] >= 0) throw RuntimeError(ErrorNumber::KeyNotUnique);
    if (buckets_[bucket] == kEmpty) used_++;

    const int id = static_cast<int>(nodes_.size());
    buckets_[bucket] = id;
    Node& node = nodes_.emplace_back();
    node.key = Store(key);
    node.text = Store(text);
    node.parent = parent;
    node.image = static_cast<std::int16_t>(imageIndex);
    node.alive = true;
    int& first = parent == kNone ? firstRoot_ : nodes_[static_cast<std::size_t>(parent)].firstChild;
    int& last = parent == kNone ? lastRoot_ : nodes_[static_cast<std::size_t>(parent)].lastChild;
    node.previous = last;
    if (last != kNone) nodes_[static_cast<std::size_t>(last)].next = id;
    if (first == kNone) first = id;
    last = id;
    count_++;
    if (Native()) Native()->NodeAdded(id);
    return id;
}

void TreeView::Unlink(int id) {
    const Node& node = At(id);
    int& first = node.parent == kNone ? firstRoot_
                                      : nodes_[static_cast<std::size_t>(node.parent)].firstChild;
    int& last =
        node.parent == kNone ? lastRoot_ : nodes_[static_cast<std::size_t>(node.parent)].lastChild;
    if (node.previous == kNone)
        first = node.next;
    else
        nodes_[static_cast<std::size_t>(node.previous)].next = node.next;
    if (node.next == kNone)
        last = node.previous;
    else
        nodes_[static_cast<std::size_t>(node.next)].previous = node.previous;
}

void TreeView::Discard(int id) {
    for (int child = nodes_[static_cast<std::size_t>(id)].firstChild; child != kNone;) {
        const int next = nodes_[static_cast<std::size_t>(child)].next;
        Discard(child);
        child = next;
    }
    Node& node = nodes_[static_cast<std::size_t>(id)];
    buckets_[Bucket(View(node.key))] = kDeleted;
    node.alive = false;
    count_--;
}

void TreeView::Remove(int id) {
    const Node node = At(id);
    bool holdsSelection = false;
    for (int at = selected_; at != kNone; at = At(at).parent) holdsSelection |= at == id;
    if (holdsSelection) {
        selected_ = node.next != kNone       ? node.next
                    : node.previous != kNone ? node.previous
                                             : node.parent;
    }
    // The native item goes first, while its children can still be removed.
    if (Native()) Native()->NodeRemoved(id);
    Unlink(id);
    Discard(id);
    if (holdsSelection) Notify(Aspect::Selection);
}

void TreeView::Clear() {
    nodes_.clear();
    texts_.clear();
    std::fill(buckets_.begin(), buckets_.end(), kEmpty);
    count_ = 0;
    used_ = 0;
    firstRoot_ = lastRoot_ = selected_ = kNone;
    if (Native()) Native()->NodesCleared();
}

int TreeView::Find(std::string_view key) const {
    const int entry = buckets_[Bucket(key)];
    return entry >= 0 ? entry : kNone;
}

int TreeView::First() const {
    for (std::size_t i = 0; i < nodes_.size(); i++) {
        if (nodes_[i].alive) return static_cast<int>(i);
    }
    return kNone;
}

int TreeView::NextInOrder(int node) const {
    if (At(node).firstChild != kNone) return At(node).firstChild;
    while (node != kNone && At(node).next == kNone) node = At(node).parent;
    return node == kNone ? kNone : At(node).next;
}

const std::string& TreeView::Image(int node) const {
    return images_->Key(At(node).image);
}

void TreeView::SetText(int node, std::string_view text) {
    At(node).text = Store(std::string(text));
    if (Native()) Native()->NodeChanged(node);
}

void TreeView::SetImage(int node, std::string_view key) {
    At(node).image = static_cast<std::int16_t>(FindImage(key));
    if (Native()) Native()->NodeChanged(node);
}

void TreeView::SetExpanded(int node, bool expanded) {
    if (At(node).expanded == expanded) return;
    At(node).expanded = expanded;
    if (Native()) Native()->NodeChanged(node);
}

void TreeView::Select(int node) {
    if (node != kNone) At(node);
    if (node == selected_) return;
    selected_ = node;
    for (int at = node; at != kNone && At(at).parent != kNone; at = At(at).parent) {
        SetExpanded(At(at).parent, true);
    }
    Notify(Aspect::Selection);
}

void TreeView::UserClick(int node) {
    FromUser([&] {
        Select(node);
        if (onNodeClick) onNodeClick(node);
    });
}

void TreeView::UserExpanded(int node, bool expanded) {
    At(node).expanded = expanded;
}

void TreeView::UserRightClick(int node, int xTwips, int yTwips) {
    FromUser([&] {
        if (node != kNone && mayRightClick && !mayRightClick(node)) return;
        if (node != kNone) Select(node);
        if (onMouseDown) onMouseDown({MouseButton::Right, xTwips, yTwips});
    });
}

std::size_t TreeView::MemoryBytes() const {
    return nodes_.capacity() * sizeof(Node) + texts_.capacity() + buckets_.capacity() * sizeof(int);
}

TreeView::Fill::Fill(TreeView& tree) : tree_(tree) {
    if (tree_.fills_++ == 0 && tree_.Native()) tree_.Native()->FillBegins();
}

TreeView::Fill::~Fill() {
    if (--tree_.fills_ == 0 && tree_.Native()) tree_.Native()->FillEnds();
}

std::function<void()> TreeView::Remember() {
    return [this, base = Control::Remember(), nodes = nodes_, texts = texts_, buckets = buckets_,
            count = count_, firstRoot = firstRoot_, lastRoot = lastRoot_, selected = selected_,
            used = used_] {
        {
            const Fill deferred(*this);
            Clear();
            nodes_ = nodes;
            texts_ = texts;
            buckets_ = buckets;
            count_ = count;
            firstRoot_ = firstRoot;
            lastRoot_ = lastRoot;
            selected_ = selected;
            used_ = used;
            if (TreePeer* native = Native()) {
                for (std::size_t i = 0; i < nodes_.size(); i++) {
                    if (nodes_[i].alive) native->NodeAdded(static_cast<int>(i));
                }
            }
        }
        Notify(Aspect::Selection);
        base();
    };
}

}  // namespace zv::forms
