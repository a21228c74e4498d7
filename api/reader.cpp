// Readers: the states of all modules, once for each. Built with QVSLM_READERS alone.
#include <cstddef>
#include <cstdlib>

#include "api/context.h"
#include "api/front_end/qvslm_reader.h"

struct QvReader {
  qvslm::TranslateContext* context;
  unsigned char* states;
};

namespace {

using qvslm::StateKind;

constexpr std::size_t kAlignment = alignof(std::max_align_t);

constexpr std::size_t RoomOf(const StateKind& kind) {
  return (kind.size + kAlignment - 1) / kAlignment * kAlignment;
}

std::size_t RoomOfAll() {
  std::size_t room = 0;
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) room += RoomOf(*kind);
  return room;
}

}  // namespace

QvReader* QvNewReader() {
  auto* const reader = static_cast<QvReader*>(std::calloc(1, sizeof(QvReader)));
  if (reader == nullptr) return nullptr;
  reader->states = static_cast<unsigned char*>(std::malloc(RoomOfAll()));
  if (reader->states == nullptr) {
    std::free(reader);
    return nullptr;
  }
  unsigned char* state = reader->states;
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) {
    kind->begin(state);
    state += RoomOf(*kind);
  }
  return reader;
}

void QvTakeReader(QvReader* reader) {
  unsigned char* state = reader->states;
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) {
    kind->take(state);
    state += RoomOf(*kind);
  }
  qvslm::CurrentContext = reader->context;
}

void QvLayDownReader(QvReader* reader) {
  reader->context = qvslm::CurrentContext;
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) kind->take(nullptr);
  qvslm::CurrentContext = nullptr;
}

void QvFreeReader(QvReader* reader) {
  if (reader == nullptr) return;
  unsigned char* state = reader->states;
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) {
    kind->end(state);
    state += RoomOf(*kind);
  }
  std::free(reader->states);
  std::free(reader);
}
