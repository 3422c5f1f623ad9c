#include "support/stage.h"

#include <cmath>
#include <tuple>

#include "base/utf8.h"

namespace keyscout::test {
namespace {

std::string keyArguments(std::int16_t keyCode, std::int16_t shift) {
  return std::to_string(keyCode) + (shift == 0 ? "" : "," + std::to_string(shift));
}

std::string mouseArguments(std::int16_t button, std::int16_t shift, float x, float y) {
  std::string arguments = std::to_string(button) + "," + std::to_string(shift);
  for (const float place : {x, y}) arguments += "," + std::to_string(std::lround(place));
  return arguments;
}

std::unique_ptr<HookedFiles> hooked(Files& files, CallHook* hook) {
  return hook ? std::make_unique<HookedFiles>(files, *hook) : nullptr;
}

std::shared_ptr<TraceService> hooked(std::shared_ptr<TraceService> trace, CallHook* hook) {
  if (!hook) return trace;
  return std::make_shared<HookedTrace>(std::move(trace), *hook);
}

}  // namespace

MessageBoxButton AnsweringBox::show(StringView text, std::int32_t style, StringView title) {
  texts.emplace_back(text);
  lastStyle = style;
  lastTitle = title;
  return answer;
}

void EventLog::raised(const std::string& name, const std::string& arguments) {
  events_.push_back(arguments.empty() ? name : name + "(" + arguments + ")");
  if (const auto handler = handlers.find(name); handler != handlers.end()) handler->second();
}

void EventLog::brandChanged(String& strBrand) {
  raised("brandChanged", toUtf8(strBrand));
  strBrand = u"written back in vain";
}

void EventLog::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  raised("KeyDown", keyArguments(KeyCode, Shift));
  if (keyCodeToWriteBack >= 0) KeyCode = static_cast<std::int16_t>(keyCodeToWriteBack);
}

void EventLog::KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  raised("KeyUp", keyArguments(KeyCode, Shift));
}

void EventLog::MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raised("MouseDown", mouseArguments(Button, Shift, X, Y));
}

void EventLog::MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raised("MouseMove", mouseArguments(Button, Shift, X, Y));
}

void EventLog::MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raised("MouseUp", mouseArguments(Button, Shift, X, Y));
}

Strings StagedControl::entries() const {
  Strings entries;
  if (const auto list = surface->listView())
    for (const String& entry : list->entries) entries.push_back(toUtf8(entry));
  return entries;
}

int StagedControl::selected() const {
  const auto list = surface->listView();
  return list ? list->selected : -1;
}

bool StagedControl::isDropped() const {
  const auto list = surface->listView();
  return list && list->isDropped;
}

std::string StagedControl::text() const { return toUtf8(control.text()); }

Stage::Stage(CallHook* hook)
    : hookedFiles(hooked(nativeFiles, hook)),
      library(hooked(trace, hook)),
      platform{files(), clock, windows1252(), textRules, box, library},
      controller(platform),
      form(makeForm(hook)) {}

void Stage::configure(const DataDirectory& directory) {
  controller.setKeyscoutDirectory(directory.hostPath());
  controller.setKeyscoutIndexFile(DataDirectory::indexFile);
  controller.setCatalogNumbersDownloadFile(DataDirectory::downloadFile);
}

void Stage::start(const DataDirectory& directory) {
  configure(directory);
  std::ignore = controller.init();  // a test may begin on data that is not there yet
  controller.setKeyscoutEnabled(True);
}

void Stage::press(std::int16_t keyCode, std::int16_t shift) {
  form->keyDown(keyCode, shift);
  form->keyUp(keyCode, shift);
}

Strings Stage::takeTrace() {
  Strings lines;
  for (const TraceCall& call : trace->take()) {
    switch (call.kind) {
      case TraceCall::Kind::enterProcedure: lines.push_back("> " + toUtf8(call.procName)); break;
      case TraceCall::Kind::exitProcedure: lines.push_back("< " + toUtf8(call.procName)); break;
      case TraceCall::Kind::reportError:
        lines.push_back("! " + toUtf8(call.procName) + " " + std::to_string(call.errorNumber));
        break;
      case TraceCall::Kind::traceMessage:
      case TraceCall::Kind::logMessage: lines.push_back("- " + toUtf8(call.text)); break;
    }
  }
  return lines;
}

keyscoutModule& shared() { return keyscoutModule::ofThisThread(); }

}  // namespace keyscout::test
