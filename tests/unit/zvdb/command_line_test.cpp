// What the arguments of the program mean, and what is said of those that mean nothing.
#include "zvdb/command_line.h"

#include "scratch.h"

namespace zv::zvdb {
namespace {

using Arguments = std::vector<std::string>;

CommandLine Parse(const Arguments& arguments) {
    return ParseCommandLine(arguments, kToday);
}
std::string Refusal(const Arguments& arguments) {
    try {
        Parse(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

TEST(CommandLineTest, HelpStandsAboveEverything) {
    for (const Arguments& arguments :
         {Arguments{"--help"}, {"-h"}, {"check", "-h"}, {"nonsense", "x", "--help"}}) {
        EXPECT_EQ(Parse(arguments).command, Command::Help);
    }
    EXPECT_EQ(Parse({"--version"}).command, Command::Version);
}
TEST(CommandLineTest, AFileOrAServerIsMadeOrChecked) {
    EXPECT_EQ(Parse({"create", "a.db"}).command, Command::Create);
    EXPECT_EQ(Parse({"sample", "a.db"}).command, Command::Sample);
    EXPECT_EQ(Parse({"check", "a.db"}).command, Command::Check);
    const CommandLine file = Parse({"create", "--force", "a.db"});
    EXPECT_EQ(file.file, "a.db");
    EXPECT_EQ(file.server, "");
    EXPECT_TRUE(file.force);
    EXPECT_FALSE(file.quiet);
    const CommandLine server = Parse({"check", "--to", "db"});
    EXPECT_EQ(server.file, "");
    EXPECT_EQ(server.server, "db");
    EXPECT_FALSE(server.force);
    EXPECT_EQ(Refusal({"check"}), "a file name is missing, or --to and a server");
    EXPECT_EQ(Refusal({"check", "a.db", "--to", "db"}), "a file or a server, not both");
    EXPECT_EQ(Refusal({"check", "a.db", "b.db"}), "one file only: \"b.db\"");
    EXPECT_EQ(Refusal({"check", "--to"}), "--to wants a value");
}
TEST(CommandLineTest, SamplesHaveNumbersADayASeedAndAScript) {
    const SampleOptions usual = Parse({"sample", "a.db"}).sample;
    EXPECT_EQ(usual.today, kToday);
    EXPECT_EQ(usual.items, 400);
    EXPECT_EQ(usual.script, SampleOptions::Script::Mixed);
    const CommandLine line =
        Parse({"sample", "a.db", "--items", "5", "--cards", "6", "--plans", "7", "--today",
               "2004-02-29", "--seed", "8", "--script", "traditional", "--quiet"});
    EXPECT_EQ(line.sample.items, 5);
    EXPECT_EQ(line.sample.Cards(), 6);
    EXPECT_EQ(line.sample.Plans(), 7);
    EXPECT_EQ(line.sample.today, DateTime(2004, 2, 29));
    EXPECT_EQ(line.sample.seed, 8U);
    EXPECT_EQ(line.sample.script, SampleOptions::Script::Traditional);
    EXPECT_TRUE(line.quiet);
    EXPECT_EQ(Parse({"sample", "a.db", "--script", "simplified"}).sample.script,
              SampleOptions::Script::Simplified);
    EXPECT_EQ(Refusal({"sample", "a.db", "--script", "latin"}),
              "--script wants simplified or traditional, not \"latin\"");
}
TEST(CommandLineTest, NumbersAreWholeAndWithinTheirBounds) {
    const auto said = [](const char* option, const std::string& number) {
        return Refusal({"sample", "a.db", option, number});
    };
    struct Case {
        const char* option;
        int most;
    };
    for (const Case& each : {Case{"--items", SampleOptions::kMaxItems},
                             {"--cards", SampleOptions::kMaxCards},
                             {"--plans", SampleOptions::kMaxPlans}}) {
        const std::string most = std::to_string(each.most);
        EXPECT_EQ(said(each.option, "0"), "none");
        EXPECT_EQ(said(each.option, most), "none");
        for (const std::string& bad : {std::string("-1"), std::to_string(each.most + 1),
                                       std::string("5x"), std::string("")}) {
            EXPECT_EQ(said(each.option, bad), std::string(each.option) +
                                                  " wants a whole number from 0 to " + most +
                                                  ", not \"" + bad + "\"");
        }
    }
    EXPECT_EQ(said("--seed", "18446744073709551615"), "none");
    EXPECT_EQ(said("--seed", "18446744073709551616"),
              "--seed wants a whole number from 0 to 18446744073709551615, not "
              "\"18446744073709551616\"");
}
TEST(CommandLineTest, TheDayOfASampleIsWithinTheCalendarOfItsPlans) {
    for (const char* good : {"1900-01-01", "9900-12-31"}) {
        EXPECT_EQ(Refusal({"sample", "a.db", "--today", good}), "none") << good;
    }
    for (const char* bad : {"1899-12-31", "9901-01-01", "2003-03-07 00:00", "2003-02-29", ""}) {
        EXPECT_EQ(Refusal({"sample", "a.db", "--today", bad}),
                  std::string("--today wants a day as YYYY-MM-DD, not \"") + bad + "\"");
    }
}
TEST(CommandLineTest, OptionsOfASampleMakeOneOfTheTablesOfAServerOnly) {
    EXPECT_EQ(Parse({"create", "--to", "db"}).command, Command::Create);
    for (const char* option : {"--items", "--cards", "--plans", "--seed"}) {
        EXPECT_EQ(Parse({"create", "--to", "db", option, "5"}).command, Command::Sample) << option;
        EXPECT_EQ(Refusal({"create", "a.db", option, "5"}),
                  std::string("\"create\" has no option \"") + option + "\"");
        EXPECT_EQ(Refusal({"check", "a.db", option, "5"}),
                  std::string("\"check\" has no option \"") + option + "\"");
    }
    EXPECT_EQ(Parse({"create", "--to", "db", "--today", "2003-03-07"}).command, Command::Sample);
    EXPECT_EQ(Parse({"create", "--to", "db", "--script", "simplified"}).command, Command::Sample);
    for (const char* option : {"--force", "--quiet"}) {
        EXPECT_EQ(Parse({"create", "--to", "db", option}).command, Command::Create) << option;
        EXPECT_EQ(Refusal({"check", "a.db", option}),
                  std::string("\"check\" has no option \"") + option + "\"");
    }
}
TEST(CommandLineTest, AnImportHasTwoNamesAndThreeOptions) {
    const ImportCommand plain = Parse({"import", "a.mdb", "b.db"}).import;
    EXPECT_EQ(plain.from, "a.mdb");
    EXPECT_EQ(plain.to, "b.db");
    EXPECT_FALSE(plain.dryRun || plain.replace || plain.quiet);
    EXPECT_TRUE(Parse({"import", "--dry-run", "a", "b"}).import.dryRun);
    EXPECT_TRUE(Parse({"import", "a", "--replace", "b"}).import.replace);
    EXPECT_TRUE(Parse({"import", "a", "b", "--quiet"}).import.quiet);
    EXPECT_EQ(Refusal({"import", "a"}), "import wants two names, FROM and TO");
    EXPECT_EQ(Refusal({"import", "a", "b", "c"}), "import wants two names, FROM and TO");
    EXPECT_EQ(Refusal({"import", "a", "b", "--force"}), "\"import\" has no option \"--force\"");
}
TEST(CommandLineTest, AnUpgradeIsOfAFileOrAServerAndMayRunDry) {
    const CommandLine file = Parse({"upgrade", "a.db"});
    EXPECT_EQ(file.command, Command::Upgrade);
    EXPECT_EQ(file.file, "a.db");
    EXPECT_FALSE(file.dryRun);
    EXPECT_TRUE(Parse({"upgrade", "a.db", "--dry-run"}).dryRun);
    const CommandLine server = Parse({"upgrade", "--dry-run", "--to", "db"});
    EXPECT_EQ(server.server, "db");
    EXPECT_TRUE(server.dryRun);
    EXPECT_EQ(Refusal({"upgrade"}), "a file name is missing, or --to and a server");
    for (const char* option : {"--force", "--quiet", "--side-tables", "--items"}) {
        EXPECT_EQ(Refusal({"upgrade", "a.db", option}),
                  std::string("\"upgrade\" has no option \"") + option + "\"");
    }
    for (const char* command : {"create", "sample", "check"}) {
        EXPECT_EQ(Refusal({command, "a.db", "--dry-run"}),
                  "\"" + std::string(command) + "\" has no option \"--dry-run\"");
    }
}
TEST(CommandLineTest, SideTablesAreMadeWhereTheyAreAskedFor) {
    for (const char* command : {"create", "sample"}) {
        EXPECT_FALSE(Parse({command, "a.db"}).sideTables);
        EXPECT_TRUE(Parse({command, "a.db", "--side-tables"}).sideTables);
    }
    const CommandLine server = Parse({"create", "--to", "db", "--side-tables"});
    EXPECT_EQ(server.command, Command::Create);
    EXPECT_TRUE(server.sideTables);
    EXPECT_EQ(Refusal({"check", "a.db", "--side-tables"}),
              "\"check\" has no option \"--side-tables\"");
}
TEST(CommandLineTest, BackupRestoreAndModeHaveTheirOwnOptions) {
    const CommandLine backup = Parse({"backup", "a.db", "--force", "b.db", "--quiet"});
    EXPECT_EQ(backup.command, Command::Backup);
    EXPECT_EQ(backup.file + backup.second, "a.dbb.db");
    EXPECT_TRUE(backup.force && backup.quiet && !backup.replace);
    const CommandLine restore = Parse({"restore", "a.db", "b.db", "--replace"});
    EXPECT_EQ(restore.command, Command::Restore);
    EXPECT_TRUE(restore.replace && !restore.force && !restore.quiet);
    EXPECT_EQ(Refusal({"backup", "a", "b", "--replace"}), "\"backup\" has no option \"--replace\"");
    EXPECT_EQ(Refusal({"restore", "a", "b", "--force"}), "\"restore\" has no option \"--force\"");
    EXPECT_EQ(Refusal({"mode", "a", "--quiet"}), "\"mode\" has no option \"--quiet\"");
    EXPECT_EQ(Refusal({"backup", "a"}), "backup wants two names, FILE and TO");
    EXPECT_EQ(Refusal({"restore", "a", "b", "c"}), "restore wants two names, BACKUP and FILE");
    EXPECT_EQ(Parse({"mode", "a.db"}).second, "");
    for (const char* kind : {"rollback", "wal"})
        EXPECT_EQ(Parse({"mode", "a.db", kind}).second, kind);
    for (const Arguments& arguments :
         {Arguments{"mode"}, {"mode", "a", "delete"}, {"mode", "a", "wal", "wal"}}) {
        EXPECT_EQ(Refusal(arguments), R"(mode wants a file name and perhaps "rollback" or "wal")");
    }
}
TEST(CommandLineTest, WhatIsNoCommandIsNamed) {
    EXPECT_EQ(Refusal({}), "a command is missing");
    EXPECT_EQ(Refusal({"make"}), "there is no command \"make\"");
    EXPECT_EQ(Refusal({"--version", "check"}), "there is no command \"--version\"");
}

using NamedByFile = Scratch;

TEST_F(NamedByFile, TheFirstLineOfTheFileStandsForIt) {
    const auto named = [&](const std::string& bytes) {
        Write("server.txt", bytes);
        return Named("@" + Path("server.txt"));
    };
    EXPECT_EQ(Named("db"), "db");
    EXPECT_EQ(named("db"), "db");
    EXPECT_EQ(named("db\nnext"), "db");
    EXPECT_EQ(named("\xEF\xBB\xBF db=x \r\nnext"), "db=x");
    EXPECT_EQ(named("db\r"), "db");
    for (const char* empty : {"\n", " \r\nx", "\xEF\xBB\xBF\n"}) {
        Write("server.txt", empty);
        EXPECT_EQ(Refusal({"check", "--to", "@" + Path("server.txt")}),
                  "the first line of \"" + Path("server.txt") + "\" is empty");
    }
    Write("server.txt", "");
    EXPECT_EQ(Refusal({"check", "--to", "@" + Path("server.txt")}),
              "\"" + Path("server.txt") + "\" has no line that can be read");
}

}  // namespace
}  // namespace zv::zvdb
