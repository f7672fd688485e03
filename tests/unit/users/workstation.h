// A process of its own that runs the control and carries out what it reads, a line at a time.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "engines.h"

namespace zv::users {

class Workstation {
 public:
    /// Starts the process. The caller must hold no connection of its own to the database then.
    /// Throws std::runtime_error when the process cannot be started or the manager not opened.
    Workstation(store::TestDatabase& database, store::EngineKind engine, const std::string& user);
    ~Workstation();
    Workstation(const Workstation&) = delete;
    Workstation& operator=(const Workstation&) = delete;

    /// What the user was shown while the words were done, a message a line, styles before a bar.
    ///
    ///   seek TITLE            fills the tree with the items whose title begins so
    ///   shows TITLE           answers "yes" or "no"
    ///   add TITLE CONTENT
    ///   open TITLE CONTENT    selects the item, opens it for a change and types the content
    ///   save [yes|no|cancel]  the answer to the question about a conflict
    ///   complete TITLE
    ///   delete TITLE
    ///   open-plan PLAN CONTENT  opens the plan editor and types the content
    ///   save-plan [yes|no|cancel]
    ///   generate PLAN yes|no  whether items that are done go, too
    std::string Do(const std::string& words);
    /// The two halves of Do, for workstations that shall act at the same time.
    void Begin(const std::string& words);
    std::string End();

 private:
    pid_t process_ = 0;
    int orders_ = -1;
    int answers_ = -1;
};

}  // namespace zv::users
