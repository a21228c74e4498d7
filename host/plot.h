// qvslm plot: a picture of the levels, drawn by gnuplot.
#pragma once

#include <string>

#include "outcome.h"
#include "record_choice.h"
#include "sources.h"

namespace host {

struct PlotOptions {
  RecordChoice choice;
  std::string output;
  std::string field;      // of the records to draw; empty for the ones that tell most
  bool spectrum = false;  // levels over the bands in place of time
};

Outcome RunPlot(const Sources& sources, const PlotOptions& options);

}  // namespace host
