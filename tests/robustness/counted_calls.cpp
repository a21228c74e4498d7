#include "robustness/counted_calls.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <new>

// The linker makes these of the C library's own names.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
int __real_vsnprintf(char* text, std::size_t size, const char* format, va_list values);
std::time_t __real_mktime(std::tm* stamp);
std::tm* __real_localtime(const std::time_t* seconds);
}

namespace test {
namespace {

Costs total;

}  // namespace

Costs& Costs::operator+=(const Costs& more) {
  allocations += more.allocations;
  formats += more.formats;
  conversions += more.conversions;
  return *this;
}

Costs Costs::operator-(const Costs& before) const {
  return {allocations - before.allocations, formats - before.formats,
          conversions - before.conversions};
}

Costs CostsSoFar() {
  return total;
}

}  // namespace test

extern "C" {

void* __wrap_calloc(std::size_t count, std::size_t size) {
  ++test::total.allocations;
  return __real_calloc(count, size);
}

void* __wrap_realloc(void* block, std::size_t size) {
  ++test::total.allocations;
  return __real_realloc(block, size);
}

int __wrap_vsnprintf(char* text, std::size_t size, const char* format, va_list values) {
  ++test::total.formats;
  return __real_vsnprintf(text, size, format, values);
}

int __wrap_snprintf(char* text, std::size_t size, const char* format, ...) {
  ++test::total.formats;
  va_list values;
  va_start(values, format);
  int const length = __real_vsnprintf(text, size, format, values);
  va_end(values);
  return length;
}

std::time_t __wrap_mktime(std::tm* stamp) {
  ++test::total.conversions;
  return __real_mktime(stamp);
}

std::tm* __wrap_localtime(const std::time_t* seconds) {
  ++test::total.conversions;
  return __real_localtime(seconds);
}

}  // extern "C"

void* operator new(std::size_t size) {
  ++test::total.allocations;
  if (void* const block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
