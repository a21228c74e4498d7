// qvslm plot: a picture of the levels, drawn by gnuplot.
#pragma once

#include <string>

#include "record_choice.h"

namespace host {

struct PlotOptions {
  RecordChoice choice;
  std::string output;
  std::string field;      // of the records to draw; empty for the ones that tell most
  bool spectrum = false;  // levels over frequency in place of time
};

}  // namespace host
