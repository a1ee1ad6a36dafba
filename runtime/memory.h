#pragma once

#include <cstddef>
#include <functional>

namespace peakwright {

/// Throws std::bad_alloc unless there are so many bytes, and memory to go on with beside. For the
/// start of what takes much: parts of the toolkit don't live through an allocation that fails, or
/// don't say that one has.
void RequireMemory(std::size_t bytes = 0);

/// Calls `act`. Where the memory doesn't suffice for it, throws std::runtime_error with a sentence
/// that names what it was `wanted` for.
void WithMemoryFor(const char* wanted, const std::function<void()>& act);

}  // namespace peakwright
