#pragma once

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

namespace peakwright {

/// Throws std::bad_alloc unless there are so many bytes, and memory to go on with beside. For the
/// start of what takes much: parts of the toolkit don't live through an allocation that fails, or
/// don't say that one has.
inline void RequireMemory(std::size_t bytes = 0) {
  constexpr std::size_t kBeside = 64 << 20;             // A few windows and threads.
  void* volatile probe = std::malloc(kBeside + bytes);  // Volatile, or it would be left out.
  std::free(probe);
  if (probe == nullptr) throw std::bad_alloc();
}

/// Calls `act`. Where the memory doesn't suffice for it, throws std::runtime_error with a sentence
/// that names what it was `wanted` for.
inline void WithMemoryFor(const char* wanted, const std::function<void()>& act) {
  try {
    act();
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(std::string("There is not enough memory for ") + wanted + ".");
  }
}

}  // namespace peakwright
