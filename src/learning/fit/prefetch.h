#ifndef QUORVANE_LEARNING_FIT_PREFETCH_H_
#define QUORVANE_LEARNING_FIT_PREFETCH_H_

namespace quorvane {

// Asks for the memory at `address` ahead of its use; changes nothing but the time that the use takes.
inline void prefetch([[maybe_unused]] const void* address) {
#if defined(__GNUC__)
  __builtin_prefetch(address);
#endif
}

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_FIT_PREFETCH_H_
