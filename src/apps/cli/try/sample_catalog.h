#pragma once

#include <filesystem>

namespace keyscout {

/// The data directory that comes with the program, looked for from where the program itself is, so
/// that an installed tree can stand anywhere; empty where there is none.
std::filesystem::path sampleCatalog();

}  // namespace keyscout
