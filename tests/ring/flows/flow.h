// What somebody does with a database, in a way that can be judged afterwards.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ring/flows/flow_store.h"
#include "store/connection_opener.h"

namespace zv::ring {

struct Outcome {
    /// The user was shown that it is done.
    bool acknowledged = false;
    /// What the user was told instead; empty: nothing.
    std::string told;
};

class Flow {
 public:
    virtual ~Flow() = default;
    /// Acts once, as often as one likes: what is done already is acknowledged again.
    virtual Outcome Act() = 0;
    /// Where its files are.
    virtual std::filesystem::path Folder() const = 0;
    /// What is wrong with what is stored in a folder, its own or one that holds what is left of it,
    /// or with what is shown, after acts the last of which was acknowledged or was not; a sentence
    /// each.
    virtual std::vector<std::string> WrongIn(const std::filesystem::path& folder,
                                             bool acknowledged) = 0;
};

struct FlowOptions {
    /// The file keeps a roll-back journal instead of a write-ahead log.
    bool rollBack = false;
    /// Opens the connections of windows to the file; empty: the embedded engine does.
    std::function<std::unique_ptr<store::Connection>(const std::string& path)> open = {};
    /// Where the rows are; empty: in a file of the flow's own.
    std::shared_ptr<FlowStore> store = {};
    /// What is opened speaks as a server does.
    bool isServer = false;
    /// Asked for whenever a box comes up, and held while the box is kept; may be empty.
    std::function<std::shared_ptr<void>()> boxGuard = {};
};

/// Flows of the windows: save, mark, delete, generate, refill.
const std::vector<std::string>& WindowFlows();
/// Flows of zvdb: create, replace, sample, import, reimport, backup, restore, upgrade,
/// mode.
const std::vector<std::string>& ToolFlows();
/// Makes a flow with everything that it needs, in a folder of its own that is gone with it. Throws
/// std::invalid_argument when there is no flow of that name.
std::unique_ptr<Flow> MakeFlow(const std::string& name, const FlowOptions& options = {});

/// What is wrong with a database file: damage, missing tables, broken rules.
std::vector<std::string> WrongWithFile(const std::string& path);

}  // namespace zv::ring
