// Holds a file of Windows open, as other programs do: hold_windows FILE none|read|write|all. Until standard
// input ends, others may do nothing with it, read it, read and write it, or remove it as well.

#include <windows.h>

#include <filesystem>
#include <iostream>
#include <limits>
#include <string_view>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string_view shared = argv[2];
  const DWORD sharing = shared == "all"     ? FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE
                        : shared == "write" ? FILE_SHARE_READ | FILE_SHARE_WRITE  // as streams do
                        : shared == "read"  ? FILE_SHARE_READ
                                            : 0;
  const HANDLE file = CreateFileW(std::filesystem::path(argv[1]).c_str(), GENERIC_READ, sharing, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::cout << "held" << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
  return 0;
}
