#include "server/com/module.h"

#include <atomic>

namespace keyscout {
namespace {

std::atomic<long> uses{0};

}  // namespace

void ModuleUse::lock() noexcept { ++uses; }
void ModuleUse::unlock() noexcept { --uses; }
bool ModuleUse::isAny() noexcept { return uses != 0; }

}  // namespace keyscout
