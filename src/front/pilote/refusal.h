// A command that cannot be carried out. It has changed nothing.
#pragma once

#include <stdexcept>

namespace ardane {

/// `what()` is a French sentence that says why.
class Refus : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace ardane
