#pragma once

#include <windows.h>

#include <bit>

namespace keyscout {

/// While it lives, `module` calls `replacement` where it would call the function `name` of another
/// module.
class ReplacedImport {
 public:
  template <class Function>
  ReplacedImport(HMODULE module, const char* name, Function* replacement)
      : ReplacedImport(module, name, std::bit_cast<ULONG_PTR>(replacement)) {}
  ~ReplacedImport();
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;

  /// The function that is replaced.
  template <class Function>
  Function* original() const {
    return std::bit_cast<Function*>(original_);
  }

 private:
  ReplacedImport(HMODULE module, const char* name, ULONG_PTR replacement);
  void write(ULONG_PTR function);

  ULONG_PTR* place_ = nullptr;
  ULONG_PTR original_ = 0;
};

}  // namespace keyscout
