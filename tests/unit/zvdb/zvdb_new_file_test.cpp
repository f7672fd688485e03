// What becomes of a new file, and of what lies beside its name, when the disk fails on the way.
#include <set>

#include "scratch.h"
#include "zvdb/check.h"
#include "zvdb/new_file.h"

namespace zv::zvdb {
namespace {

/// Renaming to some names and removing some files fails.
class FailingNames final : public disk::Observer {
 public:
    void Before(disk::Request request, const std::filesystem::path& file,
                const std::filesystem::path& to) override {
        const bool fails = (request == disk::Request::Rename && noName.contains(to)) ||
                           (request == disk::Request::Remove && stays.contains(file));
        if (!fails) return;
        throw std::filesystem::filesystem_error("fault", file,
                                                std::make_error_code(std::errc::io_error));
    }
    void After(disk::Request, const std::filesystem::path&, const std::filesystem::path&) override {
    }

    std::set<std::filesystem::path> noName;
    std::set<std::filesystem::path> stays;
};

class ZvdbNewFile : public Scratch {
 protected:
    std::string ErrorOfPlacing() {
        NewFile file(Path("new.db"), {}, false);
        Write("new.db.zvdb-part", "no database");
        try {
            PlaceAndCheck(file, Path("new.db"));
        } catch (const std::exception& error) {
            return error.what();
        }
        return "placed";
    }

    FailingNames names_;
};

TEST_F(ZvdbNewFile, WhoseLogIsLeftIsNotPlaced) {
    {
        NewFile file(Path("new.db"), {}, false);
        Write("new.db.zvdb-part-wal", "what could not be written back");
        EXPECT_THROW(file.Place(), FileError);
    }
    EXPECT_TRUE(Files().empty());
}
TEST_F(ZvdbNewFile, ThatIsNotSoundGoesAndTheNeighboursComeBack) {
    Write("new.db-wal", "of another file");
    EXPECT_NE(ErrorOfPlacing(), "placed");
    EXPECT_EQ(Read("new.db-wal"), "of another file");
    EXPECT_EQ(Files().size(), 1U);
}
TEST_F(ZvdbNewFile, ANeighbourThatCannotComeBackIsNamed) {
    Write("new.db-wal", "of another file");
    names_.noName = {File("new.db"), File("new.db-wal")};
    const disk::Observed observed(names_);
    const std::string error = ErrorOfPlacing();
    EXPECT_NE(error.find("is set aside as \"" + Path("new.db.aside-wal")), std::string::npos)
        << error;
    EXPECT_EQ(Read("new.db.aside-wal"), "of another file");
}
TEST_F(ZvdbNewFile, NothingComesBackBesideOneThatCannotBeTakenBack) {
    Write("new.db-wal", "of another file");
    names_.stays = {File("new.db")};
    const disk::Observed observed(names_);
    const std::string error = ErrorOfPlacing();
    EXPECT_FALSE(std::filesystem::exists(File("new.db-wal")));
    EXPECT_NE(error.find("is not to be trusted"), std::string::npos) << error;
    EXPECT_NE(error.find("is set aside as"), std::string::npos) << error;
}

}  // namespace
}  // namespace zv::zvdb
