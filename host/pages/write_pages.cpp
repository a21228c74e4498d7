// write_pages FOLDER: writes the manual page and the completions into a folder.
#include <cstdio>
#include <fstream>
#include <string>

#include "pages/pages.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: write_pages FOLDER\n", stderr);
    return 2;
  }
  bool good = true;
  auto const write = [&](const char* name, const std::string& text) {
    std::ofstream out(std::string(argv[1]) + '/' + name, std::ios::binary);
    out << text;
    good = good && out.flush();
  };
  write("qvslm.1", host::ManualPage());
  write("qvslm.bash", host::BashCompletion());
  write("_qvslm", host::ZshCompletion());
  return good ? 0 : 1;
}
