#ifndef QUORVANE_FUZZ_FUZZ_TARGET_H_
#define QUORVANE_FUZZ_FUZZ_TARGET_H_

#include <cstddef>
#include <cstdint>

// One input of a fuzz target. libFuzzer or replay_main.cpp calls it again and again in one process, so a
// target first resets what the last input left.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quorvane {

// Ends the process with a message if a law does not hold.
void require(bool holds, const char* law);

// On the first call: makes a temporary folder the current one, and silences standard output.
void enterScratchFolder();

}  // namespace quorvane

#endif  // QUORVANE_FUZZ_FUZZ_TARGET_H_
