// Every command with connections that hold secrets: nothing of them is printed or left in a file.
#include "base/text.h"
#include "scratch.h"
#include "secrets/connection_texts.h"
#include "store/connection_text.h"
#include "zvdb/command_line.h"

namespace zv::zvdb {
namespace {

using secrets::kCanary;
using secrets::kConnectionCases;

/// The commands that the help lists.
std::vector<std::string> Commands() {
    std::vector<std::string> commands;
    for (const std::string& line : text::Split(kHelp, "\n")) {
        constexpr std::string_view kStart = "  zvdb ";
        if (!line.starts_with(kStart)) continue;
        const std::string rest = line.substr(kStart.size());
        const std::string name = rest.substr(0, rest.find(' '));
        if (commands.empty() || commands.back() != name) commands.push_back(name);
    }
    return commands;
}

class ZvdbSecrets : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        before_ = std::filesystem::current_path();
        std::filesystem::current_path(File(""));
        ASSERT_EQ(RunZvdb({"create", "good.db"}).status, 0);
    }
    void TearDown() override {
        std::filesystem::current_path(before_);
        Scratch::TearDown();
    }
    static void Look(const std::string& text, const std::string& where) {
        EXPECT_FALSE(text::Contains(text::ToLower(text), text::ToLower(kCanary))) << where << "\n"
                                                                                  << text;
    }
    void Play(const std::vector<std::string>& arguments) const {
        const std::string where = text::Join(arguments, " | ");
        const Outcome outcome = RunZvdb(arguments);
        EXPECT_NE(outcome.status, 0) << where;
        EXPECT_FALSE(outcome.err.empty() && outcome.out.empty()) << where;
        Look(outcome.out, where);
        Look(outcome.err, where);
        for (const std::string& file : Files()) Look(file, where + ": file");
    }

 private:
    std::filesystem::path before_;
};

TEST_F(ZvdbSecrets, AreReportedByNoCommand) {
    const std::vector<std::string> commands = Commands();
    ASSERT_GE(commands.size(), 4u);
    for (const std::string& command : commands) {
        for (const secrets::ConnectionCase& given : kConnectionCases) {
            const std::string text = given.path;
            Write("server.txt", text.substr(0, text.find('\n')) + "\nKanarie\n");
            for (const std::string& name : {text, std::string("@server.txt")}) {
                if (!text::Contains(text, kCanary)) continue;
                Play({command, "--to", name});
                // What could be the name of a file is one where a file is meant.
                if (store::ConnectionText(name).ForMessage() == name && name == text) continue;
                Play({command, name, "x"});
                Play({command, "good.db", name, "--quiet"});
                Play({command, name, name});
                Play({command, "--" + name});
            }
        }
    }
}

TEST_F(ZvdbSecrets, OfAFileWithoutAConnectionAreNotReported) {
    Write("server.txt", "Kanarie\n");
    const Outcome outcome = RunZvdb({"import", "@server.txt", "new.db"});
    EXPECT_EQ(outcome.status, 2);
    Look(outcome.out + outcome.err, "import");
    EXPECT_NE(outcome.err.find("@server.txt"), std::string::npos) << outcome.err;
}

TEST_F(ZvdbSecrets, AConnectionIsNoNameForANewFile) {
    const Outcome outcome = RunZvdb({"create", "Driver=x;Server=db;Pwd=Kanarie"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("--to"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace zv::zvdb
