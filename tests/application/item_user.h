// A user of the task manager who finds items by their titles.
#pragma once

#include <string>

#include "application/test_application.h"

namespace zv::test {

class ItemUser {
 public:
    /// Opens the manager.
    explicit ItemUser(TestApplication& application);

    /// Fills the tree anew with the items whose title begins so. An edit under way is called off.
    void Seek(const std::string& beginning);
    /// Selects the item with that title. False when the tree has none.
    bool Select(const std::string& title);
    bool Shows(const std::string& title) const { return !KeyOf(title).empty(); }

    // Each begins with the tree as it is. What the user is asked is answered from the application's
    // queue.
    void Add(const std::string& title, const std::string& content);
    /// Opens the selected item for a change and types its content.
    void Change(const std::string& content);
    void Save();
    void Complete();
    void Delete();

    /// The user was told something that holds this text.
    bool Said(const std::string& text) const;
    /// The user was told of an error.
    bool SaidError() const;

 private:
    std::string KeyOf(const std::string& title) const;
    windows::frmTaskMain& Window() const { return *application_.Window(); }

    TestApplication& application_;
};

}  // namespace zv::test
