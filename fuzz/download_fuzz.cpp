// The header of a download and the control file against the words that they may hold.

#include "fuzzed_host.h"

using namespace keyscout;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  fuzz::FuzzedHost host;
  host.files.piece = 1 + input.below(50);
  const std::string_view download = input.section();
  const std::string_view control = input.section();
  host.files.put(u"download", download);
  host.files.put(u"catcontrol.txt", control);
  host.files.put(u"index", "");
  host.files.put(u"brandinfo.txt", "");

  const std::vector<std::string> lines = fuzz::linesOf(download);
  const std::string header = lines.empty() ? "" : lines.front();
  std::int32_t downloadError = 0;
  if (header != "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]")
    downloadError = header.starts_with('0') ? -2147218503 : -2147218502;
  fuzz::require(
      test::errorOf([&] { return host.controller.checkDownloadVersion(); }) == downloadError,
      "checkDownloadVersion");

  std::string status;
  for (const std::string& line : fuzz::linesOf(control)) status += line;
  std::int32_t controlError = -2147218500;
  if (status.starts_with("READY")) controlError = 0;
  if (status == "INPROCESS") controlError = -2147218501;
  fuzz::require(
      test::errorOf([&] { return host.controller.checkCatalogControlFile(); }) == controlError,
      "checkCatalogControlFile");

  const std::int32_t expected = downloadError != 0 ? downloadError : controlError;
  fuzz::require(test::errorOf([&] { return host.controller.init(); }) == expected, "init");
  fuzz::require(static_cast<bool>(host.controller.KeyscoutLocked()) == (expected != 0), "the lock");
  return 0;
}
