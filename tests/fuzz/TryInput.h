// What a fuzzer does with an input.
#pragma once

#include <cstddef>

/// Each fuzzer has its own. Aborts when the input did harm.
void TryInput(const unsigned char* data, std::size_t size);
