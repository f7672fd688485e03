// The names offered where a person is chosen.
#pragma once

#include <string>
#include <vector>

namespace zv::mainwindow {

class frmTaskMain;

class StaffLists {
 public:
    explicit StaffLists(frmTaskMain& window) : window_(window) {}

    /// 0 the personnel table, 1 the employees; any other offers nobody. The lists are read when
    /// the window is first seen, so that an unseen one costs no query.
    void SetSource(int source);
    void FillIfNeeded();
    /// The names are those of another store: they are read again when they are needed.
    void Forget() { stale_ = true; }
    /// Reads the lists anew. A table that the database lacks gives an empty list.
    void Fill();

 private:
    std::vector<std::string> Names() const;

    frmTaskMain& window_;
    int source_ = 0;
    bool stale_ = true;
};

}  // namespace zv::mainwindow
