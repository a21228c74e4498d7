// Runs the built qvslm as users do, as a process of its own.
//
//   Result const result = RunQvslm({"dump", file.Path()});
//   EXPECT_EQ(result.exitCode, 0);
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "support/file_contents.h"
#include "support/temp_file.h"

namespace test {

struct Result {
  int exitCode = -1;  // -1 when a signal ended it; 60 seconds of work are one
  std::string out;
  std::string err;
};

struct RunOptions {
  std::string input = "";      // standard input
  std::string zone = "UTC";    // TZ
  std::string temporary = "";  // TMPDIR; empty for the one of the tests
};

inline void Redirect(const std::string& path, int flags, int target) {
  int const descriptor = open(path.c_str(), flags);
  if (descriptor < 0 || dup2(descriptor, target) < 0) _exit(126);
}

// Any program; RunQvslm is the usual way.
inline Result RunProgram(const std::vector<std::string>& command, const RunOptions& options = {}) {
  TempFile const input(options.input);
  TempFile const out("");
  TempFile const err("");
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  pid_t const child = fork();
  if (child == 0) {
    // Signals do what they do by themselves, also where the tests were started deaf to some.
    for (int signal = 1; signal <= SIGRTMAX; ++signal) std::signal(signal, SIG_DFL);
    setenv("TZ", options.zone.c_str(), 1);
    if (!options.temporary.empty()) setenv("TMPDIR", options.temporary.c_str(), 1);
    Redirect(input.Path(), O_RDONLY, STDIN_FILENO);
    Redirect(out.Path(), O_WRONLY, STDOUT_FILENO);
    Redirect(err.Path(), O_WRONLY, STDERR_FILENO);
    // A parent such as nohup has some signals ignored, and what it runs keeps that.
    for (int const signal : {SIGHUP, SIGINT, SIGTERM, SIGPIPE}) std::signal(signal, SIG_DFL);
    alarm(60);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Contents(out.Path()), Contents(err.Path())};
}

inline Result RunQvslm(std::vector<std::string> arguments, const RunOptions& options = {}) {
  arguments.insert(arguments.begin(), QVSLM_PROGRAM);
  return RunProgram(arguments, options);
}

inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Each line as a JSON object; a line that is none throws.
inline std::vector<nlohmann::ordered_json> Objects(const Result& result) {
  std::vector<nlohmann::ordered_json> objects;
  for (const std::string& line : Lines(result.out)) {
    objects.push_back(nlohmann::ordered_json::parse(line));
  }
  return objects;
}

// The names of the records, in order.
inline std::vector<std::string> Names(const Result& result) {
  std::vector<std::string> names;
  for (const auto& object : Objects(result)) names.push_back(object.at("record"));
  return names;
}

}  // namespace test
