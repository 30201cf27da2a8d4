#ifdef _WIN32

#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>
#include <iostream>
#include <streambuf>
#include <string>
#include <string_view>

#include "terminal/terminal.h"

namespace quorvane {

namespace {

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

// What is typed, line by line. Read as UTF-16: bytes would lose every letter that the code page lacks, and
// with that of UTF-8 consoles before Windows 11 give nothing for letters outside ASCII.
class TypedText : public std::streambuf {
 protected:
  int_type underflow() override {
    std::array<wchar_t, 512> typed;
    DWORD count = 0;
    const auto most = static_cast<DWORD>(typed.size() - 1);
    if (ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), typed.data(), most, &count, nullptr) == 0 ||
        count == 0) {
      return traits_type::eof();
    }
    // The other half of a pair that did not fit.
    DWORD half = 0;
    if (IS_HIGH_SURROGATE(typed[count - 1])) {
      ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), &typed[count], 1, &half, nullptr);
    }
    constexpr wchar_t endOfInput = 0x1a;  // Control and Z
    if (typed[0] == endOfInput) return traits_type::eof();
    const int length = static_cast<int>(count + half);
    constexpr std::size_t bytesPerUnit = 3;  // at most
    text.resize(static_cast<std::size_t>(length) * bytesPerUnit);
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, typed.data(), length, text.data(),
                                          static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(bytes));
    std::erase(text, '\r');
    setg(text.data(), text.data(), text.data() + text.size());
    // Nothing but a carriage return leaves nothing.
    return text.empty() ? underflow() : traits_type::to_int_type(text.front());
  }

 private:
  std::string text;
};

// What is shown, in the code page of the console. The C library's own way there knows another one.
class ShownText : public std::streambuf {
 public:
  explicit ShownText(DWORD standardHandle) : handle(GetStdHandle(standardHandle)) {}

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    DWORD written = 0;
    return WriteFile(handle, bytes, static_cast<DWORD>(count), &written, nullptr) != 0 ? count : 0;
  }
  int_type overflow(int_type next) override {
    const char byte = traits_type::to_char_type(next);
    return xsputn(&byte, 1) == 1 ? next : traits_type::eof();
  }

 private:
  HANDLE handle;
};

// What the streams had before, null where it stayed.
struct Before {
  std::streambuf* input = nullptr;
  std::streambuf* output = nullptr;
  std::streambuf* errors = nullptr;
  UINT codePage = 0;
} before;

}  // namespace

Terminal::Terminal() {
  if (isConsole(GetStdHandle(STD_INPUT_HANDLE))) {
    static TypedText typed;
    before.input = std::cin.rdbuf(&typed);
  }
  if (isConsole(GetStdHandle(STD_OUTPUT_HANDLE))) {
    static ShownText shown(STD_OUTPUT_HANDLE);
    before.output = std::cout.rdbuf(&shown);
  }
  if (isConsole(GetStdHandle(STD_ERROR_HANDLE))) {
    static ShownText shown(STD_ERROR_HANDLE);
    before.errors = std::cerr.rdbuf(&shown);
  }
  if (before.output != nullptr || before.errors != nullptr) {
    before.codePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
  }
}

Terminal::~Terminal() {
  if (before.input != nullptr) std::cin.rdbuf(before.input);
  if (before.output != nullptr) std::cout.rdbuf(before.output);
  if (before.errors != nullptr) std::cerr.rdbuf(before.errors);
  if (before.codePage != 0) SetConsoleOutputCP(before.codePage);
}

bool errorsAreWatched() {
  const HANDLE console = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(console, &mode) != 0 &&
         SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace quorvane

#endif
