// What the widgets in memory do by themselves: a script or a test that is played on them relies on
// it.

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "platform/memory/memory_surface.h"
#include "support/error_of.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

std::string named(const char* name, int code, int shift) {
  return std::string{name} + "(" + std::to_string(code) + "," + std::to_string(shift) + ")";
}

/// Notes what the text box reports; a test may act on a report and write back what it is told.
struct TextBoxNotes final : TextBoxObserver {
  explicit TextBoxNotes(Strings& reports) : log(reports) {}

  void changed() override { log.push_back("changed"); }
  void keyDown(std::int16_t& code, std::int16_t& shift) override {
    log.push_back(named("down", code, shift));
    if (keyToWriteBack >= 0) code = static_cast<std::int16_t>(keyToWriteBack);
  }
  void keyPress(std::int16_t& character) override {
    log.push_back(named("press", character, 0));
    if (characterToWriteBack >= 0) character = static_cast<std::int16_t>(characterToWriteBack);
  }
  void keyUp(std::int16_t& code, std::int16_t& shift) override {
    log.push_back(named("up", code, shift));
  }
  void clicked() override { log.push_back("click"); }
  void doubleClicked() override { log.push_back("double click"); }
  void mouseDown(std::int16_t& button, std::int16_t& shift, float&, float&) override {
    log.push_back(named("mouse down", button, shift));
  }
  void mouseMoved(std::int16_t& button, std::int16_t& shift, float&, float&) override {
    log.push_back(named("mouse moved", button, shift));
  }
  void mouseUp(std::int16_t& button, std::int16_t& shift, float& x, float& y) override {
    log.push_back(named("mouse up", button, shift) +
                  named(" at ", static_cast<int>(x), static_cast<int>(y)));
  }
  void gotFocus() override { log.push_back("text got"); }
  void lostFocus() override { log.push_back("text lost"); }

  Strings& log;
  int keyToWriteBack = -1;
  int characterToWriteBack = -1;
};

struct ListNotes final : DropDownListObserver {
  explicit ListNotes(Strings& reports) : log(reports) {}

  void keyDown(std::int16_t& code, std::int16_t& shift) override {
    log.push_back(named("list down", code, shift));
    whenKeyGoesDown();
    if (swallows) code = 0;
  }
  void keyUp(std::int16_t& code, std::int16_t& shift) override {
    log.push_back(named("list up", code, shift));
    whenKeyComesUp();
  }
  void clicked() override { log.push_back("list click"); }
  void editChanged() override {
    log.push_back("list edit");
    whenEdited();
  }

  Strings& log;
  bool swallows = false;
  std::function<void()> whenKeyGoesDown = [] {};
  std::function<void()> whenKeyComesUp = [] {};
  std::function<void()> whenEdited = [] {};
};

struct SurfaceNotes final : SurfaceObserver {
  explicit SurfaceNotes(Strings& reports) : log(reports) {}

  void resized() override { log.push_back("resized"); }
  void lostFocus() override { log.push_back("surface lost"); }
  void focusLeft() override { log.push_back("left"); }

  Strings& log;
};

class MemoryWidgets : public testing::Test {
 protected:
  MemoryWidgets() {
    surface.setObservers(&surfaceNotes, &textBoxNotes);
    form.moveFocus(surface, FocusPlace::textBox);
    log.clear();
  }
  DropDownList& addList(int entries) {
    DropDownList& list = surface.addDropDownList(u"list", listNotes);
    for (int i = 0; i < entries; ++i) list.append(u"entry");
    return list;
  }
  Strings take() { return std::exchange(log, {}); }
  std::string text() { return toUtf8(surface.textBox().text()); }

  Strings log;
  TextBoxNotes textBoxNotes{log};
  ListNotes listNotes{log};
  SurfaceNotes surfaceNotes{log};
  MemoryForm form;
  MemorySurface surface{form};
};

TEST_F(MemoryWidgets, MoveTheCaretAndEraseByKeys) {
  struct Case {
    std::string name;
    int start, length;
    std::int16_t key, shift;
    std::string text;
    int caret;
  };
  const Case cases[] = {
      {"left", 2, 0, 37, 0, "abcd", 1},
      {"left at the beginning", 0, 0, 37, 0, "abcd", 0},
      {"left of a selection", 2, 2, 37, 0, "abcd", 1},
      {"right", 2, 0, 39, 0, "abcd", 3},
      {"right at the end", 4, 0, 39, 0, "abcd", 4},
      {"right of a selection", 1, 2, 39, 0, "abcd", 4},
      {"home", 3, 0, 36, 0, "abcd", 0},
      {"end", 1, 2, 35, 0, "abcd", 4},
      {"shift and left", 2, 0, 37, 1, "abcd", 1},
      {"ctrl and left", 2, 0, 37, 2, "abcd", 2},
      {"alt and delete", 2, 0, 46, 4, "abcd", 2},
      {"backspace", 2, 0, 8, 0, "acd", 1},
      {"backspace behind the first", 1, 0, 8, 0, "bcd", 0},
      {"backspace at the beginning", 0, 0, 8, 0, "abcd", 0},
      {"backspace on a selection", 1, 2, 8, 0, "ad", 1},
      {"backspace on a selection at the beginning", 0, 2, 8, 0, "cd", 0},
      {"delete", 2, 0, 46, 0, "abd", 2},
      {"delete the last", 3, 0, 46, 0, "abc", 3},
      {"delete at the end", 4, 0, 46, 0, "abcd", 4},
      {"delete a selection", 1, 2, 46, 0, "ad", 1},
      {"down", 2, 0, 40, 0, "abcd", 2},
      {"escape", 2, 0, 27, 0, "abcd", 2},
  };
  for (const Case& c : cases) {
    surface.textBox().setText(u"abcd");
    surface.textBox().setSelStart(c.start);
    surface.textBox().setSelLength(c.length);
    take();
    form.keyDown(c.key, c.shift);
    EXPECT_EQ(text(), c.text) << c.name;
    EXPECT_EQ(surface.textBox().selStart(), c.caret) << c.name;
    EXPECT_EQ(surface.textBox().selLength(), 0) << c.name;
    Strings reports{named("down", c.key, c.shift)};
    if (c.text != "abcd") reports.push_back("changed");
    EXPECT_EQ(take(), reports) << c.name;
  }
}

TEST_F(MemoryWidgets, TakeInWhatIsTyped) {
  surface.textBox().setText(u"abcd");
  EXPECT_EQ(surface.textBox().selStart(), 0) << "a text written by code";
  surface.textBox().setText(u"abcd");
  EXPECT_EQ(take(), (Strings{"changed", "changed"})) << "the same text is a change as well";
  surface.textBox().setSelStart(1);
  surface.textBox().setSelLength(2);
  form.type(u'\u00E4');
  EXPECT_EQ(take(), (Strings{"down(196,0)", "press(228,0)", "changed", "up(196,0)"}));
  EXPECT_EQ(text(),
            "a\u00E4"
            "d");
  EXPECT_EQ(surface.textBox().selStart(), 2);
  form.paste(u"xyz");
  EXPECT_EQ(take(), Strings{"changed"});
  EXPECT_EQ(text(), "a\u00E4xyzd");
  EXPECT_EQ(surface.textBox().selStart(), 5);

  textBoxNotes.keyToWriteBack = 0;
  form.type(u'q');
  EXPECT_EQ(take(), (Strings{"down(81,0)", "up(81,0)"})) << "a key that is swallowed comes up";
  textBoxNotes.keyToWriteBack = -1;
  textBoxNotes.characterToWriteBack = 0;
  form.type(u'q');
  EXPECT_EQ(take(), (Strings{"down(81,0)", "press(113,0)", "up(81,0)"}));
  textBoxNotes.characterToWriteBack = u'z';
  form.type(u'q');
  textBoxNotes.characterToWriteBack = -1;
  EXPECT_EQ(text(), "a\u00E4xyzzd");
  for (const std::int16_t shift : {Modifier::ctrl, Modifier::alt}) form.keyDown(u'Q', shift, u'q');
  EXPECT_EQ(text(), "a\u00E4xyzzd") << "Ctrl and Alt make no character";
  form.keyDown(u'Q', Modifier::shift, u'Q');
  EXPECT_EQ(text(), "a\u00E4xyzzQd");

  for (const bool byLock : {true, false}) {
    surface.textBox().setReadOnly(byLock);
    surface.textBox().setEnabled(byLock);
    take();
    form.type(u'q');
    form.keyDown(KeyCodes::backspace, 0);
    form.keyDown(KeyCodes::home, 0);
    form.paste(u"q");
    EXPECT_EQ(take(),
              (Strings{"down(81,0)", "press(113,0)", "up(81,0)", "down(8,0)", "down(36,0)"}));
    EXPECT_EQ(text(), "a\u00E4xyzzQd");
    EXPECT_EQ(surface.textBox().selStart(), 7);
  }
  surface.textBox().setEnabled(True);
  form.leaveFocus();
  take();
  form.type(u'q');
  form.paste(u"q");
  EXPECT_EQ(take(), Strings{}) << "nothing has the focus";
  form.moveFocus(surface, FocusPlace::surface);
  form.type(u'q');
  EXPECT_EQ(take(), Strings{}) << "the surface takes no keys";
}

TEST_F(MemoryWidgets, ClipSelectionsAndRefuseNegativeOnes) {
  TextBox& textBox = surface.textBox();
  textBox.setText(u"abcd");
  textBox.setSelStart(9);
  EXPECT_EQ(textBox.selStart(), 4);
  textBox.setSelStart(1);
  textBox.setSelLength(2);
  EXPECT_EQ(errorOf([&] { textBox.setSelStart(-1); }), 380);
  EXPECT_EQ(errorOf([&] { textBox.setSelLength(-1); }), 380);
  EXPECT_EQ(textBox.selLength(), 2);
  textBox.setSelLength(9);
  EXPECT_EQ(textBox.selLength(), 3);
  textBox.setSelStart(0);
  EXPECT_EQ(textBox.selLength(), 0);
}

TEST_F(MemoryWidgets, WalkTheListByKeys) {
  struct Case {
    int entries, selected;
    std::int16_t key, shift;
    int next;
  };
  const Case cases[] = {
      {20, -1, 40, 0, 0},  {20, -1, 34, 0, 0},  {20, -1, 38, 0, -1}, {20, -1, 33, 0, -1},
      {20, -1, 36, 0, -1}, {20, -1, 35, 0, -1}, {20, 0, 40, 0, 1},   {20, 0, 38, 0, 0},
      {20, 0, 34, 0, 7},   {20, 0, 33, 0, 0},   {20, 0, 35, 0, 19},  {20, 0, 36, 0, 0},
      {20, 10, 38, 0, 9},  {20, 10, 33, 0, 3},  {20, 10, 34, 0, 17}, {20, 10, 36, 0, 0},
      {20, 15, 34, 0, 19}, {20, 19, 40, 0, 19}, {20, 19, 34, 0, 19}, {20, 6, 33, 0, 0},
      {20, 5, 37, 0, 5},   {20, 5, 40, 1, 5},   {20, 5, 40, 2, 5},   {20, 5, 40, 4, 5},
      {1, -1, 40, 0, 0},   {1, 0, 40, 0, 0},    {0, -1, 40, 0, -1},  {0, -1, 35, 0, -1},
  };
  for (const Case& c : cases) {
    DropDownList& list = addList(c.entries);
    form.moveFocus(surface, FocusPlace::list);
    if (c.selected >= 0) list.select(static_cast<std::int16_t>(c.selected));
    take();
    form.keyDown(c.key, c.shift);
    const std::string name = std::to_string(c.selected) + " by " + std::to_string(c.key);
    EXPECT_EQ(list.selectedIndex(), c.next) << name;
    Strings reports{named("list down", c.key, c.shift)};
    if (c.next != c.selected) reports.push_back("list click");
    EXPECT_EQ(take(), reports) << name;
    surface.removeChild(u"list");
  }
  DropDownList& list = addList(3);
  form.moveFocus(surface, FocusPlace::list);
  listNotes.swallows = true;
  form.type(u'q');
  form.keyDown(KeyCodes::down, 0);
  EXPECT_EQ(list.selectedIndex(), -1) << "a key that is swallowed moves nothing";
  EXPECT_EQ(std::ranges::count(log, "list edit"), 0);
}

TEST_F(MemoryWidgets, HaveEntriesFromZeroToTheLast) {
  DropDownList& list = addList(3);
  list.select(1);
  list.select(1);
  EXPECT_EQ(take(), (Strings{"list click", "list click"})) << "also where it is selected already";
  for (const std::int16_t outside : {std::int16_t{-1}, std::int16_t{3}})
    EXPECT_EQ(errorOf([&] { list.entryText(outside); }), 5);
  for (const std::int16_t outside : {std::int16_t{-2}, std::int16_t{3}})
    EXPECT_EQ(errorOf([&] { list.select(outside); }), 5);
  EXPECT_EQ(list.selectedIndex(), 1);
  list.removeFirst();
  EXPECT_EQ(list.selectedIndex(), 0) << "the selection goes along";
  list.removeFirst();
  EXPECT_EQ(list.selectedIndex(), -1);
  EXPECT_EQ(list.entryCount(), 1);
  list.select(-1);
  EXPECT_EQ(take(), Strings{"list click"});
  list.select(0);
  list.clear();
  EXPECT_EQ(take(), Strings{"list click"});
  EXPECT_EQ(list.selectedIndex(), -1);
  EXPECT_EQ(list.entryCount(), 0);
  list.select(0);
  EXPECT_EQ(list.selectedIndex(), -1) << "there is nothing to select";
  EXPECT_EQ(take(), Strings{});
  EXPECT_EQ(errorOf([&] { list.select(1); }), 5);
  EXPECT_EQ(errorOf([&] { list.removeFirst(); }), 5);
  EXPECT_EQ(errorOf([&] { surface.removeChild(u"another"); }), 5);
  surface.removeChild(u"list");
  EXPECT_EQ(errorOf([&] { surface.removeChild(u"list"); }), 5);
  EXPECT_EQ(errorOf([&] { form.moveFocus(surface, FocusPlace::list); }), 91);
}

TEST_F(MemoryWidgets, ReportTheClosingOfAListWithASelection) {
  DropDownList& list = addList(3);
  struct Case {
    int selected;
    bool show;
    Strings reports;
  };
  const Case cases[] = {
      {-1, true, {}}, {-1, false, {}}, {2, true, {}}, {2, true, {}}, {2, false, {"list click"}},
      {2, false, {}}};
  for (const Case& c : cases) {
    if (c.selected >= 0) list.select(static_cast<std::int16_t>(c.selected));
    take();
    list.showDropDown(c.show);
    EXPECT_EQ(take(), c.reports);
    EXPECT_EQ(surface.listView()->isDropped, c.show);
  }
  list.showDropDown(true);
  surface.click(1);
  EXPECT_EQ(take(), (Strings{"text lost", "list click"})) << "the focus first, and one click";
  EXPECT_EQ(list.selectedIndex(), 1);
  EXPECT_FALSE(surface.listView()->isDropped);
  list.setRedraw(false);
  EXPECT_FALSE(surface.listView()->redraws);
}

TEST_F(MemoryWidgets, HandCharactersOnFromTheListToTheText) {
  surface.textBox().setText(u"ab");
  form.keyDown(KeyCodes::end, 0);
  DropDownList& list = addList(3);
  form.moveFocus(surface, FocusPlace::list);
  take();
  form.type(u'q');
  EXPECT_EQ(take(), (Strings{"list down(81,0)", "list edit", "list up(81,0)"}));
  EXPECT_EQ(text(), "ab") << "the focus stayed in the list, so the character did";
  form.keyDown(KeyCodes::enter, 0);
  EXPECT_EQ(take(), Strings{"list down(13,0)"}) << "a carriage return is no text";

  listNotes.whenEdited = [&] { surface.textBox().setFocus(); };
  form.type(u'q');
  EXPECT_EQ(take(), (Strings{"list down(81,0)", "list edit", "text got", "press(113,0)", "changed",
                             "up(81,0)"}));
  EXPECT_EQ(text(), "abq");

  // A host that moves the focus inside a handler can make the list go with it.
  list.setFocus();
  listNotes.whenKeyGoesDown = [&] {
    form.leaveFocus();
    surface.removeChild(u"list");
  };
  form.type(u'r');
  EXPECT_FALSE(surface.hasList());
  EXPECT_EQ(text(), "abq");
  addList(1);
  form.moveFocus(surface, FocusPlace::list);
  listNotes.whenKeyGoesDown = [] {};
  listNotes.whenKeyComesUp = [&] { surface.removeChild(u"list"); };
  form.keyUp(u'R', 0);
  EXPECT_EQ(surface.focusPlace(), std::nullopt) << "a list that goes leaves the focus with nothing";
}

TEST_F(MemoryWidgets, TellOfTheMouseAndTheSize) {
  surface.mouse(MouseReport::down, 1, 2, 3, 4);
  surface.mouse(MouseReport::move, 1, 2, 3, 4);
  surface.mouse(MouseReport::up, 2, 1, 3, 4);
  surface.mouse(MouseReport::click, 1, 0, 3, 4);
  surface.mouse(MouseReport::doubleClick, 1, 0, 3, 4);
  EXPECT_EQ(take(), (Strings{"mouse down(1,2)", "mouse moved(1,2)", "mouse up(2,1) at (3,4)",
                             "click", "double click"}));
  EXPECT_EQ(surface.width(), 100);
  EXPECT_EQ(surface.textBox().width(), 100);
  surface.resize(250);
  EXPECT_EQ(surface.width(), 250);
  EXPECT_EQ(take(), Strings{"resized"});

  surface.setObservers(nullptr, nullptr);
  form.type(u'q');
  surface.mouse(MouseReport::down, 1, 0, 0, 0);
  surface.resize(10);
  surface.textBox().setText(u"quiet");
  form.leaveFocus();
  EXPECT_EQ(take(), Strings{}) << "nobody listens any more";
  EXPECT_EQ(text(), "quiet");
}

TEST_F(MemoryWidgets, KeepWhatTheyAreToldToBe) {
  TextBox& textBox = surface.textBox();
  textBox.setForeColor(1);
  textBox.setBackColor(2);
  textBox.setFontBold(True);
  textBox.setToolTipText(u"tip");
  textBox.setReadOnly(Boolean::stored(3));
  textBox.setWidth(7);
  EXPECT_EQ(textBox.foreColor(), 1);
  EXPECT_EQ(textBox.backColor(), 2);
  EXPECT_EQ(textBox.fontBold(), True);
  EXPECT_EQ(textBox.toolTipText(), u"tip");
  EXPECT_EQ(textBox.readOnly().number(), 3);
  EXPECT_EQ(textBox.width(), 7);
}

}  // namespace
}  // namespace keyscout::test
