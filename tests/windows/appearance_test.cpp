// How the control looks: sizes, the list below the text box, direction, and its picture.

#include <gtest/gtest.h>

#include <olectl.h>

#include <algorithm>
#include <bit>

#include "platform/win32/gdi.h"
#include "platform/win32/parameters.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

RECT insideOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return area;
}

int lineHeightOf(HWND window) {
  const WindowContext context{window};
  const Selected font{context, pointerIn<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0))};
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  return metrics.tmHeight;
}

void tell(TestForm& form, DISPID ambient, VARIANT value) {
  form.site().ambients[ambient] = value;
  form.site().controlAs<IOleControl>()->OnAmbientPropertyChange(ambient);
  form.pump();
}

void setFont(TestForm& form, int points) {
  wchar_t name[] = L"Tahoma";
  FONTDESC description{sizeof description, name, {}, 400, 0, FALSE, FALSE, FALSE};
  description.cySize.int64 = 10000 * points;
  VARIANT font{};
  font.vt = VT_DISPATCH;
  ASSERT_EQ(
      OleCreateFontIndirect(&description, IID_IDispatch, std::bit_cast<void**>(&font.pdispVal)),
      S_OK);
  tell(form, DISPID_AMBIENT_FONT, font);
  form.site().ambients.erase(DISPID_AMBIENT_FONT);
  font.pdispVal->Release();
}

void setRightToLeft(TestForm& form, bool rightToLeft) {
  VARIANT value{};
  value.vt = VT_BOOL;
  value.boolVal = toVariantBool(rightToLeft);
  tell(form, DISPID_AMBIENT_RIGHTTOLEFT, value);
}

/// The colours of the pixels of `window` as it is on the screen, row by row.
class ScreenPicture {
 public:
  explicit ScreenPicture(HWND window) : place_(placeOf(window)) {
    UpdateWindow(window);
    const WindowContext screen;
    bitmap_ = CreateCompatibleBitmap(screen, width(), height());
    before_ = SelectObject(context_, bitmap_);
    BitBlt(context_, 0, 0, width(), height(), screen, place_.left, place_.top, SRCCOPY);
  }
  ~ScreenPicture() {
    SelectObject(context_, before_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  ScreenPicture(const ScreenPicture&) = delete;
  ScreenPicture& operator=(const ScreenPicture&) = delete;

  COLORREF at(int x, int y) const { return GetPixel(context_, x, y); }
  int width() const { return place_.right - place_.left; }
  int height() const { return place_.bottom - place_.top; }

 private:
  RECT place_;
  HDC context_ = CreateCompatibleDC(nullptr);
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

/// The open list: below the text box and at least as wide, with all of its nine rows and no scroll
/// bar.
void expectWholeList(TestForm& form) {
  ASSERT_TRUE(form.isOpen());
  const RECT box = placeOf(form.edit());
  const HWND list = form.dropDown();
  const RECT place = placeOf(list);
  EXPECT_EQ(place.left, box.left);
  EXPECT_GE(place.right, box.right);
  EXPECT_EQ(place.top, box.bottom);
  const int line = lineHeightOf(form.edit());
  EXPECT_GE(insideOf(form.edit()).bottom, line) << "the text is not cut";
  const RECT inside = insideOf(list);
  EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 9);
  EXPECT_EQ(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0), line);
  EXPECT_EQ(inside.bottom, 9 * line);
  EXPECT_EQ(inside.right, place.right - place.left - 2 * GetSystemMetrics(SM_CXBORDER));
}

TEST(Appearance, NineEntriesBelowTheTextBoxInAnyFont) {
  for (const int points : {7, 9, 14, 24}) {
    SCOPED_TRACE(points);
    TestForm form;
    setFont(form, points);
    form.enter();
    form.type("a");
    expectWholeList(form);
    form.type("b");  // filled anew while open
    expectWholeList(form);
    setFont(form, 2 * points);  // while the list is there
    expectWholeList(form);
  }
}

TEST(Appearance, TheListIsAsWideAsTheControl) {
  TestForm form;
  form.enter();
  for (const int width : {120, 300}) {
    form.site().moveTo({20, 10, 20 + width, 34});
    form.control()->put_text(nullptr);
    form.type("ab");
    expectWholeList(form);
    EXPECT_EQ(placeOf(form.dropDown()).right - placeOf(form.dropDown()).left, width);
  }
}

int widthOfText(HWND window, const std::wstring& text) {
  const WindowContext context{window};
  const Selected font{context, pointerIn<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0))};
  SIZE size{};
  GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

/// Puts one more number of `length` characters into the first table, behind all others.
void addLongNumber(TestForm& form, std::size_t length) {
  std::string table;
  for (const std::string& number : {std::string{"AB-100"}, "AB-1" + std::string(length - 4, 'W')})
    table += "1         " + number + std::string(60 - number.size(), ' ') + "ACME\r\n";
  form.folder().write(L"0.txt", table);
}

TEST(Appearance, TheListIsAsWideAsItsWidestEntryAndStaysOnTheScreen) {
  const int screen = GetSystemMetrics(SM_CXSCREEN);
  for (const bool rightToLeft : {false, true})
    for (const int left : {400, screen - 130}) {
      SCOPED_TRACE(testing::Message() << rightToLeft << left);
      TestForm form;
      addLongNumber(form, 40);
      SetWindowPos(form.window(), nullptr, left, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
      form.site().moveTo({10, 10, 110, 34});
      setRightToLeft(form, rightToLeft);
      form.enter();
      form.type("ab");
      ASSERT_TRUE(form.isOpen());
      const RECT box = placeOf(form.edit());
      const RECT list = placeOf(form.dropDown());
      const int needed = widthOfText(form.dropDown(), L"AB-1" + std::wstring(36, L'W'));
      EXPECT_GT(insideOf(form.dropDown()).right, needed);
      EXPECT_LT(insideOf(form.dropDown()).right, needed + 40);
      EXPECT_GE(list.left, 0);
      EXPECT_LE(list.right, screen);
      if (rightToLeft && box.right - (list.right - list.left) >= 0) {
        EXPECT_EQ(list.right, box.right);
      }
      if (!rightToLeft && left == 400) {
        EXPECT_EQ(list.left, box.left);
      }
      form.type("-100");  // and no wider than the text box without it
      form.control()->put_text(nullptr);
      form.type("cd");
      EXPECT_EQ(placeOf(form.dropDown()).right - placeOf(form.dropDown()).left, 100);
    }
}

TEST(Appearance, WhatTheScreenIsTooNarrowForIsCutAtItsEnd) {
  for (const bool rightToLeft : {false, true}) {
    SCOPED_TRACE(rightToLeft);
    TestForm form;
    addLongNumber(form, 60);
    setRightToLeft(form, rightToLeft);
    setFont(form, 40);  // wider than the screen
    form.enter();
    form.type("ab");
    ASSERT_TRUE(form.isOpen());
    const HWND list = form.dropDown();
    EXPECT_EQ(placeOf(list).right - placeOf(list).left, GetSystemMetrics(SM_CXSCREEN));
    form.pump();
    const ScreenPicture picture{list};
    // In the upper half of its line an ellipsis is empty, and no part of the number is.
    const int line = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    const int dots = widthOfText(list, L"...");
    int emptyColumns = 0;
    for (int x = picture.width() - 5; x > 0; --x, ++emptyColumns) {
      bool ink = false;
      for (int y = line + line / 4; y < line + line / 2; ++y)
        ink = ink || picture.at(x, y) == GetSysColor(COLOR_WINDOWTEXT);
      if (ink) break;
    }
    EXPECT_GE(emptyColumns, dots / 2) << "an ellipsis";
  }
}

TEST(Appearance, DisabledAndReadOnlyFieldsLookSo) {
  TestForm form;
  const auto background = [&] {
    form.pump();
    const ScreenPicture picture{form.edit()};
    const COLORREF corner = picture.at(4, 3);  // above the line
    EXPECT_EQ(picture.at(picture.width() - 8, picture.height() / 2), corner);
    EXPECT_EQ(picture.at(4, picture.height() - 4), corner);
    return corner;
  };
  const COLORREF window = GetSysColor(COLOR_WINDOW);
  const COLORREF face = GetSysColor(COLOR_BTNFACE);
  ASSERT_NE(window, face);
  EXPECT_EQ(background(), window);
  form.control()->put_Locked(VARIANT_TRUE);
  EXPECT_EQ(background(), face);
  form.control()->put_Locked(VARIANT_FALSE);
  EXPECT_EQ(background(), window);
  form.control()->put_Enabled(VARIANT_FALSE);
  EXPECT_EQ(background(), face);
  VARIANT yellow{};
  yellow.vt = VT_I4;
  yellow.lVal = RGB(255, 255, 0);
  form.control()->put_BackColor(yellow);
  EXPECT_EQ(background(), static_cast<COLORREF>(RGB(255, 255, 0))) << "the host's own";
}

TEST(Appearance, TheTextStandsInTheMiddleOfItsBox) {
  for (const int points : {7, 9, 14, 24}) {
    SCOPED_TRACE(points);
    TestForm form;
    setFont(form, points);
    const HWND edit = form.edit();
    POINT corner{};
    ClientToScreen(edit, &corner);
    const int above = corner.y - placeOf(edit).top;
    const int below = placeOf(edit).bottom - corner.y - insideOf(edit).bottom;
    EXPECT_LE(std::abs(above - below), 1);
    EXPECT_LE(insideOf(edit).bottom - lineHeightOf(edit), 2) << "no room that is on one side only";
  }
}

TEST(Appearance, AFormThatCodeMovesTakesTheOpenListAlong) {
  TestForm form;
  form.enter();
  form.type("ab");
  ASSERT_TRUE(form.isOpen());
  SetWindowPos(form.window(), nullptr, 200, 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  expectWholeList(form);
  EXPECT_EQ(GetFocus(), form.edit());
  form.type("-1");
  expectWholeList(form);
  ShowWindow(form.window(), SW_HIDE);
  EXPECT_FALSE(IsWindowVisible(form.dropDown()));
  VARIANT_BOOL showing = VARIANT_TRUE;
  form.control()->get_isListShowing(&showing);
  EXPECT_FALSE(showing);
}

TEST(Appearance, DirectionReachesBothWindows) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.control()->put_selStart(1);
  const auto expectDirection = [&](bool rightToLeft) {
    constexpr LONG_PTR listBits = WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR;
    EXPECT_EQ(GetWindowLongPtrW(form.dropDown(), GWL_EXSTYLE) & listBits,
              rightToLeft ? listBits : 0);
    EXPECT_EQ(GetWindowLongPtrW(form.edit(), GWL_EXSTYLE) & WS_EX_RIGHT,
              rightToLeft ? WS_EX_RIGHT : 0);
    EXPECT_EQ(GetWindowLongPtrW(form.edit(), GWL_STYLE) & ES_RIGHT, rightToLeft ? ES_RIGHT : 0);
    const auto first = static_cast<short>(LOWORD(SendMessageW(form.edit(), EM_POSFROMCHAR, 0, 0)));
    EXPECT_GE(first, 0) << "the text is scrolled out of sight";
    EXPECT_EQ(first > insideOf(form.edit()).right / 2, rightToLeft);
  };
  expectDirection(false);
  for (const bool rightToLeft : {true, false}) {
    SCOPED_TRACE(rightToLeft);
    form.takeEvents();
    setRightToLeft(form, rightToLeft);
    expectDirection(rightToLeft);
    EXPECT_EQ(form.takeEvents(), Log{});
    EXPECT_EQ(form.text(), "ab");
    short start = 0;
    form.control()->get_selStart(&start);
    EXPECT_EQ(start, 1);
    EXPECT_EQ(GetFocus(), form.edit());
    expectWholeList(form);
  }
  setRightToLeft(form, true);
  form.control()->put_text(nullptr);
  SetFocus(form.otherField());
  form.enter();  // with a list made afresh
  form.type("ab");
  expectDirection(true);
}

TEST(Appearance, DirectionChangesInsideAChange) {
  TestForm form;
  form.control()->put_TheToolTipText(Bstr{u"tip"}.get());
  form.enter();
  bool rightToLeft = false;
  form.onEvent = [&](const std::string& name, DISPPARAMS&) {
    if (name != "Change") return;
    rightToLeft = !rightToLeft;
    VARIANT& value = form.site().ambients[DISPID_AMBIENT_RIGHTTOLEFT];
    value.vt = VT_BOOL;
    value.boolVal = toVariantBool(rightToLeft);
    form.site().controlAs<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_RIGHTTOLEFT);
  };
  form.type("ab-1");
  form.onEvent = nullptr;
  EXPECT_EQ(form.text(), "ab-1");
  expectWholeList(form);
  BSTR tip = nullptr;
  form.control()->get_TheToolTipText(&tip);
  EXPECT_EQ(takeText(tip), "tip");
  int edits = 0;
  for (HWND edit = nullptr; (edit = FindWindowExW(form.surface(), edit, L"EDIT", nullptr));)
    ++edits;
  EXPECT_EQ(edits, 1);
}

/// How a container may have the control draw itself.
enum class Way { direct, metafile, upsideDown, upwards };

/// What the control draws of itself, on a bitmap of `width` by `height`.
class Picture {
 public:
  Picture(TestForm& form, int width, int height, Way way = Way::direct)
      : size_{width, height}, context_(CreateCompatibleDC(nullptr)) {
    bitmap_ = CreateCompatibleBitmap(WindowContext{}, width, height);
    before_ = SelectObject(context_, bitmap_);
    const auto view = form.site().controlAs<IViewObject2>();
    const auto draw = [&](HDC target) {
      RECTL bounds{0, 0, width, height};
      if (way == Way::upsideDown || way == Way::upwards) std::swap(bounds.top, bounds.bottom);
      EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &bounds,
                           nullptr, nullptr, 0),
                S_OK);
    };
    if (way != Way::metafile) {
      const int state = SaveDC(context_);
      const int mode = way == Way::upwards ? MM_ANISOTROPIC : MM_TEXT;
      SetMapMode(context_, mode);
      if (way == Way::upwards) {
        SetViewportExtEx(context_, 1, -1, nullptr);
        SetViewportOrgEx(context_, 0, height, nullptr);
      }
      draw(context_);
      EXPECT_EQ(GetMapMode(context_), mode) << "the container's context is as it was";
      RestoreDC(context_, state);
      return;
    }
    const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    draw(recorder);
    const HENHMETAFILE recorded = CloseEnhMetaFile(recorder);
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(recorded, sizeof header, &header);
    const RECT whole{header.rclBounds.left, header.rclBounds.top, header.rclBounds.right,
                     header.rclBounds.bottom};
    EXPECT_TRUE(PlayEnhMetaFile(context_, recorded, &whole));
    DeleteEnhMetaFile(recorded);
  }
  ~Picture() {
    SelectObject(context_, before_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// The smallest rectangle inside the border with all pixels of `color`.
  RECT extentOf(COLORREF color) const {
    constexpr int border = 3;
    RECT extent{size_.cx, size_.cy, 0, 0};
    for (int y = border; y < size_.cy - border; ++y)
      for (int x = border; x < size_.cx - border; ++x) {
        if (GetPixel(context_, x, y) != color) continue;
        extent = {std::min<LONG>(extent.left, x), std::min<LONG>(extent.top, y),
                  std::max<LONG>(extent.right, x), std::max<LONG>(extent.bottom, y)};
      }
    return extent;
  }

 private:
  SIZE size_;
  HDC context_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

TEST(Appearance, ThePictureIsAsSharpAsItsTarget) {
  TestForm form;
  form.control()->put_text(Bstr{u"HH-100"}.get());
  const RECT box = placeOf(form.surface());
  const int width = box.right - box.left;
  const int height = box.bottom - box.top;
  const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
  for (const bool rightToLeft : {false, true})
    for (const Way way : {Way::direct, Way::metafile, Way::upsideDown, Way::upwards})
      for (const int factor : {1, 2, 4}) {
        SCOPED_TRACE(testing::Message() << rightToLeft << static_cast<int>(way) << factor);
        setRightToLeft(form, rightToLeft);
        const Picture picture{form, factor * width, factor * height, way};
        const RECT text = picture.extentOf(ink);
        ASSERT_LT(text.left, text.right);
        EXPECT_EQ(text.left > factor * width / 2, rightToLeft);
        EXPECT_EQ(text.right > factor * width / 2, rightToLeft);
        EXPECT_GT(text.bottom - text.top, factor * 5) << "as large as the target";
        EXPECT_LT(text.bottom - text.top, factor * height / 2) << "and whole";
      }
}

TEST(Appearance, ThePictureShowsColoursAndWhatIsDisabled) {
  TestForm form;
  form.control()->put_text(Bstr{u"HH-100"}.get());
  const auto hasInk = [&](COLORREF color) {
    const Picture picture{form, 400, 48};
    const RECT ink = picture.extentOf(color);
    return ink.left < ink.right;
  };
  VARIANT red{};
  red.vt = VT_I4;
  red.lVal = RGB(200, 0, 0);
  form.control()->put_ForeColor(red);
  EXPECT_TRUE(hasInk(RGB(200, 0, 0)));
  form.control()->put_Enabled(VARIANT_FALSE);
  EXPECT_FALSE(hasInk(RGB(200, 0, 0)));
  EXPECT_TRUE(hasInk(GetSysColor(COLOR_GRAYTEXT)));
}

}  // namespace
}  // namespace keyscout
