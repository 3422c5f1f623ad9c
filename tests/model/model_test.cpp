// Random sessions on two controls, and on two fields that are written as plainly as can be: what a
// host and a person see must be the same after every step.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <random>

#include "base/utf8.h"
#include "model/plain_catalog.h"
#include "model/plain_form.h"
#include "platform/local/local_platform.h"
#include "platform/memory/memory_form.h"
#include "support/memory_files.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

struct Step {
  enum Kind {
    focus,
    leave,
    type,
    paste,
    press,
    click,
    mouse,  // a person
    setText,
    setBrand,
    doit,
    hideList,
    lock,
    unlock,
    enable,
    disable,
    restart,
    allow,
    answer
  };

  Kind kind;
  std::size_t field = 0;
  int number = 0;  // a key, an entry, or yes and no
  int shift = 0;
  std::string text = {};
  int times = 1;  // that a key is pressed
};

constexpr const char* names[] = {"focus",  "leave",   "type",     "paste",   "press",    "click",
                                 "mouse",  "setText", "setBrand", "doit",    "hideList", "lock",
                                 "unlock", "enable",  "disable",  "restart", "allow",    "answer"};

std::string describe(const Step& step) {
  return std::string{names[step.kind]} + " field " + std::to_string(step.field) + " " +
         std::to_string(step.number) + " shift " + std::to_string(step.shift) + " \"" + step.text +
         "\" times " + std::to_string(step.times);
}

/// How the two sides tell what they show.
std::string describe(const std::string& text, std::size_t caret, bool hasList,
                     const Strings& entries, int selected, bool isDropped, bool redraws,
                     const std::vector<int>& flags, const Strings& events) {
  std::string told = "\"" + text + "\" " + std::to_string(caret);
  if (hasList) {
    told += isDropped ? " open " : " closed ";
    told += std::to_string(selected) + (redraws ? "" : " not drawn") + " of";
    for (const std::string& entry : entries) told += " '" + entry + "'";
  }
  told += " flags";
  for (const int flag : flags) told += " " + std::to_string(flag);
  for (const std::string& event : events) told += " " + event;
  return told + "\n";
}

class Plain {
 public:
  explicit Plain(const PlainCatalog& catalog) { form_.catalog = &catalog; }

  void run(const Step& step) {
    PlainField& field = fields_[step.field];
    switch (step.kind) {
      case Step::focus: return form_.moveFocus(&field, PlainForm::Place::text);
      case Step::leave: return form_.moveFocus(nullptr, PlainForm::Place::text);
      case Step::type: return PlainField::type(form_, step.text.front());
      case Step::paste: return PlainField::paste(form_, step.text);
      case Step::press:
        for (int i = 0; i < step.times; ++i) PlainField::press(form_, step.number, step.shift);
        return;
      case Step::click: return field.click(step.number);
      case Step::mouse: return field.releaseMouse();
      case Step::setText: return field.setText(step.text);
      case Step::setBrand: field.brand = step.text; return;
      case Step::doit: try { field.doit();
        } catch (const std::exception&) {
          field.events.emplace_back("failed");
        }
        return;
      case Step::hideList: return field.hideList();
      case Step::lock: form_.locked = true; return;
      case Step::unlock: form_.locked = false; return;
      case Step::enable: form_.enabled = true; return;
      case Step::disable: form_.enabled = false; return;
      case Step::restart: form_.restartsSearch = true; return;
      case Step::allow:
        form_.allowed.reset();
        if (!step.text.empty()) form_.allowed.emplace().insert(step.text);
        return;
      case Step::answer: form_.userSaysYes = step.number == 1; return;
    }
  }

  std::string told() {
    std::string all;
    for (PlainField& field : fields_) {
      const PlainField::List list = field.list.value_or(PlainField::List{});
      const bool inText = form_.focused == &field && form_.place == PlainForm::Place::text;
      const bool inList = form_.focused == &field && form_.place == PlainForm::Place::list;
      all +=
          describe(field.text, field.caret, field.list.has_value(), list.entries, list.selected,
                   list.isDropped, list.redraws,
                   {inText, inList, field.isListShowing, field.listLoaded, field.tableLoadPending,
                    field.endOfCatalogReached, field.suppressAccept, field.currentTable},
                   std::exchange(field.events, {}));
    }
    return all + (form_.locked ? "locked " : "") + std::to_string(form_.messages);
  }

  bool hasOpenList(std::size_t field) const {
    return fields_[field].list && fields_[field].list->isDropped;
  }
  int entryCount(std::size_t field) const {
    return static_cast<int>(fields_[field].list->entries.size());
  }

 private:
  PlainForm form_;
  std::array<PlainField, 2> fields_{PlainField{form_}, PlainField{form_}};
};

class Real {
 public:
  explicit Real(const PlainCatalog& catalog) {
    Strings index;
    for (const auto& table : catalog.index)
      index.push_back(indexLine(table.number, {table.first, ""}, {table.last, ""}));
    put(u"index", index);
    for (const auto& [name, lines] : catalog.files) put(fromUtf8(name), lines);
    put(u"brandinfo.txt", catalog.brands);
    put(u"catcontrol.txt", {"READY"});
    put(u"download", {"FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]"});
    controller_.setKeyscoutDirectory(u"catalog");
    controller_.setKeyscoutIndexFile(u"index");
    controller_.setCatalogNumbersDownloadFile(u"download");
    EXPECT_TRUE(controller_.init());
    controller_.setKeyscoutEnabled(True);
    for (auto& field : fields_) field = std::make_unique<StagedControl>(platform_, form_);
  }
  void run(const Step& step) {
    StagedControl& field = *fields_[step.field];
    keyscoutControl& control = field.control;
    const auto number = static_cast<std::int16_t>(step.number);
    const auto shift = static_cast<std::int16_t>(step.shift);
    switch (step.kind) {
      case Step::focus: return form_.moveFocus(*field.surface, FocusPlace::textBox);
      case Step::leave: return form_.leaveFocus();
      case Step::type: return form_.type(static_cast<char16_t>(step.text.front()));
      case Step::paste: return form_.paste(fromUtf8(step.text));
      case Step::press:
        for (int i = 0; i < step.times; ++i) {
          form_.keyDown(number, shift);
          form_.keyUp(number, shift);
        }
        return;
      case Step::click: return field.surface->click(number);
      case Step::mouse: return field.surface->mouse(MouseReport::up, 1, 0, 1, 1);
      case Step::setText: return control.setText(fromUtf8(step.text));
      case Step::setBrand: return control.setBrand(fromUtf8(step.text));
      case Step::doit: failed_[step.field] = errorOf([&] { control.doit(); }) != 0; return;
      case Step::hideList: return control.hideList();
      case Step::lock: return control.lockKeyscout();
      case Step::unlock: return controller_.setKeyscoutLocked(False);
      case Step::enable: return controller_.setKeyscoutEnabled(True);
      case Step::disable: return controller_.setKeyscoutEnabled(False);
      case Step::restart: controller_.resetLastTableNumber(); return;
      case Step::allow: {
        if (step.text.empty()) return control.setAuthorizedBrands(nullptr);
        const auto brands = std::make_shared<LocalBrandList>();
        brands->add(fromUtf8(step.text));
        return control.setAuthorizedBrands(brands.get());
      }
      case Step::answer:
        box_.answer = step.number == 1 ? MessageBoxButton::yes : MessageBoxButton::no;
        return;
    }
  }

  std::string told() {
    std::string all;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      StagedControl& field = *fields_[i];
      const auto list = field.surface->listView();
      const auto place = field.surface->focusPlace();
      const LookupFields& lookup = field.control.lookupFields();
      Strings events = field.events.take();
      if (std::exchange(failed_[i], false)) events.emplace_back("failed");
      all += describe(
          field.text(), static_cast<std::size_t>(field.control.selStart()), list.has_value(),
          field.entries(), field.selected(), field.isDropped(), !list || list->redraws,
          {place == FocusPlace::textBox, place == FocusPlace::list,
           static_cast<bool>(field.control.isListShowing()), static_cast<bool>(lookup.listLoaded),
           static_cast<bool>(lookup.tableLoadPending),
           static_cast<bool>(lookup.endOfCatalogReached),
           static_cast<bool>(field.control.fields().suppressAccept), lookup.currentTableIndex},
          events);
    }
    return all + (controller_.KeyscoutLocked() ? "locked " : "") +
           std::to_string(box_.texts.size());
  }

 private:
  void put(StringView name, const Strings& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    files_.put(name, bytes);
  }

  FreshThreadState freshState_;
  MemoryFiles files_;
  AnsweringBox box_;
  LocalPlatform platform_{files_, box_};
  RWKeyscoutController controller_{platform_};
  MemoryForm form_;
  std::array<std::unique_ptr<StagedControl>, 2> fields_;
  std::array<bool, 2> failed_{};
};

Step randomStep(std::mt19937& random, const PlainCatalog& catalog, const Plain& plain) {
  const auto below = [&](std::size_t limit) { return random() % limit; };
  const std::size_t field = below(8) == 0 ? 1 : 0;
  const auto number = [&]() -> std::string {
    if (catalog.index.empty()) return "A";
    const std::string whole = catalog.index[below(catalog.index.size())].last;
    return whole.substr(0, 1 + below(whole.size()));
  };
  static constexpr int keys[] = {8, 8, 13, 27, 33, 34, 35, 36, 37, 38, 40, 40, 40, 40};
  static const std::string letters = "abABab-/019";
  static const Strings brands{"", "", "ACME", "bolt", "BOLT", "NONE"};
  switch (below(40)) {
    case 0:
    case 1:
    case 2: return {Step::focus, field};
    case 3: return {Step::leave};
    case 4:
    case 5: return {Step::paste, field, 0, 0, number()};
    case 6: return {Step::setText, field, 0, 0, below(2) == 0 ? number() : ""};
    case 7: return {Step::setBrand, field, 0, 0, brands[below(brands.size())]};
    case 8: return {Step::doit, field};
    case 9: return {Step::hideList, field};
    case 10: return {below(3) == 0 ? Step::lock : Step::unlock, field};
    case 11: return {Step::unlock};
    case 12: return {below(3) == 0 ? Step::disable : Step::enable};
    case 13: return {Step::enable};
    case 14: return {Step::restart};
    case 15: return {Step::allow, field, 0, 0, below(2) == 0 ? "" : "ACME"};
    case 16: return {Step::answer, field, static_cast<int>(below(2))};
    case 17: return {Step::mouse, field};
    case 18:
    case 19:
    case 20:
      if (plain.hasOpenList(field) && plain.entryCount(field) > 0)
        return {Step::click, field,
                static_cast<int>(below(static_cast<std::size_t>(plain.entryCount(field))))};
      return {Step::press, field, 40};
    case 21: return {Step::press, field, below(2) == 0 ? 38 : 40, 4};
    case 22:
    case 23:
    case 24:  // down to the last entry, and on
      return {Step::press, field, 40, 0, "", static_cast<int>(9 + below(20))};
    default: break;
  }
  if (below(2) == 0) return {Step::press, field, keys[below(std::size(keys))]};
  return {Step::type, field, 0, 0, std::string{letters[below(letters.size())]}};
}

/// Plays the session of `seed`; what happened, where the two sides differ, else nothing.
std::string differenceOf(unsigned seed) {
  std::mt19937 random{seed};
  const PlainCatalog catalog = randomCatalog(random);
  Plain plain{catalog};
  Real real{catalog};
  std::string session = "session " + std::to_string(seed) + "\n";
  for (const auto& table : catalog.index)
    session += "index " + table.number + ": " + table.first + " to " + table.last + "\n";
  for (const auto& [name, lines] : catalog.files)
    for (const std::string& line : lines) session += name + ": " + line + "\n";

  for (int i = 0; i < 60; ++i) {
    const Step step = i == 0 ? Step{Step::focus} : randomStep(random, catalog, plain);
    session += describe(step) + "\n";
    plain.run(step);
    real.run(step);
    const std::string expected = plain.told();
    const std::string actual = real.told();
    if (actual != expected) return session + "expected:\n" + expected + "\nactual:\n" + actual;
  }
  return "";
}

// KEYSCOUT_SESSIONS=N plays N of them, KEYSCOUT_SESSION=SEED that one alone.
TEST(Model, RandomSessionsAreAsThePlainFieldSaysTheyAre) {
  const auto setting = [](const char* name, unsigned otherwise) {
    const char* const value = std::getenv(name);
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
  };
  const unsigned only = setting("KEYSCOUT_SESSION", 0);
  const unsigned first = only != 0 ? only : 1;
  const unsigned last = only != 0 ? only : setting("KEYSCOUT_SESSIONS", 1000);
  for (unsigned seed = first; seed <= last; ++seed) ASSERT_EQ(differenceOf(seed), "");
}

}  // namespace
}  // namespace keyscout::test
