#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/directory/data_directory.h"
#include "platform/files.h"

namespace keyscout {

struct LookupRequest {
  DataDirectory directory;
  std::string text;
  /// What the host answers to `needBrand`; empty filters nothing.
  std::string brand;
  /// The brands that may be listed; none authorizes all.
  std::vector<std::string> authorized;
  /// How many entries to show, made by walking down the list where typing gives fewer; absent for
  /// what typing gives.
  std::optional<int> count;
};

struct LookupEntry {
  std::string number;
  std::string brand;
  std::int32_t index = 0;
};

struct LookupAnswer {
  std::vector<LookupEntry> entries;
  /// Nothing that may be listed follows the last entry in the catalog.
  bool endsCatalog = false;
  /// What keeps entries from being listed, as sentences: nothing follows, or the request itself.
  std::vector<std::string> notes;
};

/// Asks a control for the list that it shows for a text put into its text box. An answer without
/// entries means that nothing is shown. Texts are UTF-8. Fails with `std::runtime_error` where the
/// directory cannot be used or the lookup fails.
LookupAnswer lookUp(Files& files, const LookupRequest& request);

}  // namespace keyscout
