#pragma once

namespace keyscout {

/// Frees what the calling thread keeps in its slot. A library calls it when a thread ends; from its
/// first use on the slot keeps the library loaded.
void freeThreadSlot() noexcept;

/// Whether any thread of the process keeps something.
bool isAnyThreadSlot() noexcept;

}  // namespace keyscout
