#include <algorithm>
#include <optional>

#include "application/item_user.h"
#include "application/test_application.h"
#include "ring/flows/file_store.h"
#include "ring/flows/makers.h"
#include "windows/generation/boxes.h"
#include "zvdb/own_modules.h"

namespace zv::ring {
namespace {

constexpr const char* kTitle = "item-01";
constexpr const char* kPlan = "7";
constexpr int kPlanDays = 10;
constexpr int kItems = 12;
/// Bytes of the first item's text; the n-th has n times as many.
constexpr std::size_t kShortest = 400;
constexpr std::size_t kRights = 300;

/// A plan whose items are there, one of them done, and items with texts that fill pages.
std::vector<std::string> Contents() {
    std::vector<std::string> statements = {
        "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,Type,TypeValue,"
        "Content) values(7,'plan','2003-03-01 00:00:00','2003-03-10 00:00:00',2,1,1,1,'')"};
    for (int number = 1; number <= kItems; number++) {
        const std::string digits = std::to_string(number);
        statements.push_back(
            "insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,"
            "tDone) values(0,0,'item-" +
            std::string(digits.size() < 2 ? "0" : "") + digits + "','" +
            std::string(static_cast<std::size_t>(number) * kShortest, 'x') +
            "','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',0)");
    }
    const auto modules = zvdb::RegisterOwnModules();
    statements.insert(statements.end(), modules.begin(), modules.end());
    return statements;
}

class WindowFlow : public Flow {
 public:
    explicit WindowFlow(const FlowOptions& options)
        : store_(options.store ? options.store
                               : std::make_shared<FileStore>(app_.folder, options.rollBack)) {
        store_->Fill(Contents());
        app_.session.state.myPower = std::string(kRights, '1');
        app_.session.state.SQLData = options.isServer ? 1 : 0;
        if (options.open) {
            app_.opener.open = [this, options](const store::ConnectionSettings&) {
                return options.open(app_.Path("t.db"));
            };
        }
        guard_ = app_.dialogs.guard = options.boxGuard;
        user_.emplace(app_);
        app_.session.database.Close();
    }

    Outcome Act() final {
        Outcome outcome;
        std::string thrown;
        {
            const std::shared_ptr<void> held = guard_ ? guard_() : nullptr;
            app_.dialogs.messages.clear();
            app_.errorText.clear();
            app_.dialogs.answers = {forms::Answer::Yes, forms::Answer::Ok};
            thrown.reserve(kLongestError);
        }
        try {
            outcome.acknowledged = Do();
        } catch (const std::exception& error) {
            // What leaves the windows reaches the host.
            const std::string_view text = error.what();
            thrown = "host: ";
            thrown += text.substr(0, kLongestError / 2);
        }
        const std::shared_ptr<void> held = guard_ ? guard_() : nullptr;
        outcome.told = thrown;
        for (const std::string& message : app_.dialogs.messages) {
            const bool isNews = !message.starts_with(kInformation);
            if (isNews && !outcome.acknowledged) outcome.told += message + '\n';
        }
        return outcome;
    }

    std::filesystem::path Folder() const final { return app_.folder; }

    std::vector<std::string> WrongIn(const std::filesystem::path& folder, bool acknowledged) final {
        std::vector<std::string> wrong = store_->Wrong(folder);
        if (!wrong.empty()) return wrong;
        if (const std::string rest = WrongRows(acknowledged); !rest.empty()) wrong.push_back(rest);
        return wrong;
    }

 protected:
    static constexpr const char* kInformation = "64|";

    virtual bool Do() = 0;
    virtual std::string WrongRows(bool acknowledged) = 0;

    /// The rows of other items are as they were.
    std::string OthersTouched() {
        const std::string others =
            Rows(std::string("select count(*)||' '||sum(length(fContent)) from tTaskList"
                             " where TaskID=0 and tDone=0 and taskTitle<>'") +
                 kTitle + "'");
        static const std::string meant =
            std::to_string(kItems - 1) + ' ' +
            std::to_string(kShortest * (kItems * (kItems + 1) / 2 - 1));
        return others == meant ? "" : "other items have changed: " + others;
    }
    std::string Rows(const std::string& query) const { return store_->Rows(query); }
    std::string Item(const std::string& columns) {
        return Rows("select " + columns + " from tTaskList where taskTitle='" + kTitle + "'");
    }
    bool SaidNothing() const { return app_.dialogs.messages.empty(); }

    test::TestApplication app_;
    std::shared_ptr<FlowStore> store_;
    std::optional<test::ItemUser> user_;

 private:
    static constexpr std::size_t kLongestError = 400;

    std::function<std::shared_ptr<void>()> guard_;
};

class Save final : public WindowFlow {
 public:
    using WindowFlow::WindowFlow;

 private:
    bool Do() override {
        user_->Seek("item-");
        if (!user_->Select(kTitle)) return false;
        user_->Change("changed");
        user_->Save();
        return user_->Said(std::string("[") + kTitle + "]") && !user_->SaidError();
    }
    std::string WrongRows(bool acknowledged) override {
        const std::string row = Item("fContent");
        if (row != "changed" && (acknowledged || row != std::string(kShortest, 'x'))) {
            return "the item holds " + row.substr(0, 20);
        }
        return OthersTouched();
    }
};

class Add final : public WindowFlow {
 public:
    using WindowFlow::WindowFlow;

 private:
    bool Do() override {
        user_->Seek("item-");
        if (!SaidNothing()) return false;
        if (user_->Shows("item-new")) return true;
        user_->Add("item-new", "new");
        return user_->Said("[item-new]") && !user_->SaidError();
    }
    std::string WrongRows(bool acknowledged) override {
        const std::string rows = Rows(
            "select fContent,cast(date(taskTime) as varchar(10)),tDone from tTaskList where "
            "taskTitle='item-new'");
        if (rows == "new|2003-03-07|0" || (!acknowledged && rows.empty())) return {};
        return "the new item is " + rows;
    }
};

class Mark final : public WindowFlow {
 public:
    using WindowFlow::WindowFlow;

 private:
    bool Do() override {
        user_->Seek("item-");
        if (!user_->Select(kTitle)) return false;
        if (IsShownDone()) return SaidNothing();
        user_->Complete();
        return !user_->SaidError() && IsShownDone();
    }
    bool IsShownDone() {
        return app_.Window()->item.cboDone2.ListIndex() == Number(items::ItemState::Done);
    }
    std::string WrongRows(bool acknowledged) override {
        const std::string row = Item("tDone");
        if (row != "1" && (acknowledged || row != "0")) return "the item's state is " + row;
        return OthersTouched();
    }
};

class Delete final : public WindowFlow {
 public:
    using WindowFlow::WindowFlow;

 private:
    bool Do() override {
        user_->Seek("item-");
        if (!SaidNothing()) return false;
        if (!user_->Select(kTitle)) return SaidNothing();
        user_->Delete();
        return !user_->SaidError() && !user_->Shows(kTitle);
    }
    std::string WrongRows(bool acknowledged) override {
        const std::string rows = Item("count(*)");
        if (rows != "0" && (acknowledged || rows != "1")) return rows + " rows of the item";
        return OthersTouched();
    }
};

class Generate final : public WindowFlow {
 public:
    explicit Generate(const FlowOptions& options) : WindowFlow(options) {
        store_->Run(
            "insert into tTaskList(TaskID,taskTitle,taskTime,tDone) values"
            "(7,'plan','2003-03-01 00:00:00',0),(7,'plan','2003-02-01 00:00:00',0)");
    }

 private:
    bool Do() override {
        app_.windows.FromUser([this] { windows::GenerateTaskList(app_.session, kPlan); });
        return !user_->SaidError();
    }
    std::string WrongRows(bool acknowledged) override {
        const std::string rows = Rows(
            "select count(*)||' '||count(distinct taskTime)||' '||"
            "coalesce(cast(min(date(taskTime)) as varchar(10)),'') from tTaskList where TaskID=7");
        const std::string days = std::to_string(kPlanDays);
        if (acknowledged && rows != days + ' ' + days + " 2003-03-01") {
            return "the plan's items: " + rows;
        }
        return OthersTouched();
    }
};

class Refill final : public WindowFlow {
 public:
    using WindowFlow::WindowFlow;

 private:
    bool Do() override {
        app_.session.database.Close();
        user_->Seek("item-");
        shown_ = 0;
        for (const char* number : {"01", "05", "09", "12"}) {
            if (user_->Shows(std::string("item-") + number)) shown_++;
        }
        return SaidNothing();
    }
    std::string WrongRows(bool acknowledged) override {
        if (acknowledged && shown_ != 4) return "rows are missing in the tree and nobody said so";
        return OthersTouched();
    }
    int shown_ = 0;
};

template <class Kind>
std::unique_ptr<Flow> Make(const FlowOptions& options) {
    return std::make_unique<Kind>(options);
}

struct Entry {
    const char* name;
    std::unique_ptr<Flow> (*make)(const FlowOptions& options);
};
constexpr std::array<Entry, 6> kFlows = {{{"save", Make<Save>},
                                          {"add", Make<Add>},
                                          {"mark", Make<Mark>},
                                          {"delete", Make<Delete>},
                                          {"generate", Make<Generate>},
                                          {"refill", Make<Refill>}}};

}  // namespace

const std::vector<std::string>& WindowFlows() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Entry& entry : kFlows) all.emplace_back(entry.name);
        return all;
    }();
    return names;
}

std::unique_ptr<Flow> MakeWindowFlow(const std::string& name, const FlowOptions& options) {
    for (const Entry& entry : kFlows) {
        if (name == entry.name) return entry.make(options);
    }
    return nullptr;
}

}  // namespace zv::ring
