#include "api/context.h"

std::uint32_t QV_GetBufferSize() {
  return static_cast<std::uint32_t>(qvslm::kContextSize);
}

std::uint32_t QV_TranVersion() {
  return 323;
}

std::uint32_t QV_TranVersionEx() {
  return 323;
}
