#ifndef QUORVANE_TESTS_SUPPORT_NETWORK_TABLES_H_
#define QUORVANE_TESTS_SUPPORT_NETWORK_TABLES_H_

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace quorvane {

// The network table outlives every Learner and every test.
void clearNetworkTable();
// Of all lists of the network table.
std::size_t nodeCount();

// Values as network.dat stores them.
std::string networkBytes(std::initializer_list<std::uint32_t> values);

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_NETWORK_TABLES_H_
