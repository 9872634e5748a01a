// The elements of a table as a plain vector, which matchers can look into.
#pragma once

#include <vector>

namespace ardane {

template <class Table>
std::vector<int> valeurs(const Table &table) {
  return {table.begin(), table.end()};
}

}  // namespace ardane
