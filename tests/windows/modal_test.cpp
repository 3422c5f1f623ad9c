// Hosts that run a message loop inside an event, with real keys and a real mouse.

#include <gtest/gtest.h>

#include "support/message_box_answer.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

POINT middleOf(HWND window) {
  const RECT place = placeOf(window);
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

/// What the person does in the loop: clicks the control, types, and takes an entry by the keyboard
/// and one by the mouse, from a list that is there at once.
void use(TestForm& form, int which) {
  form.click(middleOf(form.edit(which)));
  form.type("cd");
  EXPECT_TRUE(form.isOpen(which));
  form.key(VK_DOWN);
  form.key(VK_DOWN);
  form.type("-11");  // goes on in the text box
  EXPECT_EQ(form.text(which), "cd-11");
  form.key(VK_DOWN);
  form.key(VK_DOWN);
  form.key(VK_RETURN);
  EXPECT_EQ(form.text(which), "CD-111");
  form.control(which)->put_text(nullptr);
  form.type("c");
  form.click(form.entryOnScreen(3, which));
  EXPECT_EQ(form.text(which), "CD-103");
}

struct Loop {
  const char* event;
  bool onAnotherForm;
  bool endsFirst;  // the control whose event it is
};

const Loop loops[] = {
    {"needBrand", false, false},     {"needBrand", true, false},
    {"needBrand", false, true},      {"Change", false, false},
    {"Change", true, false},         {"Change", false, true},
    {"KeyDown", false, false},       {"KeyDown", true, false},
    {"KeyDown", false, true},        {"UpdateKeyscout", false, false},
    {"UpdateKeyscout", true, false}, {"UpdateKeyscout", false, true},
};

TEST(ModalHost, ServesAnotherControlInsideAnEvent) {
  for (const Loop& loop : loops) {
    SCOPED_TRACE(std::string{loop.event} + (loop.onAnotherForm ? ", another form" : "") +
                 (loop.endsFirst ? ", the first control ends" : ""));
    TestForm other;
    SetWindowPos(other.window(), nullptr, 600, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    TestForm form{2};
    form.site(1).moveTo({260, 50, 460, 74});  // where no list of the first one lies
    form.enter();
    const bool fails = loop.event == std::string{"UpdateKeyscout"};
    if (fails) form.folder().write(L"0.txt", "short\r\n");
    const MessageBoxAnswer box{IDYES};
    bool ran = false;
    form.onEvent = [&](const std::string& name, DISPPARAMS&) {
      if (ran || name != loop.event) return;
      ran = true;
      form.pump();  // the character of a key that went down
      if (fails) form.controller().put_KeyscoutLocked(VARIANT_FALSE);
      if (loop.endsFirst) form.site().close();
      use(loop.onAnotherForm ? other : form, loop.onAnotherForm ? 0 : 1);
      if (!loop.endsFirst) SetFocus(form.edit());
    };
    form.type("a");
    EXPECT_TRUE(ran);
    form.onEvent = nullptr;
    EXPECT_EQ(box.boxes(), fails ? 1 : 0);
    VARIANT_BOOL locked = VARIANT_TRUE;
    form.controller().get_KeyscoutLocked(&locked);
    EXPECT_FALSE(locked);
    if (loop.endsFirst) continue;
    EXPECT_EQ(form.text(), "a");
    EXPECT_EQ(GetFocus(), form.edit());
    if (fails) continue;
    form.key(VK_BACK);  // a list that was made afresh fills with a text that has not grown
    form.type("a");
    EXPECT_TRUE(form.isOpen());
    EXPECT_EQ(form.entries().front(), "AB-100");
  }
}

}  // namespace
}  // namespace keyscout
