#pragma once

#include "base/text.h"

/// What a control file says of the download: ready where it begins with that word, in process or
/// corrupt where it holds no more than the word.
namespace keyscout::ControlWords {
inline constexpr StringView ready = u"READY";
inline constexpr StringView inProcess = u"INPROCESS";
inline constexpr StringView corrupt = u"CORRUPT";
}  // namespace keyscout::ControlWords
