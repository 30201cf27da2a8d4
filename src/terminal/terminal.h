#ifndef QUORVANE_TERMINAL_TERMINAL_H_
#define QUORVANE_TERMINAL_TERMINAL_H_

namespace quorvane {

// The terminal that a program was started in, if any. While it lives, text is UTF-8 both ways: what is typed,
// as std::cin gives it, and what is shown. Only consoles of Windows need it, and get their settings back. One
// per program, in its main.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
};

// Is standard error a terminal, and does it take control sequences?
bool errorsAreWatched();

}  // namespace quorvane

#endif  // QUORVANE_TERMINAL_TERMINAL_H_
