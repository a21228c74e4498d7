// Results blocks, which close a file: the stop time and the results of the run, register by
// register. Every register that the model knows is written.
#pragma once

#include "sample_settings.h"

namespace samples {

// What differs from file to file; the other registers hold plain values.
struct Results {
  Clock start;
  Clock stop;
  double leq = 62.35;
  double levelOffset = 0;  // register 106; models 431 and 442 take their level offset from it
};

// Model 486 and its relatives.
void AddGeneralResults(SampleBuilder& sample, const Results& results);
void AddResults431(SampleBuilder& sample, const Results& results);
// Model 442; the spectra stand in the older band registers or in the newer, counted ones.
enum class BandRegisters { kOlder, kCounted };
void AddResults442(SampleBuilder& sample, const Results& results, BandRegisters registers);

// Tells the builder the results block that will end the file, before any item is written: model 442
// has its level offset there, and the blocks of images carry the stop time.
//
// The look at a file's tail reads the stop time of models other than 442 one column further on than
// the block itself does. Both agree in the first nine days of January, at hours and minutes below
// ten; samples with images stop then.
void ExpectResults(SampleBuilder& sample, const Results& results);

}  // namespace samples
