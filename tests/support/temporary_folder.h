#ifndef QUORVANE_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QUORVANE_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <cstdlib>
#include <filesystem>
#include <string>

namespace quorvane {

// A new, empty current folder, which goes with all that is in it when this does.
class TemporaryFolder {
 public:
  TemporaryFolder() : before(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "quorvane-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    std::filesystem::current_path(name);
    folder = name;
  }
  ~TemporaryFolder() {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

 private:
  std::filesystem::path before;
  std::filesystem::path folder;
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
