// A host in C++17: walks a file and prints how many records it gave.
#include <qvslmtranslate.h>

#include <cstring>
#include <iostream>
#include <vector>

int main(int argc, char** argv) {
  const char* const path = argc > 1 ? argv[1] : "no such file";
  std::vector<double> context(QV_GetBufferSize() / sizeof(double));  // aligned to 8 bytes, zeroed
  std::vector<std::uint32_t> record(QV_OUTPUT_RECORD_SIZE / sizeof(std::uint32_t));
  std::cout << "translation " << QV_TranVersionEx() << '\n';

  QvRecordCensus census;
  QV_GetRecordCount(path, context.data(), &census, record.data());
  int count = 0;
  std::int32_t status = QV_StartTranslate(path, context.data());
  if (status == QV_OK || status == QV_NO_TEXT_HEADER) {
    std::uint16_t code = QV_NO_RECORD;
    do {
      status = QV_TranslateNextRec(record.data(), context.data());
      std::memcpy(&code, record.data(), sizeof code);
      if (code != QV_NO_RECORD) ++count;
    } while (status >= 0 || (status == QV_RECORD_TOO_SHORT && code != QV_NO_RECORD));
  }
  QV_StopTranslate();
  std::cout << (status == QV_END_OF_DATA ? count : status) << '\n';
}
