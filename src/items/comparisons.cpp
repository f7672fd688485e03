#include "items/comparisons.h"

#include <string_view>

#include "items/fields.h"

namespace zv::items {
namespace {

std::string Compared(std::size_t position, std::string_view sign, int number) {
    return std::string(kColumns[position]).append(sign) + std::to_string(number);
}

}  // namespace

std::string IsOfKind(ItemKind kind) {
    return Compared(field::kKind, "=", Number(kind));
}

std::string IsOfAnotherKind(ItemKind kind) {
    return Compared(field::kKind, "<>", Number(kind));
}

std::string IsInState(ItemState state) {
    return Compared(field::kState, "=", Number(state));
}

}  // namespace zv::items
