#pragma once

#include "bench_catalog.h"

namespace keyscout::bench {

/// By how many KiB a process of its own grows from before it is given the catalog until it has
/// answered a thousand lookups.
long memoryOfLookups(const BenchCatalog& catalog);

}  // namespace keyscout::bench
