#pragma once

#include "base/error.h"
#include "platform/decorators/forwarding_files.h"

namespace keyscout {

/// Files whose failures to open begin with the file's name, for a person who is told of nothing
/// but the failure.
class NamedFailures final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;

  std::unique_ptr<RandomAccessFile> openAtOffsets(StringView path) override try {
    return files().openAtOffsets(path);
  } catch (const Error& failure) {
    const StringView name = path.substr(path.find_last_of(u'\\') + 1);
    throw Error{failure.number(), failure.source(), String{name} + u": " + failure.description()};
  }
};

}  // namespace keyscout
