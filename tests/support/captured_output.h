#ifndef QUORVANE_TESTS_SUPPORT_CAPTURED_OUTPUT_H_
#define QUORVANE_TESTS_SUPPORT_CAPTURED_OUTPUT_H_

#include <iostream>
#include <sstream>
#include <string>

namespace quorvane {

// Catches what is printed on standard output while it lives.
class CapturedOutput {
 public:
  CapturedOutput() : standard(std::cout.rdbuf(text.rdbuf())) {}
  ~CapturedOutput() { std::cout.rdbuf(standard); }
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;
  std::string str() const { return text.str(); }

 private:
  std::ostringstream text;
  std::streambuf* standard;
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_CAPTURED_OUTPUT_H_
