#include "support/test_form.h"

#include "base/utf8.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"
#include "server/com/failures.h"
#include "support/input.h"

namespace keyscout {
namespace {

constexpr const char* eventNames[] = {"",        "Change",    "brandChanged", "needBrand",
                                      "KeyDown", "MouseDown", "MouseMove",    "MouseUp",
                                      "Click",   "DblClick",  "KeyUp",        "UpdateKeyscout"};

std::string textOf(const VARIANT& argument) {
  OwnedVariant plain;
  OwnedVariant text;
  VariantCopyInd(&plain, const_cast<VARIANT*>(&argument));
  VariantChangeType(&text, &plain, 0, VT_BSTR);
  return text.vt == VT_BSTR ? toUtf8(viewOf(text.bstrVal)) : "?";
}

HWND makeForm() {
  WNDCLASSW description{};
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"Keyscout.TestForm";
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  RegisterClassW(&description);
  return CreateWindowExW(0, description.lpszClassName, L"form",
                         WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 50, 50, 500, 400, nullptr,
                         nullptr, description.hInstance, nullptr);
}

}  // namespace

std::string narrow(std::wstring_view text) { return toUtf8(fromWide(text)); }

std::string takeText(BSTR text) {
  const std::string result = toUtf8(viewOf(text));
  SysFreeString(text);
  return result;
}

RECT placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

TestForm::TestForm(int controls) : window_(makeForm()) {
  otherField_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 300, 10, 150, 24, window_,
                                nullptr, nullptr, nullptr);
  controller_ = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  if (!controller_) throw ComFailure{REGDB_E_CLASSNOTREG};
  Bstr directory{fromWide(folder_.path())};
  Bstr index{u"catindex.txt"};
  Bstr download{u"catalog.txt"};
  controller_->put_KeyscoutDirectory(directory.address());
  controller_->put_KeyscoutIndexFile(index.address());
  controller_->put_CatalogNumbersDownloadFile(download.address());
  controller_->putref_authorizedBrands(nullptr);
  VARIANT_BOOL ready = VARIANT_FALSE;
  controller_->init(&ready);
  VARIANT_BOOL reset = VARIANT_FALSE;
  controller_->resetLastTableNumber(&reset);
  controller_->put_KeyscoutLocked(VARIANT_FALSE);
  controller_->put_KeyscoutEnabled(VARIANT_TRUE);

  const auto sink = makeObject<EventSink>(
      [this](DISPID event, DISPPARAMS& arguments) { note(event, arguments); });
  for (int i = 0; i < controls; ++i) {
    const auto site = makeObject<ControlSite>(window_);
    site->onCall = [this](const char* call) {
      calls_.emplace_back(call);
      if (onCall) onCall(call);
      const auto answer = answers.find(call);
      return answer == answers.end() ? S_OK : answer->second;
    };
    site->create(CLSID_keyscoutControl, {20, 10 + 40 * i, 220, 34 + 40 * i});
    site->connect(DIID___keyscoutControl, sink.get());
    sites_.push_back(site);
  }
  SetForegroundWindow(window_);
  pump();
}

TestForm::~TestForm() {
  onEvent = nullptr;
  for (const auto& site : sites_) {
    site->onCall = nullptr;
    site->close();
  }
  sites_.clear();
  DestroyWindow(window_);
  controller_->putref_authorizedBrands(nullptr);
  controller_ = nullptr;
  pump();
}

void TestForm::note(DISPID event, DISPPARAMS& arguments) {
  const std::string name = eventNames[event];
  if (name == "MouseMove") return;
  std::string line = name;
  for (UINT i = arguments.cArgs; i > 0; --i) line += " " + textOf(arguments.rgvarg[i - 1]);
  events_.push_back(line);
  if (onEvent) onEvent(name, arguments);
}

void TestForm::pump() {
  // Input comes by way of the display server.
  const DWORD until = GetTickCount() + 60;
  MSG message{};
  do {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  } while (GetTickCount() < until);
}

void TestForm::key(WORD key, WORD modifier) {
  if (modifier) sendInput(keyInput(modifier, 0));
  sendInput(keyInput(key, 0));
  pump();
  sendInput(keyInput(key, KEYEVENTF_KEYUP));
  if (modifier) sendInput(keyInput(modifier, KEYEVENTF_KEYUP));
  pump();
}

void TestForm::type(const char* text) {
  for (; *text; ++text) key(LOBYTE(VkKeyScanW(static_cast<WCHAR>(*text))));
}

void TestForm::click(POINT onScreen, DWORD down, DWORD up) {
  SetCursorPos(onScreen.x, onScreen.y);
  pump();
  sendInput(mouseInput(down));
  pump();
  sendInput(mouseInput(up));
  pump();
}

HWND TestForm::surface(int which) {
  HWND window = nullptr;
  if (const auto object = site(which).controlAs<IOleInPlaceObject>()) object->GetWindow(&window);
  return window;
}

HWND TestForm::edit(int which) { return FindWindowExW(surface(which), nullptr, L"EDIT", nullptr); }
HWND TestForm::combo(int which) {
  return FindWindowExW(surface(which), nullptr, L"COMBOBOX", nullptr);
}

HWND TestForm::dropDown(int which) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  return combo(which) && GetComboBoxInfo(combo(which), &parts) ? parts.hwndList : nullptr;
}

std::string TestForm::text(int which) {
  BSTR text = nullptr;
  control(which)->get_text(&text);
  return takeText(text);
}

bool TestForm::isOpen(int which) {
  VARIANT_BOOL showing = VARIANT_FALSE;
  control(which)->get_isListShowing(&showing);
  const HWND list = dropDown(which);
  const bool visible = list && IsWindowVisible(list);
  return showing && visible;
}

std::vector<std::string> TestForm::entries(int which) {
  std::vector<std::string> all;
  const HWND list = combo(which);
  const LRESULT count = list ? SendMessageW(list, CB_GETCOUNT, 0, 0) : 0;
  for (LRESULT i = 0; i < count; ++i) {
    wchar_t text[100] = L"";
    SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(i), asParameter(&text));
    all.push_back(narrow(text));
  }
  return all;
}

POINT TestForm::entryOnScreen(int entry, int which) {
  const HWND list = dropDown(which);
  RECT row{};
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry), asParameter(&row));
  POINT at{(row.left + row.right) / 2, (row.top + row.bottom) / 2};
  ClientToScreen(list, &at);
  return at;
}

void TestForm::enter(int which) {
  SetFocus(edit(which));
  pump();
  takeEvents();
  takeCalls();
}

}  // namespace keyscout
