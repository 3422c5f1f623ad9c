#pragma once

namespace keyscout {

/// Frees what the calling thread keeps in its slot. A library calls it when a thread ends.
void freeThreadSlot() noexcept;

}  // namespace keyscout
