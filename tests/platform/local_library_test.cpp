#include "platform/local/local_library.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/local/trace_services.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

/// A host's platform with this library, and one traced call of the controller on it.
void resetOn(LocalLibrary& library) {
  Stage stage;
  Platform platform{stage.nativeFiles, stage.clock, windows1252(),
                    stage.textRules,   stage.box,   library};
  RWKeyscoutController{platform}.resetLastTableNumber();
}

TEST(LocalLibrary, IsSilentWithoutAService) {
  LocalLibrary library{nullptr};
  resetOn(library);
  EXPECT_EQ(library.createMessageTitleSource()->titleText(), u"Keyscout");
}

TEST(LocalLibrary, WritesATraceOut) {
  std::ostringstream out;
  const auto trace = std::make_shared<StreamTrace>(out);
  LocalLibrary library{trace};
  resetOn(library);
  trace->reportError(u"Class", u"work", Error{-7, u"caf\u00E9", u"It failed."}, 12);
  trace->traceMessage(u"Class", u"work", u"a text", 0);
  trace->logMessage(u"Class", u"work", u"", 0);
  EXPECT_EQ(out.str(),
            "enterProcedure RWKeyscoutController.resetLastTableNumber\n"
            "exitProcedure RWKeyscoutController.resetLastTableNumber\n"
            "reportError Class.work: -7 (caf\u00E9): It failed.\n"
            "traceMessage Class.work: a text\n"
            "logMessage Class.work\n");
}

}  // namespace
}  // namespace keyscout::test
