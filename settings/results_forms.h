// How the values of results blocks are read and stored.
#pragma once

#include <string_view>

#include "settings/register_table.h"

namespace qvslm {

// What one results block remembers between its lines.
struct ResultsBlock {
  void* record;
  f64 lastNumber = 0;  // of the last number with decimals, before any change of sign
  bool columnsTaken = false;
  u32 compassFrom = 0;  // where the next search of the compass begins
};

// Stores the value of a line in the register's field. Of a value that takes more room than the
// field has, the rest is read and dropped.
void StoreResult(const Register& row, std::string_view value, std::string_view wholeLine,
                 ResultsBlock& block);

// Register 170: the voltage goes over the text of R86 when the text of R87 holds an 'E'.
void StoreVoltage(std::string_view value, const Register& r86, const Register& r87,
                  ResultsBlock& block);

// Register 1: takes the model from a text that holds the word "Model".
void TakeModelLine(std::string_view value);

// Register 6, behind its store.
void TakeStopTime(i32 seconds);

}  // namespace qvslm
