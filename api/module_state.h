// State that a module keeps beside the context.
//
// Behind the twelve exports there is one library in a process: the state is one static object, found
// where it stands. A front end that has several files open at once builds the sources with
// QVSLM_READERS instead. Each reader then has states of its own, and what a module finds is the one
// of the reader that the thread has in hand (api/front_end/qvslm_reader.h).
//
// A module says nothing of readers: it has a plain struct, one object ModuleState of it, and looks
// into the struct by ->. This is the one place that knows of the two ways.
#pragma once

#include <cstddef>
#include <new>

#if defined(QVSLM_READERS)
#define QVSLM_OF_THREAD thread_local
#else
#define QVSLM_OF_THREAD
#endif

namespace qvslm {

#if defined(QVSLM_READERS)

// What readers must know of the state of a module: all of them stand in one list.
struct StateKind {
  std::size_t size;
  void (*begin)(void* state);  // in bytes of its own
  void (*end)(void* state);
  void (*take)(void* state);  // into the hand of this thread; null: none
  const StateKind* next;
};
inline const StateKind* stateKinds = nullptr;

template <class State>
class ModuleState {
 public:
  ModuleState() noexcept : kind_{sizeof(State), Begin, End, Take, stateKinds} {
    stateKinds = &kind_;
  }
  State* operator->() const { return inHand_; }
  State& operator*() const { return *inHand_; }

 private:
  static void Begin(void* state) { new (state) State{}; }
  static void End(void* state) { static_cast<State*>(state)->~State(); }
  static void Take(void* state) { inHand_ = static_cast<State*>(state); }

  inline static constinit thread_local State* inHand_ = nullptr;
  StateKind kind_;
};

#else

template <class State>
class ModuleState {
 public:
  State* operator->() { return &state_; }
  State& operator*() { return state_; }

 private:
  State state_;
};

#endif

}  // namespace qvslm
