#include "store/ado_error_kinds.h"

#include <algorithm>
#include <array>

namespace zv::store {
namespace {

struct NumberKind {
    std::uint32_t number;
    ErrorKind kind;
};

constexpr auto kNumbers = std::to_array<NumberKind>({
    {0x80040E14, ErrorKind::BadStatement},    // errors in the command
    {0x80040E37, ErrorKind::NoTable},         // table does not exist
    {0x80040E10, ErrorKind::NoColumn},        // a name that nothing gives a value
    {0x80040E4D, ErrorKind::LoginRefused},    // authentication failed
    {0x80040E09, ErrorKind::NoPermission},    // permission denied
    {0x80040E31, ErrorKind::TimeLimit},       // timeout expired
    {0x80040E2F, ErrorKind::RuleBroken},      // integrity violation
    {0x80040E38, ErrorKind::Changed},         // concurrency violation
    {0x80040E23, ErrorKind::Changed},         // the row is gone
    {0x80040E57, ErrorKind::TooLarge},        // data overflow
    {0x80040E07, ErrorKind::WrongValue},      // conversion failed
    {0x80040E18, ErrorKind::ConnectionLost},  // rowset with no live connection
    {0x80040155, ErrorKind::DriverMissing},
    {0x8007000E, ErrorKind::OutOfMemory},
    {0x80030070, ErrorKind::DiskFull},
    {0x80070070, ErrorKind::DiskFull},
    {3706, ErrorKind::DriverMissing},  // no such provider
    {3709, ErrorKind::ConnectionLost},
    // Jet's own numbers, which some of its versions pass through.
    {3022, ErrorKind::Duplicate},
    {3024, ErrorKind::FileMissing},
    {3031, ErrorKind::LoginRefused},
    {3044, ErrorKind::FileMissing},
    {3045, ErrorKind::Busy},
    {3051, ErrorKind::CannotOpen},
    {3197, ErrorKind::Changed},
    {3218, ErrorKind::Busy},
    {3260, ErrorKind::Busy},
    {3343, ErrorKind::NotADatabase},
});

}  // namespace

ErrorKind KindOfAdoError(ErrorNumber number) {
    const auto found = std::find_if(kNumbers.begin(), kNumbers.end(), [&](const NumberKind& entry) {
        return entry.number == static_cast<std::uint32_t>(number);
    });
    return found == kNumbers.end() ? ErrorKind::Other : found->kind;
}

}  // namespace zv::store
