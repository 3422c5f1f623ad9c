#include <gtest/gtest.h>

#include "apps/cli/play/scripted_host.h"
#include "base/utf8.h"
#include "platform/local/native_files.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

class Play : public testing::Test {
 protected:
  Json run(const std::string& command) { return host.run(command); }
  void runAll(const Strings& commands) {
    for (const std::string& command : commands) ASSERT_TRUE(run(command)["ok"]) << command;
  }
  void start() {
    Json setting{{"op", "controller.set"},
                 {"name", "KeyscoutDirectory"},
                 {"value", toUtf8(directory.hostPath())}};
    run(setting.dump());
    runAll({R"({"op":"controller.set","name":"KeyscoutIndexFile","value":"catindex.txt"})",
            R"({"op":"controller.set","name":"CatalogNumbersDownloadFile","value":"download.txt"})",
            R"({"op":"controller.call","name":"init"})",
            R"({"op":"controller.set","name":"KeyscoutEnabled","value":true})",
            R"({"op":"control.new","control":"a"})",
            R"({"op":"focus","control":"a","widget":"text"})"});
  }

  DataDirectory directory{{series("A", 12, {"ACME", "BOLT"})}};
  NativeFiles files;
  ScriptedHost host{files};
};

TEST_F(Play, AnswersWhatItCannotUnderstand) {
  start();
  for (const std::string command :
       {"not json",
        "[]",
        "{}",
        R"({"op":"nonsense"})",
        R"({"op":"control.get","control":"z","name":"text"})",
        R"({"op":"control.get","control":"a","name":"colour"})",
        R"({"op":"control.set","control":"a","name":"isListShowing","value":1})",
        R"({"op":"control.set","control":"a","name":"text","value":7})",
        R"({"op":"control.new","control":"a"})",
        R"({"op":"control.call","control":"a","name":"doit","args":[1]})",
        R"({"op":"controller.call","name":"needToUpdate"})",
        R"({"op":"type"})",
        R"({"op":"key","key":"F13"})",
        R"({"op":"key","key":"Up","phase":"sideways"})",
        R"({"op":"click","entry":0})",
        R"({"op":"mouse","kind":"wheel"})",
        R"({"op":"on","event":"Birthday","set":{}})",
        R"({"op":"on","event":"Change","set":{"KeyCode":0}})",
        R"({"op":"on","event":"Change","call":"fly"})",
        R"({"op":"answer","button":"maybe"})",
        R"({"op":"fail","at":0,"operation":"append"})",
        R"({"op":"fail","at":1,"operation":"sing"})",
        R"({"op":"trace","on":1})"}) {
    const Json answer = run(command);
    EXPECT_TRUE(answer.contains("malformed")) << command << answer;
    EXPECT_EQ(answer["ok"], false) << command;
    EXPECT_EQ(answer["events"].size() + answer["messages"].size(), 0U) << command;
  }
}

TEST_F(Play, AClickOnNoEntryIsMalformed) {
  start();
  run(R"({"op":"type","text":"a"})");
  for (const char* const entry :
       {"-1", "9", "99999", "-99999", "18446744073709551615", "0.5", "true"})
    EXPECT_TRUE(run(R"({"op":"click","entry":)" + std::string{entry} + '}').contains("malformed"))
        << entry;
  EXPECT_TRUE(run(R"({"op":"click","entry":8})")["ok"]);
}

TEST_F(Play, SaysWhatIsMalformedInWordsOfItsOwn) {
  for (const char* const command : {"{", "not json", R"({"op":"paste","text":1e999})",
                                    R"({"op":"on","event":"Change","set":1})"}) {
    const std::string sentence = run(command)["malformed"];
    EXPECT_EQ(sentence.find("exception"), std::string::npos) << sentence;
    EXPECT_GT(sentence.size(), 15U);
  }
}

TEST_F(Play, TellsErrorsEventsMessagesAndTrace) {
  start();
  const Json failed = run(R"({"op":"control.set","control":"a","name":"selStart","value":-1})");
  EXPECT_EQ(failed["error"]["number"], 380);
  EXPECT_EQ(
      run(R"({"op":"controller.call","name":"needToUpdate","args":[40000]})")["error"]["number"],
      6);
  EXPECT_EQ(run(R"({"op":"control.call","control":"a","name":"setAuthorizedBrands","args":["x"]})")
                ["error"]["number"],
            13);

  runAll({R"({"op":"trace","on":true})", R"({"op":"answer","button":"yes"})",
          R"({"op":"on","event":"UpdateKeyscout","call":"tryToUnlock"})",
          R"({"op":"fail","at":2,"operation":"append"})"});
  const Json answer = run(R"({"op":"paste","text":"a"})");
  Strings events;
  for (const Json& event : answer["events"]) events.push_back(event["name"]);
  EXPECT_EQ(events, (Strings{"needBrand", "UpdateKeyscout", "Change"}));
  EXPECT_EQ(answer["events"][0].dump(), R"({"control":"a","name":"needBrand","args":[]})");
  EXPECT_EQ(answer["messages"][0]["style"], 68);
  EXPECT_EQ(answer["messages"][0]["answer"], "yes");
  EXPECT_EQ(answer["trace"][0].dump(),
            R"x(["enterProcedure","keyscoutControl","keyscoutText_Change()",0])x");
  const Json report{"reportError",
                    "keyscoutControl",
                    "loadKeyscoutCombo",
                    75,
                    "play",
                    "Path or file access error",
                    0};
  EXPECT_NE(std::ranges::find(answer["trace"], report), answer["trace"].end());
  EXPECT_EQ(run(R"({"op":"shared"})")["result"]["KeyscoutLocked"], 0)
      << "the host unlocked in the event";
  const Json state = run(R"({"op":"state","control":"a"})")["result"];
  EXPECT_EQ(state["list"]["entries"].size(), 1U);
  EXPECT_EQ(state["catalogEntries"][0].dump(),
            R"({"CatalogNumber":"A000","CatalogBrand":"ACME","CatalogIndex":0})");
}

TEST_F(Play, AnswersEventsAsItWasTold) {
  start();
  runAll({R"({"op":"on","event":"needBrand","set":{"brand":"BOLT"}})",
          R"({"op":"on","event":"KeyDown","set":{"KeyCode":0}})"});
  EXPECT_EQ(run(R"({"op":"type","text":"x"})")["events"].size(), 2U) << "the key goes no further";
  runAll({R"({"op":"on","event":"KeyDown","set":null})", R"({"op":"type","text":"a"})"});
  EXPECT_EQ(run(R"({"op":"state","control":"a"})")["result"]["list"]["entries"][0], "A001");
  runAll({R"({"op":"control.set","control":"a","name":"FontBold","value":5})"});
  EXPECT_EQ(run(R"({"op":"control.get","control":"a","name":"FontBold"})")["result"], 5);
  runAll(
      {R"({"op":"controller.set","name":"authorizedBrands","value":["ACME",{"plain":"BOLT"}]})"});
  EXPECT_EQ(run(R"({"op":"shared"})")["result"]["authorizedBrands"].dump(), R"(["ACME","BOLT"])");
}

}  // namespace
}  // namespace keyscout::test
