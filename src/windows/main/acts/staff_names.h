// The names offered where a person is chosen.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"
#include "windows/main/panels/item_panel.h"

namespace zv::windows {

class StaffNames {
 public:
    /// All must outlive this.
    StaffNames(Session& session, ItemPanel& panel) : session_(session), panel_(panel) {}

    /// 0 the personnel table, 1 the employees; any other offers nobody. The names are read when
    /// the window is first seen, so that an unseen one costs no query.
    void SetSource(int source);
    void FillIfNeeded();
    /// The names are those of another store: they are read again when they are needed.
    void Forget() { stale_ = true; }
    /// Reads the names anew. A table that the database lacks gives none.
    void Fill();

 private:
    std::vector<std::string> Names() const;

    Session& session_;
    ItemPanel& panel_;
    int source_ = 0;
    bool stale_ = true;
};

}  // namespace zv::windows
