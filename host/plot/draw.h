// Pictures drawn by gnuplot, a program that has to be there.
#pragma once

#include <string>

#include "plot/picture.h"

namespace host {

// Writes the picture to a path that ends in .svg or .png; it is whole or not there. Throw FileError
// or WriteError.
void DrawLevels(const LevelPicture& picture, const std::string& path);
void DrawSpectrum(const SpectrumPicture& picture, const std::string& path);

}  // namespace host
