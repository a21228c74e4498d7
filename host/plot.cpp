#include "plot.h"

#include <filesystem>

#include "arguments.h"
#include "errors.h"
#include "export/written_file.h"
#include "plot/collect.h"
#include "plot/draw.h"

namespace host {
namespace {

void CheckEnding(const std::string& path) {
  auto const ending = std::filesystem::path(path).extension();
  if (ending != ".svg" && ending != ".png") {
    throw WrongUsage("-o: \"" + path + "\" ends neither in .svg nor in .png");
  }
}

bool Draw(const FileList& list, const PlotOptions& options, Outcome& outcome) {
  if (options.spectrum) {
    SpectrumPicture picture;
    outcome = CollectSpectrum(list, options, picture);
    if (picture.records == 0) return false;
    DrawSpectrum(picture, options.output);
  } else {
    LevelPicture picture;
    outcome = CollectLevels(list, options, picture);
    if (picture.curves.empty()) return false;
    DrawLevels(picture, options.output);
  }
  return true;
}

}  // namespace

Outcome RunPlot(const Sources& sources, const PlotOptions& options) {
  CheckEnding(options.output);
  FileList const list = FilesOf(sources);
  if (list.files.empty()) return Outcome::NothingReadable;
  try {
    Outcome outcome = Outcome::Whole;
    if (Draw(list, options, outcome)) return outcome;
    Remark(options.output, "not drawn: no file holds what it should show");
  } catch (const FileError& fault) {
    Complain(fault.what());
  } catch (const WriteError& fault) {
    Complain(fault.what());
  }
  return Outcome::NothingReadable;
}

}  // namespace host
