#include "plot/draw.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string_view>

#include "errors.h"
#include "export/written_file.h"
#include "plain_text.h"
#include "plain_words.h"
#include "platform.h"
#include "qvslmtranslate.h"
#include "stamp_text.h"
#include "temporary.h"

namespace host {
namespace {

// Samples stay behind what is drawn over them. Colours that are told apart with any kind of sight.
constexpr const char* coloursOfSamples[] = {"#9ecbe8", "#c9dfa5"};
constexpr const char* colours[] = {"#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00"};

std::string Number(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.10g", value);
  return text.data();
}

// A text of gnuplot in which nothing has a meaning.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (char const c : PlainText(text)) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return quoted + '\'';
}

bool IsSvg(const std::string& path) {
  return std::filesystem::path(path).extension() == ".svg";
}

std::string Frame(const std::string& title, const std::string& path, const std::string& unit) {
  std::string const terminal =
      IsSvg(path)
          ? "set terminal svg size 900,450 dynamic background 'white' font 'sans-serif,12'\n"
          : "set terminal pngcairo size 1200,600 font 'sans-serif,11'\n";
  std::string const level = unit.empty()   ? "value"
                            : unit == "dB" ? "level in dB"
                                           : "value in " + unit;
  return "set encoding utf8\n" + terminal +
         "set output 'picture'\n"
         "set offsets graph 0, 0, 0.05, 0.05\n"
         "set grid lt 1 lw 0.5 lc '#dddddd'\n"
         "set border 3\nset tics nomirror out\n"
         "set key bmargin center horizontal noenhanced\nset bmargin 6\n"
         "set title " +
         Quoted(title) +
         " noenhanced\n"
         "set ylabel " +
         Quoted(level) + " noenhanced\n";
}

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string ShellQuoted(std::string_view text) {
  std::string quoted = "'";
  for (char const c : text) quoted += c == '\'' ? "'\\''" : std::string(1, c);
  return quoted + '\'';
}

bool IsWholePicture(std::string_view bytes, bool isSvg) {
  while (isSvg && !bytes.empty() && bytes.back() == '\n') bytes.remove_suffix(1);
  constexpr std::string_view pngEnd("IEND\xAE\x42\x60\x82", 8);
  return bytes.ends_with(isSvg ? std::string_view("</svg>") : pngEnd);
}

// Has the script drawn, in a folder where it finds its data and leaves its picture.
std::string RunGnuplot(const std::string& folder, bool isSvg) {
  std::string const command =
      "cd " + ShellQuoted(folder) + " && gnuplot script </dev/null >said 2>&1";
  int const status = std::system(command.c_str());
  std::string picture = Contents(folder + "/picture");
  if (status == 0 && IsWholePicture(picture, isSvg)) return picture;
  std::string said = Contents(folder + "/said");
  if (said.find("not found") != std::string::npos) {
    throw FileError(
        "gnuplot, which draws the picture, is not there; on Debian it comes with "
        "apt-get install gnuplot-nox",
        QV_CANNOT_OPEN);
  }
  throw FileError("gnuplot has not drawn the picture: " + said, QV_CANNOT_OPEN);
}

void Deliver(const std::string& picture, const std::string& path) {
  WrittenFile file(IsDevice(path) ? Temporary() : Temporary::FileBeside(path), path);
  file.Write(picture);
  file.Keep();
}

void Draw(const std::string& script, const std::string& data, const std::string& path) {
  Temporary const folder = Temporary::Folder();
  for (auto const& [name, text] : {std::pair("/script", &script), std::pair("/data", &data)}) {
    WrittenFile file(folder.Path() + name, folder.Path() + name);
    file.Write(*text);
    file.Close();
  }
  Deliver(RunGnuplot(folder.Path(), IsSvg(path)), path);
}

struct TimeAxis {
  double first;
  double last;
  double offset;  // to be added for the clock of the place
};

TimeAxis AxisOf(const LevelPicture& picture) {
  TimeAxis axis = {std::numeric_limits<double>::max(), 0, 0};
  for (const NamedCurve& one : picture.curves) {
    axis.first = std::min(axis.first, one.curve.First());
    axis.last = std::max(axis.last, one.curve.Last());
  }
  for (const RunMark& mark : picture.marks) {
    axis.first = std::min(axis.first, mark.time);
    axis.last = std::max(axis.last, mark.time);
  }
  if (axis.last - axis.first < 1) {
    axis.first -= 1;
    axis.last += 1;
  }
  // One offset for all of the axis: in a night of clock change no time stands there twice.
  axis.offset = UtcOffset(static_cast<std::int64_t>(axis.first));
  return axis;
}

std::string TimeFormat(const TimeAxis& axis) {
  double const span = axis.last - axis.first;
  if (span < 300) return "%H:%M:%S";
  if (span < 36 * 3600.0) return "%H:%M";
  if (span < 4 * 86400.0) return "%d %b\\n%H:%M";
  return span < 300 * 86400.0 ? "%d %b" : "%b %Y";
}

std::string TimeLabel(const TimeAxis& axis) {
  std::string const first = LocalTimeText(static_cast<std::int32_t>(axis.first));
  std::string const last = LocalTimeText(static_cast<std::int32_t>(axis.last));
  constexpr std::size_t dateSize = 10;
  std::string label = "local time, " + first.substr(0, dateSize);
  if (last.substr(0, dateSize) != first.substr(0, dateSize))
    label += " to " + last.substr(0, dateSize);
  constexpr std::size_t offsetAt = 19;
  label += " (UTC" + first.substr(offsetAt);
  if (!ZoneInForce().empty()) label += ", " + ZoneInForce();
  return label + ")";
}

// Marks as lines across the picture. Too many would hide what it shows.
std::string Marks(const LevelPicture& picture, const TimeAxis& axis, std::string& plots) {
  constexpr std::size_t most = 100;
  if (picture.marks.size() > most) return "";
  std::string script;
  for (bool const starts : {true, false}) {
    const char* const colour = starts ? "#555555" : "#aaaaaa";
    bool any = false;
    for (const RunMark& mark : picture.marks) {
      if (mark.starts != starts) continue;
      std::string const time = Number(mark.time + axis.offset);
      script.append("set arrow from ").append(time).append(", graph 0 to ").append(time);
      script.append(", graph 1 nohead back dt 2 lc '").append(colour).append("'\n");
      any = true;
    }
    if (any) {
      plots += std::string(", NaN with lines dt 2 lc '") + colour + "' title '" +
               (starts ? "run starts" : "run ends") + "'";
    }
  }
  return script;
}

}  // namespace

void DrawLevels(const LevelPicture& picture, const std::string& path) {
  TimeAxis const axis = AxisOf(picture);
  std::string data;
  std::string plots;
  std::size_t index = 0;
  std::size_t samples = 0;
  std::size_t others = 0;
  for (const NamedCurve& one : picture.curves) {
    for (const auto& run : one.curve.Runs()) {
      for (const CurvePoint& point : run) {
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "%.3f %.6g\n", point.time + axis.offset,
                      point.value);
        data += line.data();
      }
      data += '\n';  // a gap
    }
    data += "\n\n";  // the next curve
    bool const isLine = one.style != CurveStyle::Points;
    const char* const colour = one.style == CurveStyle::Samples
                                   ? coloursOfSamples[samples++ % std::size(coloursOfSamples)]
                                   : colours[others++ % std::size(colours)];
    plots += std::string(plots.empty() ? "" : ", ") + "'data' index " + std::to_string(index) +
             " using 1:2 with " + (isLine ? "lines lw 1.2" : "points pt 7 ps 0.5") + " lc '" +
             colour + "' title " + Quoted(one.name);
    ++index;
  }
  std::string const marks = Marks(picture, axis, plots);
  double const margin = (axis.last - axis.first) / 100;
  Draw(Frame(picture.title, path, picture.unit) +
           "set xdata time\nset timefmt '%s'\nset format x \"" + TimeFormat(axis) + "\"\n" +
           "set xlabel " + Quoted(TimeLabel(axis)) + " noenhanced\n" + "set xrange [" +
           Number(axis.first + axis.offset - margin) + ":" +
           Number(axis.last + axis.offset + margin) + "]\n" + marks + "plot " + plots + "\n",
       data, path);
}

void DrawSpectrum(const SpectrumPicture& picture, const std::string& path) {
  std::string data;
  for (std::size_t i = 0; i < picture.bands.size(); ++i) {
    const SpectrumPicture::Band& band = picture.bands[i];
    if (band.count == 0) continue;
    double const mean = 10 * std::log10(band.energy / static_cast<double>(band.count));
    std::array<char, 96> line{};
    std::snprintf(line.data(), line.size(), "%zu %.6g %.6g %.6g\n", i, mean, band.low, band.high);
    data += line.data();
  }
  std::string const records = Counted(picture.records, "record", "records");
  std::string const mean = picture.records == 1 ? picture.name : "energy mean of " + records;
  std::string plots =
      "'data' using 1:2 with boxes fs solid 0.6 noborder lc '#0072b2' title " + Quoted(mean);
  if (picture.records > 1) {
    plots +=
        ", '' using 1:4 with histeps lc '#d55e00' title 'highest'"
        ", '' using 1:3 with histeps lc '#009e73' title 'lowest'";
  }
  Draw(Frame(picture.title, path, "dB") +
           "set style fill solid\nset boxwidth 0.8\nset xrange [-0.7:" +
           Number(static_cast<double>(picture.bands.size()) - 0.3) + "]\nset xlabel " +
           Quoted("element of " + picture.name) + " noenhanced\n" + "plot " + plots + "\n",
       data, path);
}

}  // namespace host
