#include "store/engines/codes.h"

#include <array>

#include "store/engines/parts.h"

namespace zv::store::engines::access {
namespace {

// Its provider reports them as the SQLSTATE, some of its versions as the number.
constexpr auto kProviderNumbers = std::to_array<NumberKind>({
    {3008, ErrorKind::Busy},  // another user has the table for himself
    {3009, ErrorKind::Busy},
    {3022, ErrorKind::Duplicate},
    {3024, ErrorKind::FileMissing},
    {3026, ErrorKind::DiskFull},
    {3027, ErrorKind::ReadOnly},
    {3031, ErrorKind::LoginRefused},
    {3033, ErrorKind::NoPermission},
    {3044, ErrorKind::FileMissing},
    {3045, ErrorKind::Busy},
    {3051, ErrorKind::CannotOpen},
    {3078, ErrorKind::NoTable},
    {3112, ErrorKind::NoPermission},
    {3163, ErrorKind::TooLarge},
    {3186, ErrorKind::Busy},  // locked by a user of another machine
    {3187, ErrorKind::Busy},
    {3188, ErrorKind::Busy},
    {3189, ErrorKind::Busy},
    {3197, ErrorKind::Changed},
    {3200, ErrorKind::RuleBroken},
    {3201, ErrorKind::RuleBroken},
    {3211, ErrorKind::Busy},
    {3212, ErrorKind::Busy},
    {3218, ErrorKind::Busy},
    {3260, ErrorKind::Busy},
    {3261, ErrorKind::Busy},
    {3262, ErrorKind::Busy},
    {3314, ErrorKind::RuleBroken},
    {3315, ErrorKind::RuleBroken},
    {3316, ErrorKind::RuleBroken},
    {3317, ErrorKind::RuleBroken},
    {3343, ErrorKind::NotADatabase},
    {3356, ErrorKind::Busy},
});
constexpr auto kWords = std::to_array<WordsKind>({
    {"currently locked", ErrorKind::Busy},
    {"could not lock", ErrorKind::Busy},
});
constexpr auto kLossStates = std::to_array<std::string_view>({
    "3043",  // the disk or the network has failed
});

}  // namespace

const Codes& TheCodes() {
    static constexpr Codes kCodes{.name = "Access",
                                  .providerNumbers = kProviderNumbers,
                                  .words = kWords,
                                  .lossStates = kLossStates};
    return kCodes;
}

}  // namespace zv::store::engines::access
