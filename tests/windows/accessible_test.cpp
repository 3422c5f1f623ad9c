// What a screen reader learns of the control.

#include <gtest/gtest.h>

#include <oleacc.h>

#include <algorithm>

#include "support/test_form.h"

namespace keyscout {
namespace {

VARIANT child(LONG number) {
  VARIANT result{};
  result.vt = VT_I4;
  result.lVal = number;
  return result;
}

ComPtr<IAccessible> accessible(HWND window) {
  ComPtr<IAccessible> object;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                             object.putAny());
  return object;
}

std::string nameOf(HWND window, LONG number = CHILDID_SELF) {
  const auto object = accessible(window);
  BSTR name = nullptr;
  if (object) object->get_accName(child(number), &name);
  return takeText(name);
}

LONG stateOf(HWND window, LONG number = CHILDID_SELF) {
  const auto object = accessible(window);
  OwnedVariant state;
  if (object) object->get_accState(child(number), &state);
  return state.vt == VT_I4 ? state.lVal : -1;
}

HWND editPartOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  return GetComboBoxInfo(combo, &parts) ? parts.hwndItem : nullptr;
}

HWND addLabel(TestForm& form, const wchar_t* text) {
  return CreateWindowExW(0, L"STATIC", text, WS_CHILD | WS_VISIBLE, 0, 0, 20, 20, form.window(),
                         nullptr, nullptr, nullptr);
}

/// Puts the label right before the control in the order of the form.
void putBefore(TestForm& form, HWND label) {
  SetWindowPos(form.surface(), label, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

TEST(Accessible, NameIsTheLabelElseTheDisplayNameElseTheToolTip) {
  TestForm form;
  const auto expectName = [&](const char* expected) {
    form.enter();
    form.control()->put_text(nullptr);
    form.type("ab");
    ASSERT_TRUE(form.isOpen());
    EXPECT_EQ(nameOf(form.edit()), expected);
    EXPECT_EQ(nameOf(editPartOf(form.combo())), expected);
    EXPECT_EQ(nameOf(form.dropDown()), expected);
  };
  form.control()->put_TheToolTipText(Bstr{u"Type a number"}.get());
  expectName("Type a number");
  OwnedVariant name;
  name.vt = VT_BSTR;
  name.bstrVal = newBstr(u"lookup1");
  form.site().ambients[DISPID_AMBIENT_DISPLAYNAME] = name;
  form.site().controlAs<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_DISPLAYNAME);
  expectName("lookup1");
  const HWND label = addLabel(form, L"Catalog &number && brand:");
  putBefore(form, label);
  expectName("Catalog number & brand:");
  putBefore(form, form.otherField());
  expectName("lookup1");
  form.site().ambients.clear();
}

TEST(Accessible, AControlThatIsPutBehindItsLabelFindsIt) {
  TestForm form{0};
  const HWND label = addLabel(form, L"&First");
  const auto site = makeObject<ControlSite>(form.window());
  site->create(CLSID_keyscoutControl, {20, 10, 220, 34});
  HWND surface = nullptr;
  site->controlAs<IOleInPlaceObject>()->GetWindow(&surface);
  EXPECT_EQ(GetWindow(surface, GW_HWNDPREV), label);
  EXPECT_EQ(nameOf(FindWindowExW(surface, nullptr, L"EDIT", nullptr)), "First");
  site->close();
}

TEST(Accessible, TheOpenListAndItsEntries) {
  TestForm form;
  form.enter();
  EXPECT_EQ(stateOf(form.edit()) & (STATE_SYSTEM_EXPANDED | STATE_SYSTEM_COLLAPSED),
            STATE_SYSTEM_COLLAPSED);
  form.type("ab");
  EXPECT_EQ(stateOf(form.edit()) & (STATE_SYSTEM_EXPANDED | STATE_SYSTEM_COLLAPSED),
            STATE_SYSTEM_EXPANDED);
  form.key(VK_DOWN);
  form.key(VK_DOWN);
  const auto list = accessible(form.dropDown());
  ASSERT_TRUE(list);
  LONG count = 0;
  EXPECT_EQ(list->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 9);
  EXPECT_EQ(nameOf(form.dropDown(), 3), "AB-102");
  OwnedVariant selected;
  EXPECT_EQ(list->get_accSelection(&selected), S_OK);
  EXPECT_EQ(selected.lVal, 2);
  EXPECT_TRUE(stateOf(form.dropDown(), 2) & STATE_SYSTEM_SELECTED);
  EXPECT_FALSE(stateOf(form.dropDown(), 3) & STATE_SYSTEM_SELECTED);
  OwnedVariant role;
  list->get_accRole(child(1), &role);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_LISTITEM);
  LONG left = 0, top = 0, width = 0, height = 0;
  EXPECT_EQ(list->accLocation(&left, &top, &width, &height, child(3)), S_OK);
  const POINT third = form.entryOnScreen(2);
  EXPECT_TRUE(left < third.x && third.x < left + width);
  EXPECT_TRUE(top < third.y && third.y < top + height);
  IDispatch* none = nullptr;
  EXPECT_EQ(list->get_accChild(child(9), &none), S_FALSE);
  EXPECT_EQ(list->get_accChild(child(10), &none), E_INVALIDARG);
  // The object outlives the window that it tells of.
  form.key(VK_RETURN);
  SetFocus(form.otherField());
  form.pump();
  ASSERT_FALSE(form.combo());
  EXPECT_EQ(list->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 0);
}

/// What a client that knows names and numbers of members alone, as a script does, is answered.
std::string askByNumber(IDispatch& object, DISPID member, LONG number) {
  VARIANT which = child(number);
  DISPPARAMS arguments{&which, nullptr, 1, 0};
  OwnedVariant result;
  EXPECT_EQ(object.Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYGET, &arguments, &result, nullptr,
                          nullptr),
            S_OK);
  return result.vt == VT_BSTR ? narrow(result.bstrVal) : std::to_string(result.lVal);
}

TEST(Accessible, ScriptsLearnTheSame) {
  TestForm form;
  putBefore(form, addLabel(form, L"Catalog &number"));
  form.enter();
  form.type("ab");
  const auto text = accessible(form.edit());
  const auto list = accessible(form.dropDown());
  ASSERT_TRUE(text && list);
  EXPECT_EQ(askByNumber(*text, DISPID_ACC_NAME, CHILDID_SELF), "Catalog number");
  EXPECT_EQ(askByNumber(*list, DISPID_ACC_NAME, 3), "AB-102");
  EXPECT_EQ(askByNumber(*list, DISPID_ACC_ROLE, 3), std::to_string(ROLE_SYSTEM_LISTITEM));
  DISPPARAMS none{};
  OwnedVariant count;
  EXPECT_EQ(text->Invoke(DISPID_ACC_CHILDCOUNT, IID_IAccessible, 0, DISPATCH_PROPERTYGET, &none,
                         &count, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

struct Told {
  DWORD event;
  HWND window;
  LONG child;
};
std::vector<Told> told;

void CALLBACK listen(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG number, DWORD,
                     DWORD) {
  if (object == OBJID_CLIENT) told.push_back({event, window, number});
}

int times(DWORD event, HWND window, LONG number = CHILDID_SELF) {
  return static_cast<int>(std::ranges::count_if(told, [&](const Told& one) {
    return one.event == event && one.window == window && one.child == number;
  }));
}

TEST(Accessible, OpeningEntriesAndSelectionAreTold) {
  TestForm form;
  form.enter();
  told.clear();
  const HWINEVENTHOOK hook =
      SetWinEventHook(EVENT_OBJECT_SHOW, EVENT_OBJECT_STATECHANGE, nullptr, &listen,
                      GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
  ASSERT_TRUE(hook);
  form.type("a");
  EXPECT_EQ(times(EVENT_OBJECT_STATECHANGE, form.edit()), 1) << "opened";
  form.type("b");
  EXPECT_GE(times(EVENT_OBJECT_REORDER, form.dropDown()), 1) << "other entries";
  form.key(VK_DOWN);
  EXPECT_EQ(times(EVENT_OBJECT_SELECTION, form.dropDown(), 1), 1);
  form.key(VK_DOWN);
  EXPECT_EQ(times(EVENT_OBJECT_SELECTION, form.dropDown(), 2), 1);
  form.key(VK_ESCAPE);
  EXPECT_EQ(times(EVENT_OBJECT_STATECHANGE, form.edit()), 2) << "closed";
  UnhookWinEvent(hook);
}

}  // namespace
}  // namespace keyscout
