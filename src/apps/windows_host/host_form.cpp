#include "apps/windows_host/host_form.h"

#include <vector>

#include "platform/win32/appearance.h"
#include "platform/win32/instance.h"
#include "platform/win32/parameters.h"
#include "platform/win32/system_code_page.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_files.h"
#include "server/com/failures.h"
#include "shared/data_format/brand_line.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {
namespace {

constexpr wchar_t className[] = L"Keyscout.SampleHost";
constexpr wchar_t anyBrand[] = L"(any)";

enum Id : int { brandId = 100, lockId, unlockId, authorizedId };

/// The brands of the catalog, for the user to choose from.
std::vector<std::wstring> brandsIn(const std::wstring& directory) {
  std::vector<std::wstring> brands;
  try {
    Win32Files files;
    const auto file = files.open(fromWide(directory) + u"\\" + String{DirectoryFiles::brands});
    while (!file->atEnd()) {
      const String line = systemCodePage().decode(file->readLine());
      const StringView code = BrandLine<char16_t>{line}.code();
      if (!code.empty()) brands.push_back(toWide(code));
    }
  } catch (const Error&) {
    // Start-up tells what is wrong with the catalog.
  }
  return brands;
}

std::wstring textOf(const VARIANT& argument) {
  OwnedVariant plain;
  OwnedVariant text;
  const bool shown = SUCCEEDED(VariantCopyInd(&plain, const_cast<VARIANT*>(&argument))) &&
                     SUCCEEDED(VariantChangeType(&text, &plain, 0, VT_BSTR));
  return shown ? toWide(viewOf(text.bstrVal)) : L"?";
}

/// What the control's type library says of its events.
ComPtr<ITypeInfo> eventsOf(_keyscoutControl& control) {
  ComPtr<ITypeInfo> members;
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> events;
  UINT ignored = 0;
  require(control.GetTypeInfo(0, LOCALE_NEUTRAL, members.put()));
  require(members->GetContainingTypeLib(library.put(), &ignored));
  require(library->GetTypeInfoOfGuid(DIID___keyscoutControl, events.put()));
  return events;
}

std::wstring nameOf(DISPID member, ITypeInfo& type) {
  Bstr name;
  UINT count = 0;
  type.GetNames(member, name.address(), 1, &count);
  return toWide(viewOf(name.get()));
}

}  // namespace

HostForm::HostForm(std::wstring directory, bool rightToLeft)
    : directory_(std::move(directory)), rightToLeft_(rightToLeft) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &procedure;
  description.hInstance = thisInstance();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = className;
  RegisterClassExW(&description);
  const DWORD extendedStyle = WS_EX_CONTROLPARENT | (rightToLeft_ ? WS_EX_LAYOUTRTL : 0);
  window_ =
      CreateWindowExW(extendedStyle, className, L"Keyscout sample host",
                      WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN,
                      CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, nullptr, nullptr, thisInstance(), this);
  if (!window_) throw ComFailure{E_OUTOFMEMORY};
  const LOGFONTW font = messageFont(dpiOf(window_));
  font_.reset(CreateFontIndirectW(&font));
  RECT area{0, 0, scaled(520), scaled(360)};
  AdjustWindowRectEx(&area, WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, FALSE,
                     extendedStyle);
  SetWindowPos(window_, nullptr, scaled(80), scaled(60), area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
  addControls();
  startUp();
}

HostForm::~HostForm() {
  for (const auto& site : sites_)
    if (site) site->close();
  if (window_) DestroyWindow(window_);
}

int HostForm::scaled(int pixels) const { return keyscout::scaled(pixels, dpiOf(window_)); }

HWND HostForm::add(const wchar_t* kind, const wchar_t* text, DWORD style, RECT at, int id) {
  const HWND made =
      CreateWindowExW(wcscmp(kind, L"LISTBOX") == 0 ? WS_EX_CLIENTEDGE : 0, kind, text,
                      WS_CHILD | WS_VISIBLE | style, scaled(at.left), scaled(at.top),
                      scaled(at.right - at.left), scaled(at.bottom - at.top), window_,
                      pointerIn<HMENU>(static_cast<INT_PTR>(id)), thisInstance(), nullptr);
  SendMessageW(made, WM_SETFONT, asParameter<WPARAM>(font_.get()), TRUE);
  return made;
}

void HostForm::addControls() {
  add(L"STATIC", L"Catalog number", 0, {16, 16, 200, 32});
  add(L"STATIC", L"Replacement", 0, {16, 62, 200, 78});
  add(L"STATIC", L"Brand", 0, {280, 16, 400, 32});
  brand_ = add(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_TABSTOP | WS_VSCROLL, {280, 34, 400, 200},
               brandId);
  SendMessageW(brand_, CB_ADDSTRING, 0, asParameter(&anyBrand));
  add(L"STATIC", L"The user may see (none: all)", 0, {280, 66, 504, 82});
  authorized_ = add(L"LISTBOX", L"", WS_VSCROLL | WS_TABSTOP | LBS_MULTIPLESEL | LBS_NOTIFY,
                    {280, 84, 400, 196}, authorizedId);
  for (const std::wstring& brand : brandsIn(directory_)) {
    SendMessageW(brand_, CB_ADDSTRING, 0, asParameter(brand.c_str()));
    SendMessageW(authorized_, LB_ADDSTRING, 0, asParameter(brand.c_str()));
  }
  SendMessageW(brand_, CB_SETCURSEL, 0, 0);
  add(L"BUTTON", L"Lock", WS_TABSTOP, {420, 33, 504, 57}, lockId);
  add(L"BUTTON", L"Try to unlock", WS_TABSTOP, {420, 84, 504, 108}, unlockId);
  log_ = add(L"LISTBOX", L"", WS_VSCROLL | LBS_NOINTEGRALHEIGHT, {16, 210, 504, 344});

  const RECT places[] = {{16, 34, 256, 56}, {16, 80, 256, 102}};
  for (int i = 0; i < 2; ++i) {
    const auto place = places[i];
    auto& site = sites_[static_cast<std::size_t>(i)];
    site = makeObject<ControlSite>(window_);
    VARIANT& direction = site->ambients[DISPID_AMBIENT_RIGHTTOLEFT];
    direction.vt = VT_BOOL;
    direction.boolVal = toVariantBool(rightToLeft_);
    site->create(CLSID_keyscoutControl, {scaled(place.left), scaled(place.top), scaled(place.right),
                                         scaled(place.bottom)});
    if (!events_) events_ = eventsOf(*site->controlAs<_keyscoutControl>());
    const auto sink = makeObject<EventSink>(
        [this, i](DISPID event, DISPPARAMS& arguments) { onEvent(i, event, arguments); });
    site->connect(DIID___keyscoutControl, sink.get());
  }
}

void HostForm::startUp() {
  void* created = nullptr;
  require(CoCreateInstance(CLSID_RWKeyscoutController, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(_RWKeyscoutController), &created));
  controller_ = ComPtr<_RWKeyscoutController>::adopt(static_cast<_RWKeyscoutController*>(created));
  Bstr directory{fromWide(directory_)};
  Bstr index{DirectoryFiles::usualIndex};
  Bstr download{u"catalog.txt"};
  controller_->put_KeyscoutDirectory(directory.address());
  controller_->put_KeyscoutIndexFile(index.address());
  controller_->put_CatalogNumbersDownloadFile(download.address());
  authorizeBrands();
  VARIANT_BOOL ready = VARIANT_FALSE;
  const HRESULT result = controller_->init(&ready);
  if (FAILED(result)) return logFailure(L"init", result);
  log(ready ? L"The catalog is loaded." : L"The catalog could not be loaded.");
  controller_->put_KeyscoutEnabled(VARIANT_TRUE);
}

void HostForm::authorizeBrands() {
  void* created = nullptr;
  require(CoCreateInstance(CLSID_BrandList, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_BrandList),
                           &created));
  const auto list = ComPtr<_BrandList>::adopt(static_cast<_BrandList*>(created));
  OwnedVariant noItem;
  const LRESULT count = SendMessageW(authorized_, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto entry = static_cast<WPARAM>(i);
    if (SendMessageW(authorized_, LB_GETSEL, entry, 0) <= 0) continue;
    std::wstring brand(static_cast<std::size_t>(SendMessageW(authorized_, LB_GETTEXTLEN, entry, 0)),
                       L' ');
    SendMessageW(authorized_, LB_GETTEXT, entry, asParameter(brand.data()));
    list->Add(Bstr{fromWide(brand)}.get(), noItem);
  }
  const auto control = sites_[0]->controlAs<_keyscoutControl>();
  IDispatch* given = list.get();
  const HRESULT result = control->setAuthorizedBrands(&given);
  if (FAILED(result)) logFailure(L"setAuthorizedBrands", result);
}

std::wstring HostForm::chosenBrand() const {
  if (SendMessageW(brand_, CB_GETCURSEL, 0, 0) <= 0) return {};
  std::wstring brand(static_cast<std::size_t>(GetWindowTextLengthW(brand_)) + 1, L'\0');
  brand.resize(static_cast<std::size_t>(
      GetWindowTextW(brand_, brand.data(), static_cast<int>(brand.size()))));
  return brand;
}

void HostForm::onEvent(int control, DISPID event, DISPPARAMS& arguments) {
  if (event == ControlEvent_MouseMove) return;
  std::wstring line =
      (control == 0 ? L"catalog number: " : L"replacement: ") + nameOf(event, *events_);
  for (UINT i = arguments.cArgs; i > 0; --i)
    line += (i == arguments.cArgs ? L" " : L", ") + textOf(arguments.rgvarg[i - 1]);
  log(line);
  if (event == ControlEvent_needBrand) {
    Bstr brand{fromWide(chosenBrand())};
    const auto& site = sites_[static_cast<std::size_t>(control)];
    if (const auto lookup = site->controlAs<_keyscoutControl>()) lookup->put_brand(brand.address());
  }
}

void HostForm::onCommand(WORD id, WORD code) {
  if (id == authorizedId && code == LBN_SELCHANGE) authorizeBrands();
  if (code != BN_CLICKED) return;
  if (id == lockId) {
    sites_[0]->controlAs<_keyscoutControl>()->lockKeyscout();
    log(L"Lookups are locked.");
  } else if (id == unlockId) {
    VARIANT_BOOL unlocked = VARIANT_FALSE;
    const HRESULT result = controller_->tryToUnlock(&unlocked);
    if (FAILED(result)) return logFailure(L"tryToUnlock", result);
    log(unlocked ? L"Lookups are unlocked." : L"Lookups stay locked.");
  }
}

void HostForm::log(const std::wstring& line) {
  const LRESULT at = SendMessageW(log_, LB_ADDSTRING, 0, asParameter(line.c_str()));
  SendMessageW(log_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
}

void HostForm::logFailure(const wchar_t* call, HRESULT result) {
  ComPtr<IErrorInfo> information;
  BSTR description = nullptr;
  if (GetErrorInfo(0, information.put()) == S_OK) information->GetDescription(&description);
  log(std::wstring{call} + L" failed (" + std::to_wstring(result) + L"): " +
      toWide(viewOf(description)));
  SysFreeString(description);
}

void HostForm::run() {
  ShowWindow(window_, SW_SHOW);
  if (const auto object = sites_[0]->controlAs<IOleObject>())
    object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, sites_[0].get(), 0, window_, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool used = isKey && ((sites_[0]->hasFocus() && sites_[0]->translate(message)) ||
                                (sites_[1]->hasFocus() && sites_[1]->translate(message)));
    if (used || IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

LRESULT CALLBACK HostForm::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* const creation = pointerIn<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, asParameter(creation->lpCreateParams));
  }
  auto* const self = pointerIn<HostForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_COMMAND:
      if (self) self->onCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_CLOSE: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace keyscout
