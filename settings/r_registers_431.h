// The registers of a results block of model 431: those of general models, with a block of lists put
// in.
//
// A field of the general record below kListsFrom stands at the same offset here, one behind it
// kListsRoom bytes further on.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "settings/r_registers.h"

namespace qvslm {

inline constexpr std::size_t kListsFrom = offsetof(QvResults431, SettingR172);
inline constexpr std::size_t kListsRoom = sizeof(QvResults431) - sizeof(QvResults);

constexpr Register kLists431[] = {
    {QV_NUMBERED(171, QvResults431, SettingR), Form::AtofList},
    {QV_NUMBERED(172, QvResults431, SettingR), Form::AtofList},
    {QV_NUMBERED(173, QvResults431, SettingR), Form::AtofList},
};

// Of the general registers R170 is a voltage here, and R171 a list.
constexpr bool HasOtherForm431(u16 number) {
  return number == 170 || number == 171;
}

constexpr auto MakeRegisters431() {
  constexpr std::size_t kCount = std::size(kGeneralRegisters) - 2 + std::size(kLists431);
  std::array<Register, kCount> registers{};
  auto end =
      std::copy_if(std::begin(kGeneralRegisters), std::end(kGeneralRegisters), registers.begin(),
                   [](const Register& row) { return !HasOtherForm431(row.number); });
  for (auto row = registers.begin(); row != end; ++row) {
    if (row->field.offset >= kListsFrom)
      row->field.offset = static_cast<u16>(row->field.offset + kListsRoom);
  }
  std::copy(std::begin(kLists431), std::end(kLists431), end);
  std::sort(registers.begin(), registers.end(),
            [](const Register& a, const Register& b) { return a.number < b.number; });
  return registers;
}

inline constexpr auto kRegisters431 = MakeRegisters431();

static_assert(IsResultsTable(kRegisters431));

}  // namespace qvslm
