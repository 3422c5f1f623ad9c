#include "apps/cli/play/session_view.h"

#include <algorithm>
#include <map>

#include "apps/cli/sentences/in_quotes.h"
#include "lookup/list_limits.h"

namespace keyscout {
namespace {

constexpr std::size_t boxWidth = 46;

/// How many columns `text`, in UTF-8, takes up.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string padded(std::string text, std::size_t width) {
  text.append(width - std::min(width, widthOf(text)), ' ');
  return text;
}

std::string rule(std::size_t width) {
  std::string line;
  for (std::size_t i = 0; i < width; ++i) line += "─";
  return line;
}

/// A value as a person would read it: texts without quotes.
std::string plain(const Json& value) {
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The command in a few words: its name, then what it was given.
std::string wordsFor(const Json& command) {
  std::string words;
  for (const auto& [name, value] : command.items()) {
    if (name == "control") continue;
    if (!words.empty()) words += ' ';
    words += plain(value);
  }
  return words;
}

std::string wordsForEvents(const Json& events) {
  std::string words;
  for (const Json& event : events) {
    if (!words.empty()) words += ", ";
    words += plain(event["name"]);
    std::string arguments;
    for (const Json& argument : event["args"])
      arguments += (arguments.empty() ? "" : ", ") + plain(argument);
    if (!arguments.empty()) words += '(' + arguments + ')';
  }
  return words;
}

}  // namespace

void SessionView::heading(const std::string& comment) {
  const auto text = comment.find_first_not_of("# ");
  if (text == comment.npos) return;
  if (!afterHeading_) out_ << '\n';
  afterHeading_ = true;
  out_ << style_.strong(comment.substr(text)) << '\n';
}

void SessionView::show(const std::string& commandLine, const Json& answer) {
  afterHeading_ = false;
  const Json command = Json::parse(commandLine, nullptr, false);
  out_ << "  > " << (command.is_object() ? wordsFor(command) : commandLine) << '\n';
  showAnswer(answer);
  showFocusedControl();
}

void SessionView::showAnswer(const Json& answer) {
  if (answer.contains("malformed"))
    out_ << "    not understood: " << plain(answer["malformed"]) << '\n';
  if (answer.contains("error"))
    out_ << "    error " << answer["error"]["number"] << ": "
         << plain(answer["error"]["description"]) << '\n';
  if (!answer["result"].is_null() && !answer["result"].is_object())
    out_ << "    = " << plain(answer["result"]) << '\n';
  for (const Json& message : answer["messages"]) {
    out_ << "    [" << plain(message["title"]) << "] ";
    for (const char byte : plain(message["text"])) {
      if (byte == '\n')
        out_ << "\n    ";
      else if (byte != '\r')
        out_ << byte;
    }
    out_ << "  -> " << plain(message["answer"]) << '\n';
  }
  if (!answer["events"].empty()) out_ << "    events: " << wordsForEvents(answer["events"]) << '\n';
}

void SessionView::showFocusedControl() {
  const Json state = host_.focusedState();
  if (state.is_null() || state == lastShown_) return;
  lastShown_ = state;

  std::string text = plain(state["text"]);
  if (state["focus"] == "text") {
    // The caret, after as many characters as stand before it.
    std::size_t at = 0;
    for (int left = state["selStart"]; at < text.size() && (left > 0 || (text[at] & 0xC0) == 0x80);
         ++at)
      if ((text[at] & 0xC0) != 0x80) --left;
    text.insert(at, "|");
  }
  out_ << "    ┌" << rule(boxWidth) << "┐\n";
  line(text, boxWidth);
  if (state["list"].is_object() && state["list"]["dropped"]) {
    out_ << "    ├" << rule(boxWidth) << "┤\n";
    showList(state);
  }
  out_ << "    └" << rule(boxWidth) << "┘\n";
}

void SessionView::showList(const Json& state) {
  std::map<std::string, std::string> brands;
  for (const Json& record : state["catalogEntries"])
    brands[record["CatalogNumber"]] = record["CatalogBrand"];

  const Json& entries = state["list"]["entries"];
  const int selected = state["list"]["selected"];
  constexpr int rows = ListLimits::page;
  // As a drop-down list does, the selected entry stays in sight.
  const int first = std::max(0, selected - rows + 1);
  const int last = std::min(static_cast<int>(entries.size()), first + rows);
  for (int i = first; i < last; ++i) {
    const std::string number = entries[static_cast<std::size_t>(i)];
    const bool isSelected = i == selected;
    const std::string row =
        padded((isSelected ? "▸ " : "  ") + padded(visible(std::string_view{number}), 26) +
                   visible(std::string_view{brands[number]}),
               boxWidth);
    out_ << "    │" << (isSelected ? style_.inverse(row) : row) << "│\n";
  }
}

void SessionView::line(const std::string& text, std::size_t width) {
  out_ << "    │" << padded(" " + visible(std::string_view{text}), width) << "│\n";
}

}  // namespace keyscout
