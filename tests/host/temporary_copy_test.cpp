// The copy of what cannot be sought in: how large it may grow, and that nothing of it is left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/sparse_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::TempFile;
using test::TempFolder;

// In bash: qvslm reads a pipe that stays open, and has begun its copy in $TMPDIR when the script
// goes on; $! is its process. Job control keeps the shell from making it deaf to INT. Sanitizers
// leave the signals of faults alone.
std::string WhileItReads(const std::string& script) {
  return "set -m; ulimit -c 0; "
         "export ASAN_OPTIONS=handle_segv=0:handle_sigbus=0:handle_sigfpe=0:handle_sigill=0; "
         "mkfifo $TMPDIR.pipe; exec 7<>$TMPDIR.pipe; rm $TMPDIR.pipe; " +
         std::string(QVSLM_PROGRAM) +
         " dump - <&7 7<&- & until [ -e $TMPDIR/*/stdin ]; do sleep 0.01; done; " + script;
}

TEST(TemporaryCopy, GoesWithEverySignalThatEndsTheProgram) {
  const std::vector<int> signals = {SIGHUP,  SIGINT,  SIGQUIT,   SIGILL,    SIGTRAP, SIGABRT,
                                    SIGBUS,  SIGFPE,  SIGUSR1,   SIGSEGV,   SIGUSR2, SIGALRM,
                                    SIGTERM, SIGXCPU, SIGXFSZ,   SIGVTALRM, SIGPROF, SIGIO,
                                    SIGSYS,  SIGPWR,  SIGSTKFLT, 34,        SIGRTMAX};
  for (int const signal : signals) {
    TempFolder const temporary;
    Result const result = RunProgram(
        {"bash", "-c", WhileItReads("kill -" + std::to_string(signal) + " $!; wait $!; echo $?")},
        {.temporary = temporary.Path()});
    EXPECT_EQ(result.out, std::to_string(128 + signal) + "\n") << signal << result.err;
    EXPECT_TRUE(temporary.Empty()) << signal;
  }
}

TEST(TemporaryCopy, SignalsThatEndNothingLeaveItAlone) {
  TempFolder const temporary;
  Result const result =
      RunProgram({"bash", "-c",
                  WhileItReads("for s in CHLD CONT URG WINCH; do kill -$s $!; done; sleep 0.2; "
                               "ls $TMPDIR/*; kill $!; wait $!")},
                 {.temporary = temporary.Path()});
  EXPECT_EQ(result.out, "stdin\n");
  EXPECT_TRUE(temporary.Empty());
}

// As under nohup: the program lives on.
TEST(TemporaryCopy, WhatIsIgnoredFromTheStartStaysIgnored) {
  TempFolder const temporary;
  Result const result = RunProgram(
      {"bash", "-c",
       "trap '' HUP USR1; " +
           WhileItReads("kill -HUP $!; kill -USR1 $!; sleep 0.2; ls $TMPDIR/*; kill $!; wait $!; "
                        "echo $?")},
      {.temporary = temporary.Path()});
  EXPECT_EQ(result.out, "stdin\n143\n");
  EXPECT_TRUE(temporary.Empty());
}

// Whatever the program would start cannot hold the copy open: O_CLOEXEC, octal 02000000.
TEST(TemporaryCopy, IsClosedOnExec) {
  TempFolder const temporary;
  Result const result =
      RunProgram({"bash", "-c",
                  WhileItReads("for file in /proc/$!/fd/*; do case $(readlink $file) in */stdin) "
                               "grep flags /proc/$!/fdinfo/${file##*/};; esac; done; kill $!")},
                 {.temporary = temporary.Path()});
  ASSERT_THAT(result.out, testing::StartsWith("flags:\t"));
  EXPECT_NE(std::stoul(result.out.substr(7), nullptr, 8) & 02000000u, 0u) << result.out;
}

TEST(TemporaryCopy, ASourceWithoutEndIsRefused) {
  TempFolder const temporary;
  Result const result = RunQvslm({"dump", "/dev/zero"}, {.temporary = temporary.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: /dev/zero: the file does not end within 2 GiB (-302)\n");
  EXPECT_TRUE(temporary.Empty());
}

// 2 GiB and a byte are refused; without the first byte of them, 2 GiB are taken, and then are no
// measurement.
TEST(TemporaryCopy, TwoGibibytesAreTheMost) {
  test::SparseFile const file("", std::int64_t{1} << 31, std::string_view("\0", 1));
  ASSERT_TRUE(file.Written());
  std::string const dump = QVSLM_PROGRAM + std::string(" dump -");
  EXPECT_EQ(RunProgram({"sh", "-c", dump + " < " + file.Path()}).err,
            "qvslm: -: the file does not end within 2 GiB (-302)\n");
  EXPECT_THAT(
      RunProgram({"sh", "-c", "{ head -c 1 >/dev/null; " + dump + "; } < " + file.Path()}).err,
      testing::EndsWith(" (-314)\n"));
}

// Whole blocks of zeros are holes of the copy, with data behind them or at its end. The time of a
// block image is the stop time in the last 2500 bytes less a second, or else that of the header.
TEST(TemporaryCopy, IsAsLongAsItsSource) {
  constexpr std::size_t block = 65536;
  constexpr int noon = 1718971200;  // 21 June 2024, 12:00:00 UTC
  std::string const data = test::General().Item(8, Body().U8(0)).EndOfData().Bytes();
  std::string const stop = "\r\nR   6,21Jun2024,18:00:00\r\n";
  std::string const firstBlock = data + std::string(block - data.size() - stop.size(), '\0') + stop;
  auto const imageTime = [](const std::string& bytes) {
    auto const objects = test::Objects(RunQvslm({"dump", "-"}, {.input = bytes}));
    return objects.empty() ? -1 : objects.front().at("RecordTime").get<int>();
  };
  EXPECT_EQ(imageTime(data + std::string(2 * block, '\0') + stop), noon + 6 * 3600 - 1);
  EXPECT_EQ(imageTime(firstBlock), noon + 6 * 3600 - 1);
  EXPECT_EQ(imageTime(firstBlock + std::string(2 * block, '\0')), noon - 1);
}

TEST(TemporaryCopy, ThatCannotBeWrittenIsTold) {
  TempFolder const temporary;
  TempFile const file(std::string(100000, 'x'));
  // A process that may write no file of more than 16 KiB, and ignores the signal that says so.
  Result const result = RunProgram(
      {"bash", "-c",
       "trap '' XFSZ; ulimit -f 16; " + std::string(QVSLM_PROGRAM) + " dump - < " + file.Path()},
      {.temporary = temporary.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: -: the temporary copy cannot be written: File too large (-302)\n");
  EXPECT_TRUE(temporary.Empty());
}

}  // namespace
