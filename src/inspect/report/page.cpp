#include "inspect/report/page.h"

#include "page_text.h"

namespace quorvane::inspect {

std::string reportPage(const Json& data) {
  std::string page(pageBeforeData);
  // No name of a file can end the script that the data stand in.
  for (const char character : textOf(data, false)) {
    if (character == '<') {
      page += "\\u003c";
    } else {
      page += character;
    }
  }
  return page.append(pageBehindData);
}

}  // namespace quorvane::inspect
