// qvslm: shows measurement files. `qvslm info` tells what a file is and what it holds, `qvslm dump`
// writes its records as JSON, one a line.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "dump.h"
#include "info.h"
#include "outcome.h"
#include "output.h"
#include "qvslmtranslate.h"
#include "record_table.h"

namespace {

using host::Outcome;

std::vector<std::string> RecordNames() {
  std::vector<std::string> names;
  for (const auto& record : record_fields::kRecords) {
    if (record.code != 0) names.emplace_back(record.name);
  }
  return names;
}

struct Arguments {
  std::vector<std::string> files;
  host::DumpOptions dump;
};

void AddFiles(CLI::App& command, Arguments& arguments) {
  command.add_option("FILE", arguments.files, "Measurement files; - is standard input")->required();
}

// What all files come to; stops early when nobody reads any more.
template <class Work>
Outcome ForEachFile(const std::vector<std::string>& files, host::Output& output, Work work) {
  Outcome all = Outcome::Whole;
  for (const std::string& file : files) {
    all = Worse(all, work(file));
    output.Flush();
    if (output.ReaderHasGone()) return Outcome::Whole;
    if (output.Failed()) {
      std::perror("qvslm: standard output cannot be written");
      return Outcome::NothingReadable;
    }
  }
  return all;
}

Outcome Run(int argc, char** argv) {
  CLI::App app("Shows the measurement files of sound level meters.", "qvslm");
  app.set_version_flag("--version", "qvslm, translation " + std::to_string(QV_TranVersion()));
  app.require_subcommand(1);
  Arguments arguments;

  CLI::App* const info = app.add_subcommand("info", "What a file is and what it holds");
  AddFiles(*info, arguments);

  CLI::App* const dump = app.add_subcommand("dump", "The records, one JSON object a line");
  AddFiles(*dump, arguments);
  dump->add_option("--records", arguments.dump.records,
                   "Only these kinds of records: Interval,Event")
      ->type_name("NAME,NAME")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check(CLI::IsMember(RecordNames()).description(""));
  dump->add_option("--limit", arguments.dump.limit, "At most so many records of each file")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  bool noCensus = false;
  dump->add_flag("--no-census", noCensus,
                 "Do not count first: no progress, and no daylight span for a night of clock "
                 "change");
  dump->add_flag("--cut", arguments.dump.cut,
                 "Write also the records that the file does not wholly hold, marked with "
                 "\"cut\":true");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& fault) {
    if (fault.get_exit_code() == 0) {
      app.exit(fault);
      return Outcome::Whole;
    }
    std::fprintf(stderr, "qvslm: %s\nqvslm --help tells how it is used.\n", fault.what());
    return Outcome::WrongUsage;
  }

  arguments.dump.census = !noCensus;
  arguments.dump.nameFile = arguments.files.size() > 1;
  host::Output output;
  if (info->parsed()) {
    return ForEachFile(arguments.files, output,
                       [&](const std::string& file) { return host::Info(file, output); });
  }
  return ForEachFile(arguments.files, output, [&](const std::string& file) {
    return host::Dump(file, arguments.dump, output);
  });
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return static_cast<int>(Run(argc, argv));
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "qvslm: %s\n", fault.what());
    return static_cast<int>(Outcome::NothingReadable);
  }
}
