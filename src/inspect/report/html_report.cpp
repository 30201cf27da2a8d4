#include "inspect/report/html_report.h"

#include <filesystem>
#include <system_error>

#include "files/file_name.h"
#include "files/replace_file.h"
#include "inspect/common/fault.h"
#include "page_text.h"

namespace quorvane::inspect {

std::string reportPage(const Json& data) {
  std::string page;
  const std::size_t mark = pageText.find(pageDataMark);
  page += pageText.substr(0, mark);
  // No name of a file can end the script that the data stand in.
  for (const char character : textOf(data, false)) {
    if (character == '<') {
      page += "\\u003c";
    } else {
      page += character;
    }
  }
  page += pageText.substr(mark + pageDataMark.size());
  return page;
}

void writeReport(const std::string& fileName, const std::string& page) {
  std::error_code error;
  const std::filesystem::path path = pathOf(fileName);
  if (std::filesystem::is_directory(path, error)) throw Fault(fileName, "is a folder");
  if (replaceFile(path, page) != Saved::yes) throw Fault(fileName, "cannot be written");
}

}  // namespace quorvane::inspect
