#pragma once

namespace keyscout {

/// Makes ready what the calling thread needs to throw and catch an exception when there is no
/// memory left, as long as there is some: the run-time library takes it at the first throw, and
/// ends the process where it gets none. Belongs to the beginning of all that makes objects.
void prepareToFail() noexcept;

}  // namespace keyscout
