// tools/check_instructions where the kept counts were made with another compiler.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

TEST(CheckInstructions, SkipsUnderAnotherCompiler) {
  test::TempFolder const folder;
  fs::create_directories(folder.Path() + "/tools");
  fs::create_directories(folder.Path() + "/bench");
  fs::copy(SOURCE_ROOT "/tools/check_instructions", folder.Path() + "/tools");
  folder.File("bench/instructions.txt",
              "# Instructions of the library in fixed translations.\n"
              "# Release build; g++ (Elsewhere) 99.1.0, glibc 2.99; x86_64.\n"
              "census events 1\n");
  FILE* const output = popen((folder.Path() + "/tools/check_instructions 2>&1").c_str(), "r");
  ASSERT_NE(output, nullptr);
  std::string text;
  for (int c = fgetc(output); c != EOF; c = fgetc(output)) text += static_cast<char>(c);
  int const status = pclose(output);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  std::string const start = "instructions: 0 passed, 0 failed (skipped: no counts for g++";
  EXPECT_EQ(text.substr(0, start.size()), start);
  EXPECT_EQ(text.substr(text.size() - 2), ")\n");
}

}  // namespace
