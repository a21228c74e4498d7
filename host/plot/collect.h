// Reads files for a picture.
#pragma once

#include "file_list.h"
#include "plot.h"
#include "plot/picture.h"

namespace host {

// Give what the reading of the files came to; faults are reported on stderr. Throw WrongUsage for
// records and fields that cannot be drawn.
Outcome CollectLevels(const FileList& list, const PlotOptions& options, LevelPicture& picture);
Outcome CollectSpectrum(const FileList& list, const PlotOptions& options, SpectrumPicture& picture);

}  // namespace host
