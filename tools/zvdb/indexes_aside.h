// Takes the indexes off the tables for as long as rows pour in: making them once from sorted rows
// is several times faster, and leaves them compact.
#pragma once

#include <string>
#include <vector>

#include "zvdb/engine.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

class IndexesAside {
 public:
    /// Takes them off; within a transaction, so that they come back by themselves on a failure.
    explicit IndexesAside(Engine& engine);
    void MakeAgain(Progress& progress);

 private:
    Engine& engine_;
    std::vector<std::string> statements_;
};

}  // namespace zv::zvdb
