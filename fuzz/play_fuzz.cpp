// Lines of `play`: each is answered by an object, or called malformed, and none ends the program.

#include "apps/cli/play/scripted_host.h"
#include "fuzz_input.h"
#include "support/memory_files.h"

using namespace keyscout;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  const std::string_view script = input.section();
  test::MemoryFiles files;
  files.put(u"catindex.txt", input.section());
  files.put(u"0.txt", input.section());
  files.put(u"brandinfo.txt", "ACME\r\n");
  files.put(u"catalog.txt", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n");
  files.put(u"catcontrol.txt", "READY");
  ScriptedHost host{files};
  for (const std::string& line : fuzz::linesOf(script)) {
    const Json answer = host.run(line);
    fuzz::require(answer.is_object(), "an answer");
    (void)answer.dump(-1, ' ', false, Json::error_handler_t::replace);
  }
  return 0;
}
