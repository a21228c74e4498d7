// qvslm: shows measurement files. `qvslm info` tells what a file is and what it holds, `qvslm dump`
// writes its records as JSON, one a line.
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "arguments.h"
#include "command_table.h"
#include "dump.h"
#include "errors.h"
#include "help_text.h"
#include "info.h"
#include "jobs.h"
#include "outcome.h"
#include "output.h"
#include "platform.h"
#include "progress.h"
#include "qvslmtranslate.h"

namespace {

using host::Arguments;
using host::Command;
using host::FileList;
using host::FileReport;
using host::Outcome;

// What the work comes to once all that it wrote is out; a reader who has gone wants no more.
Outcome Written(host::Output& output, Outcome outcome) {
  output.Flush();
  if (output.ReaderHasGone()) return Outcome::Whole;
  if (!output.Failed()) return outcome;
  host::Complain("standard output cannot be written: " + output.WhatFailed());
  return Outcome::NothingReadable;
}

// What tells more of a command line that cannot be understood.
std::string HelpCommand(int argc, char** argv) {
  const host::CommandInfo* const command = argc < 2 ? nullptr : host::FindCommand(argv[1]);
  return command == nullptr ? "--help" : "help " + std::string(command->name);
}

Outcome RunInfo(const Arguments& arguments, host::Output& output) {
  FileList const list = FilesOf(arguments.sources);
  host::InfoTotals totals;
  auto const show = [&](const FileReport& report) {
    if (report.facts.is_null()) return true;
    if (arguments.info.json) {
      output.Line(host::FactsLine(report.facts));
    } else {
      ShowInfo(report.facts, output);
      totals.Add(report.facts);
    }
    return output.Flush();
  };
  auto const make = [&](const std::string& file) { return FindInfo(file, arguments.info); };
  Outcome const all = ReportFiles(list, arguments.sources.jobs, {make, show});
  if (list.files.size() > 1 && !arguments.info.json) totals.Show(output);
  return all;
}

Outcome RunCheck(const Arguments& arguments, host::Output& output) {
  FileList const list = FilesOf(arguments.sources);
  host::CheckTotals totals;
  auto const show = [&](const FileReport& report) {
    totals.Add(report.outcome);
    if (arguments.check.json) {
      output.Line(host::FactsLine(report.facts));
    } else {
      ShowDamage(report, output);
    }
    return output.Flush();
  };
  Outcome const all = ReportFiles(list, arguments.sources.jobs, {host::FindDamage, show});
  if (list.files.size() > 1 && !arguments.check.json) totals.Show(output);
  return all;
}

Outcome RunDump(const Arguments& arguments, host::Output& output) {
  FileList const list = FilesOf(arguments.sources);
  host::DumpOptions options = arguments.dump;
  options.nameFile = list.files.size() > 1;
  host::RunProgress progress(list.files);
  Outcome all = list.outcome;
  for (std::size_t i = 0; i < list.files.size(); ++i) {
    all = Worse(all, Dump(list.files[i], options, output));
    progress.Ended(i);
    // Nobody reads any more, or nothing can be written.
    if (!output.Flush()) break;
  }
  return all;
}

Outcome Run(int argc, char** argv) {
  Arguments const arguments = host::ReadArguments(argc, argv);
  if (!arguments.sources.zone.empty() && !host::UseZoneNamed(arguments.sources.zone)) {
    throw host::WrongUsage("--tz: there is no zone \"" + arguments.sources.zone +
                           "\"; zones are named like Europe/Berlin");
  }
  host::Output output;
  switch (arguments.command) {
    case Command::Help:
      for (const std::string& line : host::HelpText(arguments.topic)) output.Line(line);
      return Written(output, Outcome::Whole);
    case Command::Version:
      output.Line("qvslm, translation " + std::to_string(QV_TranVersion()));
      return Written(output, Outcome::Whole);
    case Command::Export:
      return static_cast<Outcome>(RunExport(arguments.exported));
    case Command::Info:
      return Written(output, RunInfo(arguments, output));
    case Command::Dump:
      return Written(output, RunDump(arguments, output));
    case Command::Check:
      return Written(output, RunCheck(arguments, output));
    case Command::Plot:
      return RunPlot(arguments.sources, arguments.plot);
  }
  return Outcome::WrongUsage;
}

}  // namespace

int main(int argc, char** argv) {
  if (!host::PrepareStreams()) return static_cast<int>(Outcome::NothingReadable);
  host::UseZoneOfEnvironment();
  try {
    return static_cast<int>(Run(argc, argv));
  } catch (const host::InterruptedRun&) {
    host::EndInterrupted();
  } catch (const host::WrongUsage& fault) {
    host::Complain(fault.what());
    std::fprintf(stderr, "qvslm %s tells how it is used.\n", HelpCommand(argc, argv).c_str());
    return static_cast<int>(Outcome::WrongUsage);
  } catch (const std::exception& fault) {
    host::Complain(fault.what());
    return static_cast<int>(Outcome::NothingReadable);
  }
}
