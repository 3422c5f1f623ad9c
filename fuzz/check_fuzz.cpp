// `check` on damage: it always comes to an end, and a directory without errors can be looked up in.
// The sections of an input are the index, the brand file and the tables from 0 on.

#include <string>

#include "apps/cli/check/check_catalog.h"
#include "apps/cli/lookup/lookup.h"
#include "base/code_page.h"
#include "base/utf8.h"
#include "fuzz_input.h"
#include "platform/local/native_files.h"
#include "written_folder.h"

using namespace keyscout;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  const fuzz::WrittenFolder folder;
  folder.write("catcontrol.txt", "READY");
  folder.write("download.txt", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n");
  folder.write("catindex.txt", input.section());
  folder.write("brandinfo.txt", input.section());
  for (int table = 0; table < 4 && !input.isAtEnd(); ++table)
    folder.write(std::to_string(table) + ".txt", input.section());

  NativeFiles files;
  int errors = 0;
  int warnings = 0;
  const DataDirectory directory = withDownloadFound({folder.path()});
  const CheckSummary summary = checkCatalog(files, directory, [&](const Finding& finding) {
    fuzz::require(!finding.file.empty() && finding.line >= 1, "where a finding stands");
    fuzz::require(!finding.sentence.empty(), "what a finding says");
    ++(finding.severity == Severity::error ? errors : warnings);
  });
  if (errors != 0) return 0;
  for (std::uint64_t table = 0; table < summary.tables; ++table)
    for (const std::string& line : fuzz::linesOf(folder.read(std::to_string(table) + ".txt"))) {
      const std::string number = toUtf8(trimmed(windows1252().decode(line.substr(10, 60))));
      LookupRequest request;
      request.directory = directory;
      request.text = number;
      const LookupAnswer answer = lookUp(files, request);  // must not fail
      if (warnings == 0)
        fuzz::require(!answer.entries.empty() && answer.entries.front().number == number, number);
    }
  return 0;
}
