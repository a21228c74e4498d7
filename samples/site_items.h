// Reference items 'C' and site items 'S' of the models 431 and 442.
#pragma once

#include "sample_builder.h"

namespace samples {

struct Reference {
  Clock first;
  Clock second;
  double level = 94;         // of the calibrator
  double deviation = -26.5;  // what list 27 refers its levels to (model 442)
};
// On model 431 the item is followed by a look at the results block for the level offset, which is
// then in force.
void AddReference(SampleBuilder& sample, const Reference& reference, double levelOffset431 = 0);

struct Site {
  int number;
  std::string name;
  std::string street;
  std::string note;
};
void AddSite(SampleBuilder& sample, const Site& site);

}  // namespace samples
