#include "fields/output_record.h"

#include <cstring>

namespace qvslm {

void ClearOutput(std::size_t size) {
  std::memset(CurrentContext->Output, 0, size);
}

}  // namespace qvslm
