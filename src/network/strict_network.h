#ifndef QUORVANE_NETWORK_STRICT_NETWORK_H_
#define QUORVANE_NETWORK_STRICT_NETWORK_H_

#include <istream>
#include <stdexcept>
#include <string>

#include "network/network_table.h"

namespace quorvane {

// What was read is no network. The text is one line, a sentence without the file, which is its subject: "is
// cut short at byte 20".
class DamagedNetwork : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads a network file whole, for those who rely on it; stricter than the utility, which takes what it can
// use. Throws DamagedNetwork if it is something else, is cut short or goes on behind its end record, or if a
// list is no forest of patterns in preorder with finite weights.
NetworkTable readStrictly(std::istream& file);

// The same of the file `name`, UTF-8; throws DamagedNetwork too if it "is a folder" or "cannot be opened",
// with the system's reason.
NetworkTable readStrictly(const std::string& name);

}  // namespace quorvane

#endif  // QUORVANE_NETWORK_STRICT_NETWORK_H_
