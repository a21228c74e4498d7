// Readers: the states of all modules, once for each. Built with QVSLM_READERS alone.
#include <cstddef>
#include <cstdlib>
#include <new>

#include "api/context.h"
#include "api/front_end/qvslm_reader.h"

// The states stand behind it, in the order of their list.
struct alignas(std::max_align_t) QvReader {
  qvslm::TranslateContext* context;
};

namespace {

using qvslm::StateKind;

std::size_t RoomOf(const StateKind& kind) {
  return (kind.size + alignof(QvReader) - 1) / alignof(QvReader) * alignof(QvReader);
}

template <class Do>
void ForEachState(QvReader* reader, Do act) {
  auto* state = reinterpret_cast<unsigned char*>(reader + 1);
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) {
    act(*kind, state);
    state += RoomOf(*kind);
  }
}

}  // namespace

QvReader* QvNewReader() {
  std::size_t room = sizeof(QvReader);
  for (auto* kind = qvslm::stateKinds; kind != nullptr; kind = kind->next) room += RoomOf(*kind);
  void* const memory = std::malloc(room);
  if (memory == nullptr) return nullptr;
  auto* const reader = new (memory) QvReader{};
  ForEachState(reader, [](const StateKind& kind, void* state) { kind.begin(state); });
  return reader;
}

void QvTakeReader(QvReader* reader) {
  ForEachState(reader, [](const StateKind& kind, void* state) { kind.take(state); });
  qvslm::CurrentContext = reader->context;
}

void QvLayDownReader(QvReader* reader) {
  reader->context = qvslm::CurrentContext;
  ForEachState(reader, [](const StateKind& kind, void*) { kind.take(nullptr); });
  qvslm::CurrentContext = nullptr;
}

void QvFreeReader(QvReader* reader) {
  if (reader == nullptr) return;
  ForEachState(reader, [](const StateKind& kind, void* state) { kind.end(state); });
  std::free(reader);
}
