// qvslm: shows measurement files. `qvslm info` tells what a file is and what it holds, `qvslm dump`
// writes its records as JSON, one a line.
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "arguments.h"
#include "dump.h"
#include "errors.h"
#include "help_text.h"
#include "info.h"
#include "jobs.h"
#include "outcome.h"
#include "output.h"
#include "platform.h"
#include "qvslmtranslate.h"

namespace {

using host::Arguments;
using host::Command;
using host::Outcome;

// What the work comes to once all that it wrote is out; a reader who has gone wants no more.
Outcome Written(host::Output& output, Outcome outcome) {
  output.Flush();
  if (output.ReaderHasGone()) return Outcome::Whole;
  if (!output.Failed()) return outcome;
  host::Complain("standard output cannot be written: " + output.WhatFailed());
  return Outcome::NothingReadable;
}

Outcome ShowFiles(const Arguments& arguments, host::Output& output) {
  Outcome all = Outcome::Whole;
  host::DumpOptions dump = arguments.dump;
  dump.nameFile = arguments.sources.names.size() > 1;
  for (const std::string& file : arguments.sources.names) {
    all = Worse(all, arguments.command == Command::Info ? host::Info(file, output)
                                                        : host::Dump(file, dump, output));
    // Nobody reads any more, or nothing can be written.
    if (!output.Flush()) break;
  }
  return all;
}

Outcome Run(int argc, char** argv) {
  Arguments const arguments = host::ReadArguments(argc, argv);
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
    case Command::Dump:
    case Command::Check:
    case Command::Plot:
      break;
  }
  return Written(output, ShowFiles(arguments, output));
}

}  // namespace

int main(int argc, char** argv) {
  if (!host::PrepareStreams()) return static_cast<int>(Outcome::NothingReadable);
  try {
    return static_cast<int>(Run(argc, argv));
  } catch (const host::InterruptedRun&) {
    host::EndInterrupted();
  } catch (const host::WrongUsage& fault) {
    host::Complain(fault.what());
    std::fputs("qvslm --help tells how it is used.\n", stderr);
    return static_cast<int>(Outcome::WrongUsage);
  } catch (const std::exception& fault) {
    host::Complain(fault.what());
    return static_cast<int>(Outcome::NothingReadable);
  }
}
