#pragma once

#include <map>

#include "base/text.h"
#include "shared/keyscout_module.h"

namespace keyscout {

/// The brands that a load admits: by its brand filter and by the brands that the host has
/// authorized. Lives as long as the load, in which the host is asked once for each brand: a list
/// that lacks one answers with a failure, which is slow, and tables name their brands line by line.
class AdmittedBrands {
 public:
  /// Both must outlive the object.
  AdmittedBrands(const keyscoutModule& module, const String& filter)
      : module_(module), filter_(filter) {}

  /// True when no brand is left out. Fails as the host's list does.
  [[nodiscard]] bool areAll() const;
  [[nodiscard]] bool include(const String& brand);

 private:
  const keyscoutModule& module_;
  const String& filter_;
  std::map<String, bool> answers_;  // of the host
};

}  // namespace keyscout
