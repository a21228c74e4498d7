// The setup block of a measurement of the models 431 and 442: an image of the instrument's settings
// in which every byte has its position.
#pragma once

#include "sample_builder.h"

namespace samples {

// A byte that nothing sets holds its own position, so that a reader sees where a value comes from;
// the bytes that the layout of later items depends on are 0 until set.
class SetupBlock {
 public:
  // For the mode of the file. `flags` is the byte at position 41.
  SetupBlock(const Instrument& instrument, std::string_view tag, std::string_view title, int flags);

  SetupBlock& Set(std::size_t position, std::initializer_list<int> bytes);
  // Positions 141 and 142: seconds between samples of a stream.
  SetupBlock& Period(int value, int unit);
  // Position 140, and 182 to 187: selector and masks of the six groups of a list 27.
  SetupBlock& Fields(int selector, std::initializer_list<int> masks);
  // Position 181: the level base of model 442.
  SetupBlock& LevelBase(int decibels) { return Set(181, {decibels}); }

  const Body& Bytes() const { return body_; }

 private:
  Body body_;
};

// Writes the item 'M' and lets its settings take effect.
void AddSetup(SampleBuilder& sample, const SetupBlock& block);

}  // namespace samples
