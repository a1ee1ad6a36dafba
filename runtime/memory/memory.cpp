#include "runtime/memory.h"

#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

namespace peakwright {
namespace {

/// Whether so many bytes could be had in one piece.
bool IsThere(std::size_t bytes) {
#if __has_include(<sys/mman.h>)
  // Asked of the system: the C library would try another arena, which takes memory that it keeps.
  void* piece = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANON, -1, 0);
  return piece != MAP_FAILED && munmap(piece, bytes) == 0;
#else
  void* volatile piece = std::malloc(bytes);  // Volatile, or it would be left out.
  std::free(piece);
  return piece != nullptr;
#endif
}

}  // namespace

void RequireMemory(std::size_t bytes) {
  constexpr std::size_t kBeside = 64 << 20;  // A few windows and threads.
  if (!IsThere(kBeside + bytes)) throw std::bad_alloc();
}

void WithMemoryFor(const char* wanted, const std::function<void()>& act) {
  try {
    act();
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(std::string("There is not enough memory for ") + wanted + ".");
  }
}

}  // namespace peakwright
