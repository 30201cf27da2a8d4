#ifndef QUORVANE_INSPECT_COMMON_FAULT_H_
#define QUORVANE_INSPECT_COMMON_FAULT_H_

#include <stdexcept>
#include <string>

namespace quorvane::inspect {

// Something that was given cannot be used. The text is one line: what was given, and what is wrong with it.
class Fault : public std::runtime_error {
 public:
  explicit Fault(const std::string& whole) : std::runtime_error(whole) {}
  Fault(const std::string& given, const std::string& wrong) : std::runtime_error(given + ": " + wrong) {}
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_COMMON_FAULT_H_
