#include "inspect/report/page.h"

#include "page_text.h"

namespace quorvane::inspect {

std::string reportPage(const Json& data) {
  const std::size_t mark = pageText.find(pageDataMark);
  std::string page(pageText.substr(0, mark));
  // No name of a file can end the script that the data stand in.
  for (const char character : textOf(data, false)) {
    if (character == '<') {
      page += "\\u003c";
    } else {
      page += character;
    }
  }
  return page.append(pageText.substr(mark + pageDataMark.size()));
}

}  // namespace quorvane::inspect
