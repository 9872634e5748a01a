// A process that dies at the n-th of the calls by which the C++ library opens, writes, renames and
// removes files. Those functions of the C library are defined in this program and so found first.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ardane {

/// How a child process ended.
struct Fin {
  bool tué = false;  ///< as planned, by SIGKILL
  int code = 0;      ///< of one that was not
};

/// Runs `action` in a child process, which dies before the n-th call, counted from 1, or half-way through it
/// if it writes. With 0 it lives, and ends with what `action` returns.
Fin tuer_à_l_appel(int n, const std::function<int()> &action);

/// The names of the calls that the last child has made, the one included that it died of.
std::vector<std::string> appels_du_dernier();

/// While it lives, so many of the next questions what stands at a path fail, as on a failing disk.
class StatDéfaillant {
 public:
  explicit StatDéfaillant(std::string chemin, int fois = 1);
  ~StatDéfaillant();
  StatDéfaillant(const StatDéfaillant &) = delete;
  StatDéfaillant &operator=(const StatDéfaillant &) = delete;
};

}  // namespace ardane
