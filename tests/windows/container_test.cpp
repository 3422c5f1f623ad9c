// What a container asks of the control and what the control asks of its container.

#include <gtest/gtest.h>

#include <olectl.h>

#include "platform/win32/parameters.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

using Calls = std::vector<std::string>;

VARIANT number(LONG value) {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = value;
  return variant;
}

TEST(Container, ActivationInPlaceAndByFocus) {
  TestForm form;
  EXPECT_EQ(form.takeCalls(),
            (Calls{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindowContext", "ShowObject"}));
  SetFocus(form.edit());
  form.pump();
  EXPECT_EQ(form.takeCalls(), (Calls{"OnUIActivate", "SetActiveObject", "OnFocus"}));
  SetFocus(form.otherField());
  form.pump();
  EXPECT_EQ(form.takeCalls(), (Calls{"OnFocusLost"}));
  const auto object = form.site().controlAs<IOleInPlaceObject>();
  EXPECT_EQ(object->UIDeactivate(), S_OK);
  EXPECT_EQ(form.takeCalls(), (Calls{"SetActiveObject(null)", "OnUIDeactivate"}));
  EXPECT_EQ(object->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(form.takeCalls(), (Calls{"OnInPlaceDeactivate"}));
  HWND window = nullptr;
  EXPECT_EQ(object->GetWindow(&window), E_FAIL);
}

TEST(Container, TheUserTypeNeedsNoRegistry) {
  const auto control = create<IOleObject>(CLSID_keyscoutControl);
  HKEY empty = nullptr;
  ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\KeyscoutEmpty", &empty), ERROR_SUCCESS);
  RegOverridePredefKey(HKEY_CLASSES_ROOT, empty);
  for (const auto& [form, expected] :
       {std::pair{USERCLASSTYPE_FULL, L"Keyscout catalog number lookup"},
        std::pair{USERCLASSTYPE_SHORT, L"Keyscout"},
        std::pair{USERCLASSTYPE_APPNAME, L"Keyscout"}}) {
    LPOLESTR name = nullptr;
    EXPECT_EQ(control->GetUserType(static_cast<DWORD>(form), &name), S_OK);
    EXPECT_STREQ(name, expected);
    CoTaskMemFree(name);
  }
  RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
  RegCloseKey(empty);
  RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\KeyscoutEmpty");
}

TEST(Container, ARefusalLeavesTheControlInactive) {
  for (const char* call : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindowContext"}) {
    SCOPED_TRACE(call);
    TestForm form;
    const auto object = form.site().controlAs<IOleObject>();
    const auto show = [&] {
      return object->DoVerb(OLEIVERB_SHOW, nullptr, &form.site(), 0, form.window(), nullptr);
    };
    object->DoVerb(OLEIVERB_HIDE, nullptr, &form.site(), 0, form.window(), nullptr);
    form.answers[call] = E_FAIL;
    EXPECT_EQ(show(), E_FAIL);
    EXPECT_EQ(GetParent(form.surface()), nullptr);
    form.answers.clear();
    EXPECT_EQ(show(), S_OK);
    EXPECT_EQ(GetParent(form.surface()), form.window());
  }
  TestForm form;
  form.answers["OnUIActivate"] = E_FAIL;
  form.enter();
  form.answers.clear();
  SetFocus(form.otherField());
  form.enter();
  MSG message{form.edit(), WM_KEYDOWN, VK_DOWN, 1, 0, {}};
  EXPECT_EQ(form.site().controlAs<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_OK)
      << "active with the next focus";
}

TEST(Container, AnInactiveControlKeepsNoFocus) {
  struct Way {
    const char* name;
    void (*end)(TestForm&);
  };
  for (const Way& with :
       {Way{"hidden",
            [](TestForm& form) {
              form.site().controlAs<IOleObject>()->DoVerb(OLEIVERB_HIDE, nullptr, &form.site(), 0,
                                                          form.window(), nullptr);
            }},
        Way{"deactivated",
            [](TestForm& form) {
              form.site().controlAs<IOleInPlaceObject>()->InPlaceDeactivate();
            }},
        Way{"closed",
            [](TestForm& form) { form.site().controlAs<IOleObject>()->Close(OLECLOSE_NOSAVE); }},
        Way{"without a site",
            [](TestForm& form) { form.site().controlAs<IOleObject>()->SetClientSite(nullptr); }}}) {
    for (const bool browsing : {false, true}) {
      SCOPED_TRACE(std::string{with.name} + (browsing ? " while browsing" : ""));
      TestForm form;
      form.enter();
      form.type("ab");
      if (browsing) form.key(VK_DOWN);
      form.takeCalls();
      with.end(form);
      EXPECT_EQ(form.takeCalls(),
                (Calls{"SetActiveObject(null)", "OnUIDeactivate", "OnControlInfoChanged",
                       "OnFocusLost", "OnInPlaceDeactivate"}));
      EXPECT_EQ(GetFocus(), form.window());
      form.takeEvents();
      form.type("c");
      EXPECT_EQ(form.takeEvents(), Calls{});
      EXPECT_EQ(form.text(), "ab");
    }
  }
}

TEST(Container, TheHostMayMoveTheFocusWhenItIsTold) {
  for (const char* when : {"OnUIActivate", "SetActiveObject", "OnFocus"}) {
    SCOPED_TRACE(when);
    TestForm form{2};
    bool moved = false;
    form.onCall = [&](const std::string& call) {
      if (call == when && !std::exchange(moved, true)) SetFocus(form.edit(1));
    };
    SetFocus(form.edit(0));
    form.pump();
    EXPECT_EQ(GetFocus(), form.edit(1));
    EXPECT_FALSE(form.combo(0));
    form.type("ab");
    EXPECT_TRUE(form.isOpen(1));
    EXPECT_EQ(form.text(1), "ab");
  }
}

TEST(Container, ActivationInTheMiddleOfDeactivationIsOver) {
  TestForm form;
  form.enter();
  const auto object = form.site().controlAs<IOleObject>();
  const auto activate = [&] {
    return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &form.site(), 0, form.window(), nullptr);
  };
  form.onCall = [&](const std::string& call) {
    if (call == "OnUIDeactivate") activate();
  };
  form.site().controlAs<IOleInPlaceObject>()->InPlaceDeactivate();
  form.onCall = nullptr;
  EXPECT_EQ(GetFocus(), form.window());
  form.takeCalls();
  EXPECT_EQ(activate(), S_OK);
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_EQ(form.takeCalls(), (Calls{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindowContext",
                                     "ShowObject", "OnUIActivate", "SetActiveObject", "OnFocus"}));
}

TEST(Container, AnOpenListFollowsTheControl) {
  TestForm form;
  form.enter();
  form.type("ab");
  form.site().moveTo({60, 90, 260, 114});
  const RECT box = placeOf(form.edit());
  const RECT list = placeOf(form.dropDown());
  EXPECT_TRUE(form.isOpen());
  EXPECT_EQ(list.left, box.left);
  EXPECT_LE(std::abs(list.top - box.bottom), 1);
}

TEST(Container, AControlOutlivesItsForm) {
  TestForm next;
  TestForm form;
  form.enter();
  form.type("ab");
  form.key(VK_DOWN);
  const auto control = form.control();
  constexpr LPARAM at = MAKELPARAM(9, 5);
  SendMessageW(form.edit(), WM_LBUTTONDOWN, MK_LBUTTON, at);
  DestroyWindow(form.window());
  EXPECT_EQ(form.text(), "ab");
  VARIANT_BOOL showing = VARIANT_TRUE;
  EXPECT_EQ(control->get_isListShowing(&showing), S_OK);
  EXPECT_FALSE(showing);

  const auto object = form.site().controlAs<IOleObject>();
  ASSERT_EQ(object->SetClientSite(&next.site()), S_OK);
  SetForegroundWindow(next.window());
  EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
  EXPECT_EQ(GetFocus(), form.edit());
  form.takeEvents();
  SendMessageW(form.edit(), WM_LBUTTONUP, 0, at);
  EXPECT_EQ(form.takeEvents(), Log{"MouseUp 1 0 9 5"}) << "the press was on the form before";
  form.control()->put_selStart(2);
  form.type("-");
  EXPECT_EQ(form.text(), "ab-");
  EXPECT_TRUE(form.isOpen());
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

TEST(Container, TextOutlivesDeactivation) {
  TestForm form;
  form.enter();
  form.type("zz");
  form.site().controlAs<IOleInPlaceObject>()->InPlaceDeactivate();
  EXPECT_EQ(form.text(), "zz");
  EXPECT_EQ(form.site().controlAs<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &form.site(),
                                                        0, form.window(), nullptr),
            S_OK);
  EXPECT_EQ(GetFocus(), form.edit());
  EXPECT_EQ(form.text(), "zz");
}

TEST(Container, KeysThatTheControlNeedsAreItsOwn) {
  TestForm form;
  form.enter();
  const auto active = form.site().controlAs<IOleInPlaceActiveObject>();
  const Calls passedOn{"TranslateAccelerator"};
  const Calls listClosed{"OnControlInfoChanged"};
  struct Case {
    WORD key;
    bool open;
    bool used;
    Calls calls;
  };
  for (const Case& with :
       {Case{VK_DOWN, false, true, {}}, Case{VK_NEXT, false, true, {}},
        Case{VK_TAB, false, false, passedOn}, Case{VK_RETURN, false, false, passedOn},
        Case{VK_ESCAPE, false, false, passedOn}, Case{VK_TAB, true, false, passedOn},
        Case{VK_RETURN, true, true, listClosed}, Case{VK_ESCAPE, true, true, {}}}) {
    SCOPED_TRACE(with.key);
    if (with.open && !form.isOpen()) {
      form.control()->put_text(nullptr);
      form.takeCalls();
      form.type("ab");
      ASSERT_TRUE(form.isOpen());
      EXPECT_EQ(form.takeCalls(), (Calls{"OnControlInfoChanged"}));
    }
    CONTROLINFO info{};
    info.cb = sizeof info;
    EXPECT_EQ(form.site().controlAs<IOleControl>()->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.dwFlags != 0, with.open);
    MSG message{form.edit(), WM_KEYDOWN, with.key, 1, 0, {}};
    EXPECT_EQ(active->TranslateAccelerator(&message), with.used ? S_OK : S_FALSE);
    EXPECT_EQ(form.takeCalls(), with.calls);
  }
}

TEST(Container, FrozenEventsAreDropped) {
  TestForm form;
  const auto control = form.site().controlAs<IOleControl>();
  const auto raised = [&] {
    form.takeEvents();
    form.control()->put_text(Bstr{u"x"}.get());
    return form.takeEvents();
  };
  EXPECT_EQ(raised(), (Calls{"needBrand", "Change"}));
  control->FreezeEvents(TRUE);
  control->FreezeEvents(TRUE);
  control->FreezeEvents(FALSE);
  EXPECT_EQ(raised(), Calls{});
  control->FreezeEvents(FALSE);
  control->FreezeEvents(FALSE);  // one too many is none
  EXPECT_EQ(raised(), (Calls{"needBrand", "Change"}));
}

TEST(Container, AmbientPropertiesAreTakenOn) {
  TestForm form;
  const auto isEnabled = [&] { return IsWindowEnabled(form.surface()) != FALSE; };
  EXPECT_TRUE(isEnabled()) << "user mode where the container says nothing";
  form.site().ambients[DISPID_AMBIENT_USERMODE] = number(0);
  form.site().controlAs<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
  EXPECT_FALSE(isEnabled()) << "the mouse is the designer's";

  wchar_t fontName[] = L"Courier New";
  FONTDESC description{sizeof description, fontName, {}, 700, 0, FALSE, FALSE, FALSE};
  description.cySize.int64 = 200000;
  VARIANT font{};
  font.vt = VT_DISPATCH;
  ASSERT_EQ(
      OleCreateFontIndirect(&description, IID_IDispatch, std::bit_cast<void**>(&font.pdispVal)),
      S_OK);
  form.site().ambients[DISPID_AMBIENT_FONT] = font;
  form.site().controlAs<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT);
  LOGFONTW used{};
  GetObjectW(pointerIn<HFONT>(SendMessageW(form.edit(), WM_GETFONT, 0, 0)), sizeof used, &used);
  EXPECT_EQ(narrow(used.lfFaceName), "Courier New");
  form.site().ambients.clear();
  font.pdispVal->Release();
}

TEST(Container, ExtentsAreHimetric) {
  TestForm form;
  const auto object = form.site().controlAs<IOleObject>();
  SIZEL size{5080, 1270};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL read{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &read), S_OK);
  EXPECT_EQ(read.cx, 5080);
  EXPECT_EQ(read.cy, 1270);
  RECT area{};
  GetClientRect(form.surface(), &area);
  const HDC screen = GetDC(nullptr);
  EXPECT_EQ(area.right, 2 * GetDeviceCaps(screen, LOGPIXELSX));
  ReleaseDC(nullptr, screen);
  const RECT box = placeOf(form.edit());
  EXPECT_EQ(box.right - box.left, area.right) << "the text box is as wide as the control";
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
  DWORD status = 0;
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473u);
}

TEST(Container, SavesAndLoadsNothing) {
  TestForm form;
  const auto streams = form.site().controlAs<IPersistStreamInit>();
  ComPtr<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()), S_OK);
  EXPECT_EQ(streams->InitNew(), S_OK);
  EXPECT_EQ(streams->IsDirty(), S_FALSE);
  EXPECT_EQ(streams->Save(stream.get(), TRUE), S_OK);
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  EXPECT_EQ(state.cbSize.QuadPart, 0u);
  EXPECT_EQ(streams->Load(stream.get()), S_OK);
  EXPECT_TRUE(form.site().controlAs<IPersistStorage>());
  EXPECT_TRUE(form.site().controlAs<IPersistPropertyBag>());
  ComPtr<IUnknown> safety;
  constexpr GUID objectSafety{
      0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
  EXPECT_EQ(form.site().control()->QueryInterface(objectSafety, safety.putAny()), E_NOINTERFACE);
}

TEST(Container, QuickActivationAndConnections) {
  const auto control = create<IQuickActivate>(CLSID_keyscoutControl);
  const auto site = makeObject<ControlSite>(HWND{});
  int events = 0;
  const auto sink = makeObject<EventSink>([&](DISPID, DISPPARAMS&) { ++events; });
  QACONTAINER container{};
  container.cbSize = sizeof container;
  container.pClientSite = site.get();
  container.pUnkEventSink = sink.get();
  QACONTROL answer{};
  answer.cbSize = sizeof answer;
  ASSERT_EQ(control->QuickActivate(&container, &answer), S_OK);
  EXPECT_EQ(answer.dwMiscStatus, 131473u);
  ComPtr<_keyscoutControl>::from(control.get())->put_text(Bstr{u"x"}.get());
  EXPECT_EQ(events, 2);

  ComPtr<IEnumConnectionPoints> points;
  const auto source = ComPtr<IConnectionPointContainer>::from(control.get());
  ASSERT_EQ(source->EnumConnectionPoints(points.put()), S_OK);
  ComPtr<IConnectionPoint> first;
  ULONG fetched = 0;
  ASSERT_EQ(points->Next(1, first.put(), &fetched), S_OK);
  IID id{};
  first->GetConnectionInterface(&id);
  EXPECT_EQ(id, DIID___keyscoutControl);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(first->EnumConnections(connections.put()), S_OK);
  CONNECTDATA data{};
  EXPECT_EQ(connections->Next(1, &data, &fetched), S_OK);
  EXPECT_EQ(data.dwCookie, answer.dwEventCookie);
  data.pUnk->Release();

  // A sink that ends the other's connection inside the event is the last one told.
  DWORD second = 0;
  const auto ending = makeObject<EventSink>([&](DISPID, DISPPARAMS&) { first->Unadvise(second); });
  const auto ended = makeObject<EventSink>([&](DISPID, DISPPARAMS&) { ++events; });
  DWORD ender = 0;
  ASSERT_EQ(first->Advise(ending.get(), &ender), S_OK);
  ASSERT_EQ(first->Advise(ended.get(), &second), S_OK);
  ComPtr<_keyscoutControl>::from(control.get())->put_text(Bstr{u"y"}.get());
  EXPECT_EQ(events, 4);
  first->Unadvise(ender);
  EXPECT_EQ(first->Unadvise(answer.dwEventCookie), S_OK);
  EXPECT_EQ(first->Unadvise(answer.dwEventCookie), CONNECT_E_NOCONNECTION);

  const auto object = ComPtr<IOleObject>::from(control.get());
  EXPECT_EQ(object->GetClientSite(nullptr), E_POINTER);
  object->SetClientSite(nullptr);
  site->AddRef();
  EXPECT_EQ(site->Release(), 1u) << "the control has let go of its site";
}

}  // namespace
}  // namespace keyscout
