// Real keys and a real mouse on the control in a container.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

#include "support/message_box_answer.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

using Events = std::vector<std::string>;

LRESULT selection(TestForm& form) { return SendMessageW(form.combo(), CB_GETCURSEL, 0, 0); }

bool hasScrollBar(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VSCROLL) != 0; }

TEST(Input, TypingOpensTheListBelowTheTextBox) {
  TestForm form;
  form.enter();
  form.type("ab");
  EXPECT_EQ(form.takeEvents(), (Events{"KeyDown 65 0", "needBrand", "Change", "KeyUp 65 0",
                                       "KeyDown 66 0", "needBrand", "Change", "KeyUp 66 0"}));
  ASSERT_TRUE(form.isOpen());
  EXPECT_EQ(form.entries().size(), 9u);
  EXPECT_EQ(form.entries()[0], "AB-100");
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_FALSE(hasScrollBar(form.dropDown()));

  const RECT list = placeOf(form.dropDown());
  const RECT box = placeOf(form.edit());
  const RECT behind = placeOf(form.combo());
  EXPECT_EQ(behind.bottom, box.bottom) << "the part that the text box hides";
  EXPECT_EQ(list.left, box.left);
  EXPECT_EQ(list.right, box.right);
  EXPECT_LE(std::abs(list.top - box.bottom), 1);
  const auto row = static_cast<int>(SendMessageW(form.dropDown(), LB_GETITEMHEIGHT, 0, 0));
  EXPECT_EQ((list.bottom - list.top) / row, 9);
}

TEST(Input, AListThatGetsShorterWhileOpenIsSizedAgain) {
  TestForm form;
  form.enter();
  form.type("cd-11");
  ASSERT_TRUE(form.isOpen());
  const LONG before = placeOf(form.dropDown()).bottom;
  form.type("5");  // five numbers are left, and fillers up to eight
  ASSERT_TRUE(form.isOpen());
  EXPECT_EQ(form.entries().size(), 8u);
  const auto row = static_cast<LONG>(SendMessageW(form.dropDown(), LB_GETITEMHEIGHT, 0, 0));
  EXPECT_EQ(placeOf(form.dropDown()).bottom, before - row);
}

TEST(Input, WalkingTheListPastItsNinthEntryAndAccepting) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.key(VK_DOWN);
  EXPECT_NE(GetFocus(), form.edit());
  EXPECT_EQ(selection(form), 0);
  form.takeEvents();
  form.key(VK_NEXT);
  EXPECT_EQ(selection(form), 8);
  EXPECT_EQ(form.entries().size(), 9u);
  form.key(VK_DOWN);
  EXPECT_EQ(form.entries().size(), 18u);
  EXPECT_EQ(selection(form), 9);
  EXPECT_TRUE(hasScrollBar(form.dropDown()));
  EXPECT_EQ(form.takeEvents(), Events{}) << "the list's keys stay inside the control";
  form.key(VK_RETURN);
  EXPECT_EQ(form.text(), "AB-109");
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_EQ(form.takeEvents(), (Events{"brandChanged BOLT", "needBrand", "Change", "KeyUp 13 0"}));
}

struct LeavingKey {
  const char* name;
  WORD key;
  WORD modifier;
  bool fromList;
};

TEST(Input, KeysThatCloseTheList) {
  for (const LeavingKey& with : {LeavingKey{"Up in the text box", VK_UP, 0, false},
                                 LeavingKey{"Enter in the text box", VK_RETURN, 0, false},
                                 LeavingKey{"Alt+Up in the text box", VK_UP, VK_MENU, false},
                                 LeavingKey{"Up on the first entry", VK_UP, 0, true},
                                 LeavingKey{"Alt+Up in the list", VK_UP, VK_MENU, true},
                                 LeavingKey{"Escape in the list", VK_ESCAPE, 0, true}}) {
    SCOPED_TRACE(with.name);
    TestForm form;
    form.enter();
    form.type("ab");
    if (with.fromList) form.key(VK_DOWN);
    ASSERT_TRUE(form.isOpen());
    form.key(with.key, with.modifier);
    VARIANT_BOOL showing = VARIANT_TRUE;
    form.control()->get_isListShowing(&showing);
    EXPECT_FALSE(showing);
    EXPECT_FALSE(form.dropDown() && IsWindowVisible(form.dropDown()));
    EXPECT_EQ(form.text(), "ab");
    EXPECT_EQ(GetFocus(), form.edit()) << "no field without a caret";
  }
}

TEST(Input, WhatIsTypedInTheListGoesOnInTheTextBox) {
  TestForm form;
  form.enter();
  form.type("cd");
  form.key(VK_DOWN);
  form.key(VK_DOWN);
  ASSERT_NE(GetFocus(), form.edit());
  form.takeEvents();
  form.type("-1");
  EXPECT_EQ(form.text(), "cd-1");
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_TRUE(form.isOpen());
  EXPECT_EQ(form.takeEvents(), (Events{"needBrand", "Change", "KeyUp 189 0", "KeyDown 49 0",
                                       "needBrand", "Change", "KeyUp 49 0"}));
  form.key(VK_DOWN);
  form.key(VK_BACK);
  EXPECT_EQ(form.text(), "cd-");
  EXPECT_EQ(GetFocus(), form.edit());
  form.type("1");
  EXPECT_EQ(form.text(), "cd-1");
}

TEST(Input, DownInAnOpenListWithoutEntriesSelectsNothing) {
  TestForm form;
  const MessageBoxAnswer box{IDNO};
  form.enter();
  form.type("ab");
  form.control()->put_selStart(0);
  form.control()->put_selLength(2);
  form.type("z");  // beyond the last table
  ASSERT_TRUE(form.isOpen());
  ASSERT_EQ(form.entries().size(), 0u);
  form.takeEvents();
  form.key(VK_DOWN);
  EXPECT_EQ(form.takeEvents(), Events{"KeyDown 40 0"});
  form.key(VK_DOWN);  // in the list
  VARIANT_BOOL locked = VARIANT_TRUE;
  form.controller().get_KeyscoutLocked(&locked);
  EXPECT_FALSE(locked);
  EXPECT_EQ(box.boxes(), 0);
  form.type("1");
  EXPECT_EQ(form.text(), "z1");
}

TEST(Input, TextThatComesWithoutTheFocusIsNotLookedUp) {
  TestForm form;
  const MessageBoxAnswer box{IDNO};
  SetFocus(form.otherField());
  form.pump();
  form.takeEvents();
  SetWindowTextW(form.edit(), L"ab");
  EXPECT_EQ(form.takeEvents(), (Events{"needBrand", "Change"}));
  const wchar_t letter[] = L"c";
  SendMessageW(form.edit(), EM_REPLACESEL, TRUE, std::bit_cast<LPARAM>(&letter));
  form.pump();
  VARIANT_BOOL locked = VARIANT_TRUE;
  form.controller().get_KeyscoutLocked(&locked);
  EXPECT_FALSE(locked);
  EXPECT_EQ(box.boxes(), 0);
  EXPECT_EQ(GetFocus(), form.otherField());
  SetWindowTextW(form.edit(), L"a");
  form.enter();
  form.key(VK_END);
  form.type("b");
  EXPECT_EQ(form.text(), "ab");
  EXPECT_TRUE(form.isOpen());
}

TEST(Input, AQuickSecondPressOfAnyOtherButtonIsAPress) {
  TestForm form;
  form.enter();
  SendMessageW(form.edit(), WM_MBUTTONDBLCLK, MK_MBUTTON, MAKELPARAM(20, 5));
  EXPECT_EQ(form.takeEvents(), Events{"MouseDown 4 0 20 5"});
  SendMessageW(form.edit(), WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(20, 5));
  EXPECT_EQ(form.takeEvents(), Events{"MouseDown 2 0 20 5"});
}

TEST(Input, ARightPressOnTheTextBoxClosesTheListAndBringsTheMenu) {
  TestForm form;
  form.enter();
  form.type("ab");
  ASSERT_TRUE(form.isOpen());
  form.takeEvents();
  const MessageBoxAnswer menu{IDNO};
  const RECT box = placeOf(form.edit());
  form.click({box.left + 20, box.top + 9}, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(menu.menus(), 1);
  const Events events = form.takeEvents();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].substr(0, 13), "MouseDown 2 0");
  EXPECT_EQ(events[1].substr(0, 11), "MouseUp 2 0");
}

TEST(Input, AClickOnAnEntryAcceptsIt) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.takeEvents();
  form.click(form.entryOnScreen(3));
  EXPECT_EQ(form.text(), "AB-103");
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_EQ(form.takeEvents(), (Events{"brandChanged BOLT", "needBrand", "Change"}));
}

TEST(Input, AClickBesideTheListClosesIt) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.key(VK_DOWN);
  const RECT window = placeOf(form.window());
  form.click({window.right - 20, window.bottom - 20});
  EXPECT_EQ(GetFocus(), form.edit()) << "no field without a caret";
  VARIANT_BOOL showing = VARIANT_TRUE;
  form.control()->get_isListShowing(&showing);
  EXPECT_FALSE(showing);
  EXPECT_FALSE(form.dropDown() && IsWindowVisible(form.dropDown()));
  EXPECT_EQ(form.text(), "ab");
  form.type("-");
  EXPECT_TRUE(form.isOpen());
}

TEST(Input, AClickOnATextBoxWhileAListIsOpenIsItsOwn) {
  TestForm form{2};
  const auto clickOn = [&](int which) {
    const RECT box = placeOf(form.edit(which));
    form.click({box.right - 9, box.top + 9});
  };
  for (const int which : {0, 1}) {
    SCOPED_TRACE(which);
    form.enter(1);
    form.control(1)->put_text(nullptr);
    form.type("ab");
    form.key(VK_DOWN);
    ASSERT_TRUE(form.isOpen(1));
    form.takeEvents();
    clickOn(which);
    EXPECT_FALSE(form.isOpen(1));
    EXPECT_EQ(GetFocus(), form.edit(which));
    const Events events = form.takeEvents();
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0].substr(0, 9), "MouseDown");
    EXPECT_EQ(events[1].substr(0, 7), "MouseUp");
    EXPECT_EQ(events[2], "Click");
    form.type("c");
    EXPECT_EQ(form.text(which), which == 1 ? "abc" : "c");
  }
}

TEST(Input, AQuickSecondPressBesideTheListIsTheTextBoxesToo) {
  TestForm form;
  form.enter();
  form.type("ab");
  ASSERT_TRUE(form.isOpen());
  form.takeEvents();
  POINT at{20, 5};
  MapWindowPoints(form.edit(), form.dropDown(), &at, 1);
  SendMessageW(form.dropDown(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  EXPECT_EQ(form.takeEvents(), Events{"MouseDown 1 0 20 5"});
}

TEST(Input, AClickIsPressAndReleaseOfTheLeftButton) {
  TestForm form;
  form.enter();
  constexpr LPARAM at = MAKELPARAM(20, 5);
  SendMessageW(form.edit(), WM_RBUTTONDOWN, MK_RBUTTON, at);
  SendMessageW(form.edit(), WM_LBUTTONUP, MK_RBUTTON, at);
  SendMessageW(form.edit(), WM_LBUTTONDOWN, MK_LBUTTON, at);
  SendMessageW(form.edit(), WM_MBUTTONUP, MK_LBUTTON, at);
  const Events events = form.takeEvents();
  EXPECT_EQ(events.size(), 4u);
  EXPECT_FALSE(std::ranges::count(events, "Click"));
  SendMessageW(form.edit(), WM_LBUTTONDOWN, MK_LBUTTON, at);
  SendMessageW(form.edit(), WM_LBUTTONUP, 0, at);
  EXPECT_EQ(form.takeEvents().back(), "Click");
}

TEST(Input, OnlyALookupOpensTheList) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.key(VK_DOWN);
  form.key(VK_ESCAPE);
  ASSERT_FALSE(form.isOpen());
  form.key(VK_F4);
  EXPECT_FALSE(IsWindowVisible(form.dropDown()));
  form.key(VK_DOWN, VK_MENU);
  EXPECT_FALSE(IsWindowVisible(form.dropDown()));
  const HWND window = form.window();
  form.key(VK_F4, VK_MENU);
  EXPECT_FALSE(IsWindow(window)) << "Alt+F4 closes the form all the same";
}

TEST(Input, AKeyThatTheHostTakesAwayTypesNothing) {
  TestForm form;
  form.enter();
  form.onEvent = [](const std::string& name, DISPPARAMS& arguments) {
    if (name == "KeyDown") *arguments.rgvarg[1].piVal = 0;
  };
  form.type("a");
  EXPECT_EQ(form.text(), "");
  EXPECT_EQ(form.takeEvents(), (Events{"KeyDown 65 0", "KeyUp 65 0"}));
}

TEST(Input, TheFocusLeavesForAnotherFieldAndComesBack) {
  TestForm form{2};
  form.enter(0);
  form.type("ab");
  ASSERT_TRUE(form.combo(0));
  SetFocus(form.otherField());
  form.pump();
  EXPECT_FALSE(form.isOpen(0));
  form.enter(0);
  EXPECT_TRUE(form.combo(0)) << "a list waits with the focus";
  form.enter(1);
  EXPECT_FALSE(form.combo(0)) << "and goes with it";
  form.type("cd");
  EXPECT_TRUE(form.isOpen(1));
  EXPECT_EQ(form.text(0), "ab");
  EXPECT_EQ(form.text(1), "cd");
}

TEST(Input, TheWheelScrollsTheOpenList) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.key(VK_DOWN);
  form.key(VK_NEXT);
  form.key(VK_DOWN);
  form.key(VK_PRIOR);
  form.key(VK_PRIOR);
  ASSERT_EQ(SendMessageW(form.dropDown(), LB_GETTOPINDEX, 0, 0), 0);
  SendMessageW(GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
  EXPECT_GT(SendMessageW(form.dropDown(), LB_GETTOPINDEX, 0, 0), 0);
  EXPECT_EQ(selection(form), 0);
}

TEST(Input, HoveringSelectsNothing) {
  TestForm form;
  form.enter();
  form.type("ab");
  const POINT at = form.entryOnScreen(4);
  SetCursorPos(at.x, at.y);
  form.pump();
  form.key(VK_RETURN);
  EXPECT_EQ(form.text(), "ab") << "the entry under the pointer was not chosen";
  EXPECT_FALSE(form.isOpen());
}

TEST(Input, MouseReportsOfTheTextBox) {
  TestForm form;
  form.enter();
  const RECT box = placeOf(form.edit());
  form.click({box.left + 12, box.top + 8});
  const Events events = form.takeEvents();
  ASSERT_EQ(events.size(), 3u);
  EXPECT_EQ(events[0].substr(0, 13), "MouseDown 1 0");
  EXPECT_EQ(events[1].substr(0, 11), "MouseUp 1 0");
  EXPECT_EQ(events[2], "Click");

  form.click({box.left + 12, box.top + 8});
  const Events second = form.takeEvents();
  ASSERT_EQ(second.size(), 2u) << "the second click of a double click is none by itself";
  EXPECT_EQ(second[0], "DblClick");
  EXPECT_EQ(second[1].substr(0, 7), "MouseUp");
}

}  // namespace
}  // namespace keyscout
