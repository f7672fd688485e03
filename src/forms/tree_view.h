// A tree of nodes with keys, texts and images, made for many nodes: texts lie in one block, keys
// are found by hashing.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/icon.h"
#include "forms/sign.h"

namespace zv::forms {

class TreeView : public Control {
 public:
    /// Stands for "no node" wherever a node id is taken or given. Ids are small numbers that hold
    /// until the node is removed.
    static constexpr int kNone = -1;

    TreeView(Form& form, std::string name, Control* parent = nullptr, int index = -1);
    ~TreeView() override;
    std::function<void()> Remember() override;

    /// Must outlive the control; set before nodes are added.
    void SetImageList(const ImageList* images) { images_ = images; }
    const ImageList* Images() const { return images_; }

    /// Appends a node below `parent` (kNone: a root). Throws error 35602 when the key exists, 35601
    /// when the image does not.
    int Add(int parent, std::string_view key, std::string_view text, std::string_view image);
    void Remove(int id);  ///< with everything below it
    void Clear();
    /// Announces the number of nodes to come, so that memory is taken once.
    void Reserve(int nodes);

    int Count() const { return count_; }
    int Find(std::string_view key) const;  ///< kNone when there is none
    int First() const;                     ///< the node created first
    int FirstRoot() const { return firstRoot_; }
    int Parent(int node) const { return At(node).parent; }
    int FirstChild(int node) const { return At(node).firstChild; }
    int NextSibling(int node) const { return At(node).next; }
    /// The node displayed below `node` when everything is expanded.
    int NextInOrder(int node) const;

    std::string_view Key(int node) const { return View(At(node).key); }
    std::string_view Text(int node) const { return View(At(node).text); }
    const std::string& Image(int node) const;
    int ImageIndex(int node) const { return At(node).image; }
    bool Expanded(int node) const { return At(node).expanded; }
    /// A small number that the window keeps with a node; 0 at first. Nobody sees it.
    std::uint8_t Data(int node) const { return At(node).data; }
    void SetData(int node, std::uint8_t data) { At(node).data = data; }
    void SetText(int node, std::string_view text);
    void SetImage(int node, std::string_view key);
    void SetExpanded(int node, bool expanded);

    int Selected() const { return selected_; }
    /// From code: raises no NodeClick. What it stands in unfolds.
    void Select(int node);

    /// Defers the native window until the fill ends; nests.
    class Fill {
     public:
        explicit Fill(TreeView& tree);
        ~Fill();
        Fill(const Fill&) = delete;
        Fill& operator=(const Fill&) = delete;

     private:
        TreeView& tree_;
    };

    /// What a screen reader says of a node beside its text: what its picture means, for example.
    /// Asked for when a reader wants it; empty for nothing. Set before the window is shown.
    std::function<std::string(int node)> describe;

    /// What a node shows beside its text, nothing for most. Asked for whenever a node is painted,
    /// so it must be quick and must not fail. Set before the window is shown; RepaintSigns when the
    /// answers have changed.
    std::function<std::optional<Sign>(int node)> sign;
    void RepaintSigns() { Notify(Aspect::Image); }

    std::function<void(int node)> onNodeClick;
    void UserClick(int node);  ///< selects the node and raises NodeClick
    void UserExpanded(int node, bool expanded);
    /// Asked before a right press takes effect on a node; without it every node takes it.
    std::function<bool(int node)> mayRightClick;
    /// Selects the node and raises MouseDown with the right button, unless the node takes none.
    void UserRightClick(int node, int xTwips, int yTwips);

    std::size_t MemoryBytes() const;

 protected:
    /// The menu key and Shift+F10 press the selected node as the right button does. Up, Down, Home
    /// and End lead to nodes that are shown, as a click does; Left and Right fold
    /// and unfold, or lead to the parent and the first child.
    void OwnKey(KeyEvent& event) override;

 private:
    struct Slice {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;
    };
    struct Node {
        Slice key;
        Slice text;
        int parent = kNone;
        int firstChild = kNone;
        int lastChild = kNone;
        int next = kNone;
        int previous = kNone;
        std::int16_t image = 0;
        bool expanded : 1 = false;
        bool alive : 1 = false;
        std::uint8_t data = 0;
    };
    const Node& At(int node) const;
    Node& At(int node);
    std::string_view View(Slice slice) const {
        return std::string_view(texts_).substr(slice.begin, slice.length);
    }
    Slice Store(std::string_view text);
    int FindImage(std::string_view key);
    std::size_t Bucket(std::string_view key) const;
    void Rehash(std::size_t buckets);
    int NextShown(int node) const;
    int PreviousShown(int node) const;
    int LastShown() const;
    int LastShownBelow(int node) const;
    void TakeMenuKey();
    /// The node that a key leads to from the selected one; kNone when it leads nowhere.
    int KeyTarget(int code);
    void Unlink(int id);
    void Discard(int id);
    TreePeer* Native() const;

    const ImageList* images_ = nullptr;
    std::vector<Node> nodes_;
    std::string texts_;
    std::vector<int> buckets_;  ///< node id, kEmpty or kDeleted
    int count_ = 0;
    int firstRoot_ = kNone;
    int lastRoot_ = kNone;
    int selected_ = kNone;
    int fills_ = 0;
    int used_ = 0;  ///< buckets that are not empty
};

}  // namespace zv::forms
