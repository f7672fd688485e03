#include "zvdb/import/command.h"

#include <filesystem>
#include <iomanip>

#include "zvdb/import/endpoint.h"
#include "zvdb/import/importer.h"
#include "zvdb/import/interruption.h"

namespace zv::zvdb {
namespace {

constexpr int kComplete = 0;
constexpr int kWithRemarks = 1;
constexpr int kNotImported = 2;
constexpr int kWithFaults = 3;

/// One import, from the opening of both ends to the report.
class ImportRun {
 public:
    ImportRun(const ImportCommand& command, const Console& console)
        : command_(command), console_(console) {}

    int Run() {
        try {
            return Import();
        } catch (const SourceError& error) {
            return Refuse(ShownName(command_.from), error.what());
        } catch (const TargetError& error) {
            return Refuse(ShownName(command_.to), error.what());
        } catch (const Interrupted&) {
            return Refuse(ShownName(command_.from), "interrupted, nothing was imported");
        } catch (const std::filesystem::filesystem_error& error) {
            return Refuse(ShownName(command_.to), error.code().message());
        } catch (const std::exception& error) {
            return Refuse(ShownName(command_.to),
                          IsInterrupted() ? "interrupted, nothing was imported" : error.what());
        }
    }

 private:
    int Import() {
        if (IsSameFile(command_.from, command_.to)) {
            throw TargetError("source and target are the same");
        }
        const InterruptionGuard guard;
        Progress progress(command_.quiet ? nullptr : &console_.err, console_.terminal);
        const auto source = OpenSource(command_.from);
        const auto target = OpenTarget(command_.to, command_.from, progress);
        const std::string identity = source->Identity();
        if (!identity.empty() && identity == target->Identity()) {
            throw TargetError("source and target are the same");
        }
        RefuseWhenFilled(*target);
        console_.out << "from " << ShownName(command_.from) << ", " << source->Kind() << "\nto   "
                     << ShownName(command_.to) << ", " << target->Kind() << '\n';
        Importer importer(*source, *target, report_, progress);
        importer.Run(command_.dryRun, command_.replace);
        if (!command_.dryRun && !report_.HasRefusals()) {
            progress.Begin("checking", 0);
            CheckImported(*target);
        }
        progress.Finish();
        return Print(importer);
    }

    void CheckImported(TableTarget& target) {
        try {
            for (const std::string& problem : target.CheckImported()) {
                report_.Add(Weight::Fault, problem);
            }
        } catch (const std::exception& error) {
            // The rows are there and stay.
            report_.Add(Weight::Fault, std::string(kNoCheck) + error.what());
        }
    }

    void RefuseWhenFilled(TableTarget& target) const {
        if (command_.replace) return;
        const auto present = target.RowsPresent();
        if (present.empty()) return;
        throw TargetError("it is not empty (" + present.front().first + " has " +
                          std::to_string(present.front().second) +
                          " rows); --replace puts the import in their place");
    }

    int Print(const Importer& importer) {
        std::int64_t total = 0;
        for (const auto& [table, rows] : importer.Counts()) {
            console_.out << std::left << std::setw(14) << table << ' ' << std::right << std::setw(9)
                         << rows << '\n';
            total += rows;
        }
        report_.Print(console_.out);
        if (report_.HasRefusals()) {
            console_.out << "nothing was imported\n";
            return kNotImported;
        }
        if (command_.dryRun) {
            console_.out << total << " rows would be imported\n";
        } else {
            console_.out << total << " rows imported, counts and sums are equal at both ends\n";
        }
        if (report_.HasFaults()) {
            console_.out << "the import is whole; zvdb check finds what is told as wrong\n";
            return kWithFaults;
        }
        return report_.IsEmpty() ? kComplete : kWithRemarks;
    }

    int Refuse(const std::string& name, const std::string& reason) {
        report_.Print(console_.out);
        console_.err << "zvdb: " << name << ": " << reason << '\n';
        return kNotImported;
    }

    const ImportCommand& command_;
    const Console& console_;
    ImportReport report_;
};

}  // namespace

int RunImport(const ImportCommand& command, const Console& console) {
    return ImportRun(command, console).Run();
}

}  // namespace zv::zvdb
