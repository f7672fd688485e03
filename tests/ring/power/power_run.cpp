#include "power_run.h"

#include <exception>
#include <fstream>
#include <random>
#include <stdexcept>
#include <utility>

#include "disk_model.h"
#include "ring/disk/watched_disk.h"
#include "ring/flows/finding_text.h"
#include "ring/flows/flow.h"
#include "temporary_folder.h"

namespace zv::ring {
namespace {

/// A flow that acts once.
class FlowPlay final : public Play {
 public:
    explicit FlowPlay(const std::string& name) : flow_(MakeFlow(name)) {}

    std::filesystem::path Folder() const override { return flow_->Folder(); }
    bool Step() override {
        const Outcome outcome = flow_->Act();
        if (!outcome.acknowledged) throw std::runtime_error("not done: " + outcome.told);
        acknowledged_ = true;
        return false;
    }
    Promise Now() const override {
        return [flow = flow_, acknowledged = acknowledged_](const std::filesystem::path& folder) {
            return flow->WrongIn(folder, acknowledged);
        };
    }

 private:
    std::shared_ptr<Flow> flow_;
    bool acknowledged_ = false;
};

std::unique_ptr<Play> MakePlay(const PowerPoint& point) {
    if (point.flow == "work") return MakeWork(point.seed, false);
    if (point.flow == "work rollback") return MakeWork(point.seed, true);
    return std::make_unique<FlowPlay>(point.flow);
}

/// Takes an image before each sync, and now and then after other calls.
class Cutter final : public DiskWatcher {
 public:
    Cutter(const PowerPoint& point, const Play& play, const LeavesOut& leavesOut)
        : point_(point),
          play_(play),
          leavesOut_(leavesOut),
          model_(play.Folder()),
          random_(point.seed) {}

    bool Allows(const DiskCall& call) override {
        if (call.action == DiskAction::Sync || call.action == DiskAction::SyncFolder) Cut();
        return true;
    }
    void Served(const DiskCall& call) override {
        constexpr unsigned kNowAndThen = 8;
        if (call.action == DiskAction::Read || !IsOfDisk(call.action)) return;
        if (!leavesOut_ || !leavesOut_(call)) model_.Note(call);
        if (random_() % kNowAndThen == 0) Cut();
    }

    /// So that no step takes all images.
    void BeginStep() { left_ = kImagesOfStep; }
    void Cut() {
        if (IsFull() || left_ == 0) return;
        left_--;
        taken_.push_back({model_.Cut(random_, point_.sector), play_.Now()});
        if (model_.HasPending()) unsynced_++;
    }
    bool IsFull() const { return taken_.size() >= point_.images; }

    PowerTally Judge() const {
        PowerTally tally;
        tally.unsynced = unsynced_;
        for (const Taken& taken : taken_) {
            const test::TemporaryFolder folder;
            for (const auto& [name, bytes] : taken.image) {
                std::ofstream(folder / name, std::ios::binary) << bytes;
            }
            const std::string number = std::to_string(++tally.images);
            try {
                for (const std::string& sentence : taken.promise(folder.Path())) {
                    tally.wrong.push_back("image " + number + ": " + sentence);
                }
            } catch (const std::exception& error) {
                tally.wrong.push_back("image " + number + " cannot be read: " + error.what());
            }
        }
        return tally;
    }

 private:
    static constexpr int kImagesOfStep = 12;
    struct Taken {
        Image image;
        Promise promise;
    };

    const PowerPoint& point_;
    const Play& play_;
    const LeavesOut& leavesOut_;
    DiskModel model_;
    std::mt19937 random_;
    std::vector<Taken> taken_;
    std::size_t unsynced_ = 0;
    int left_ = kImagesOfStep;
};

}  // namespace

std::string PowerPoint::Text() const {
    return "flow: " + flow + "\nseed: " + std::to_string(seed) +
           "\nimages: " + std::to_string(images) + "\nsector: " + std::to_string(sector) + '\n';
}

PowerPoint PowerPoint::Parse(const std::string& text) {
    const auto values = ReadFinding(text, {"flow", "seed", "images", "sector"});
    const PowerPoint point{values.at("flow"),
                           static_cast<std::uint32_t>(std::stoul(values.at("seed"))),
                           std::stoul(values.at("images")), std::stoul(values.at("sector"))};
    if (point.sector == 0) throw std::runtime_error("a sector has at least one byte");
    return point;
}

PowerTally PlayPower(const PowerPoint& point, const LeavesOut& leavesOut) {
    constexpr int kCutsAtTheEnd = 4;
    // Before the play opens its files.
    WatchedDisk::Install();
    const auto play = MakePlay(point);
    Cutter cutter(point, *play, leavesOut);
    {
        const WatchedDisk watched(cutter);
        bool goesOn = true;
        while (goesOn && !cutter.IsFull()) {
            cutter.BeginStep();
            goesOn = play->Step();
            cutter.BeginStep();
            cutter.Cut();
        }
    }
    for (int i = 1; i < kCutsAtTheEnd; i++) cutter.Cut();
    return cutter.Judge();
}

}  // namespace zv::ring
