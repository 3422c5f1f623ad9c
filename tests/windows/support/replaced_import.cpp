#include "support/replaced_import.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace keyscout {
namespace {

template <class T>
T* at(HMODULE module, ULONG_PTR offset) {
  return std::bit_cast<T*>(std::bit_cast<ULONG_PTR>(module) + offset);
}

/// Where `module` keeps the address of the imported function `name`.
ULONG_PTR* placeOfImport(HMODULE module, const char* name) {
  const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* const headers = at<IMAGE_NT_HEADERS>(module, static_cast<ULONG_PTR>(dos->e_lfanew));
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* function = at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    auto* place = at<ULONG_PTR>(module, library->FirstThunk);
    for (; function->u1.AddressOfData != 0; ++function, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(function->u1.Ordinal)) continue;
      const auto* const import = at<IMAGE_IMPORT_BY_NAME>(module, function->u1.AddressOfData);
      if (std::strcmp(std::bit_cast<const char*>(&import->Name), name) == 0) return place;
    }
  }
  throw std::runtime_error{std::string{"no import "} + name};
}

}  // namespace

ReplacedImport::ReplacedImport(HMODULE module, const char* name, ULONG_PTR replacement)
    : place_(placeOfImport(module, name)), original_(*place_) {
  write(replacement);
}

ReplacedImport::~ReplacedImport() { write(original_); }

void ReplacedImport::write(ULONG_PTR function) {
  DWORD protection = 0;
  VirtualProtect(place_, sizeof *place_, PAGE_READWRITE, &protection);
  *place_ = function;
  VirtualProtect(place_, sizeof *place_, protection, &protection);
}

}  // namespace keyscout
