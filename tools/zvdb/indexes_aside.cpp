#include "zvdb/indexes_aside.h"

namespace zv::zvdb {

IndexesAside::IndexesAside(Engine& engine) : engine_(engine) {
    std::vector<std::string> names;
    {
        Statement indexes(engine,
                          "select name,sql from sqlite_master where type='index' and sql is "
                          "not null order by rowid");
        while (indexes.Step()) {
            names.push_back(indexes.Text(0));
            statements_.push_back(indexes.Text(1));
        }
    }
    for (const std::string& name : names) engine.Run("drop index \"" + name + "\"");
}

void IndexesAside::MakeAgain(Progress& progress) {
    progress.Begin("indexes", static_cast<int>(statements_.size()));
    for (const std::string& statement : statements_) {
        engine_.Run(statement);
        progress.AdvanceSlowly();
    }
}

}  // namespace zv::zvdb
