#pragma once

#include <stdexcept>

namespace keyscout {

/// A command that could not be understood, as a sentence.
class Malformed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace keyscout
