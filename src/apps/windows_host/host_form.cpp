#include "apps/windows_host/host_form.h"

#include <algorithm>
#include <utility>
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

constexpr DWORD formStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr SIZE formSize = {560, 400};  // the least one, at 96 dots per inch
constexpr COLORREF lockedColor = RGB(176, 0, 0);

enum Id : int { lockId = 100, unlockId, authorizedId };

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
  std::ranges::sort(brands);
  return brands;
}

std::wstring textOf(const ControlSite& site) {
  BSTR text = nullptr;
  if (const auto control = site.controlAs<_keyscoutControl>()) control->get_text(&text);
  std::wstring result = toWide(viewOf(text));
  SysFreeString(text);
  return result;
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
  fields_[0].place = {16, 34, 296, 56};
  fields_[0].name = L"catalog number";
  fields_[1].place = {16, 86, 296, 108};
  fields_[1].name = L"replacement";
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &procedure;
  description.hInstance = thisInstance();
  description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = className;
  RegisterClassExW(&description);
  const DWORD extendedStyle = WS_EX_CONTROLPARENT | (rightToLeft_ ? WS_EX_LAYOUTRTL : 0);
  window_ =
      CreateWindowExW(extendedStyle, className, L"Keyscout sample host", formStyle, CW_USEDEFAULT,
                      CW_USEDEFAULT, 0, 0, nullptr, nullptr, thisInstance(), this);
  if (!window_) throw ComFailure{E_OUTOFMEMORY};
  dpi_ = dpiOf(window_);
  RECT area = scaled({0, 0, formSize.cx, formSize.cy});
  AdjustWindowRectEx(&area, formStyle, FALSE, extendedStyle);
  const RECT corner = scaled({80, 60, 0, 0});
  SetWindowPos(window_, nullptr, corner.left, corner.top, area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
  addParts();
  setFonts();
  arrange();
  startUp();
  showLock();
}

HostForm::~HostForm() {
  for (const Field& field : fields_)
    if (field.site) field.site->close();
  if (window_) DestroyWindow(window_);
}

RECT HostForm::scaled(RECT place) const {
  const auto at = [this](LONG pixels) { return keyscout::scaled(static_cast<int>(pixels), dpi_); };
  return {at(place.left), at(place.top), at(place.right), at(place.bottom)};
}

HWND HostForm::add(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, int id) {
  const HWND made =
      CreateWindowExW(wcscmp(kind, L"LISTBOX") == 0 ? WS_EX_CLIENTEDGE : 0, kind, text,
                      WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                      pointerIn<HMENU>(static_cast<INT_PTR>(id)), thisInstance(), nullptr);
  parts_.push_back({made, place});
  return made;
}

void HostForm::addField(Field& field, const wchar_t* label) {
  const RECT& at = field.place;
  const HWND before = add(L"STATIC", label, 0, {at.left, at.top - 19, at.right, at.top - 3});
  field.site = makeObject<ControlSite>(window_);
  VARIANT& direction = field.site->ambients[DISPID_AMBIENT_RIGHTTOLEFT];
  direction.vt = VT_BOOL;
  direction.boolVal = toVariantBool(rightToLeft_);
  field.site->create(CLSID_keyscoutControl, scaled(at));
  // Its label goes before it, as its name for the keyboard and for a screen reader.
  HWND surface = nullptr;
  if (const auto object = field.site->controlAs<IOleInPlaceObject>()) object->GetWindow(&surface);
  SetWindowPos(surface, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  if (!events_) events_ = eventsOf(*field.site->controlAs<_keyscoutControl>());
  const auto sink = makeObject<EventSink>(
      [this, &field](DISPID event, DISPPARAMS& arguments) { onEvent(field, event, arguments); });
  field.site->connect(DIID___keyscoutControl, sink.get());
  field.brand = add(L"STATIC", L"", SS_NOPREFIX | SS_ENDELLIPSIS,
                    {at.right + 12, at.top + 3, formSize.cx - 16, at.bottom});
}

void HostForm::addParts() {
  addField(fields_[0], L"&Catalog number");
  addField(fields_[1], L"&Replacement");
  add(L"STATIC", L"&Brand to look up", 0, {16, 126, 296, 142});
  brand_ = add(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_TABSTOP | WS_VSCROLL, {16, 144, 296, 340});
  SendMessageW(brand_, CB_ADDSTRING, 0, asParameter(&anyBrand));
  lockState_ = add(L"STATIC", L"", 0, {16, 182, 296, 198});
  lock_ = add(L"BUTTON", L"&Lock", WS_TABSTOP, {16, 202, 104, 228}, lockId);
  unlock_ = add(L"BUTTON", L"&Try to unlock", WS_TABSTOP, {112, 202, 232, 228}, unlockId);
  add(L"STATIC", L"The &user may see (none: all)", 0, {308, 126, 544, 142});
  authorized_ = add(L"LISTBOX", L"",
                    WS_VSCROLL | WS_TABSTOP | LBS_MULTIPLESEL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                    {308, 144, 544, 228}, authorizedId);
  for (const std::wstring& brand : brandsIn(directory_)) {
    SendMessageW(brand_, CB_ADDSTRING, 0, asParameter(brand.c_str()));
    SendMessageW(authorized_, LB_ADDSTRING, 0, asParameter(brand.c_str()));
  }
  SendMessageW(brand_, CB_SETCURSEL, 0, 0);
  add(L"STATIC", L"&Events", 0, {16, 242, 296, 258});
  log_ = add(L"LISTBOX", L"", WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT,
             {16, 260, formSize.cx - 16, formSize.cy - 16});
}

void HostForm::setFonts() {
  LOGFONTW font = messageFont(dpi_);
  font_.reset(CreateFontIndirectW(&font));
  font.lfWeight = FW_BOLD;
  boldFont_.reset(CreateFontIndirectW(&font));
  const auto give = [](HWND part, const Font& given) {
    SendMessageW(part, WM_SETFONT, asParameter<WPARAM>(given.get()), TRUE);
  };
  for (const Part& part : parts_) give(part.window, font_);
  for (const Field& field : fields_) give(field.brand, boldFont_);
  give(lockState_, boldFont_);
}

void HostForm::arrange() {
  RECT area{};
  GetClientRect(window_, &area);
  for (const Part& part : parts_) {
    RECT at = scaled(part.place);
    if (part.window == log_) {  // takes what the others leave
      const RECT design = scaled({0, 0, formSize.cx, formSize.cy});
      at.right += area.right - design.right;
      at.bottom += area.bottom - design.bottom;
    }
    MoveWindow(part.window, at.left, at.top, at.right - at.left, at.bottom - at.top, TRUE);
  }
  for (const Field& field : fields_) field.site->moveTo(scaled(field.place));
}

void HostForm::startUp() {
  require(createInstance(CLSID_RWKeyscoutController, controller_));
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
  ComPtr<_BrandList> list;
  require(createInstance(CLSID_BrandList, list));
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
  const auto control = fields_[0].site->controlAs<_keyscoutControl>();
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

void HostForm::onEvent(Field& field, DISPID event, DISPPARAMS& arguments) {
  if (event == ControlEvent_MouseMove) return;
  std::wstring line = field.name + (L": " + nameOf(event, *events_));
  for (UINT i = arguments.cArgs; i > 0; --i)
    line += (i == arguments.cArgs ? L" " : L", ") + textOf(arguments.rgvarg[i - 1]);
  log(line);
  if (event == ControlEvent_needBrand) {
    Bstr brand{fromWide(chosenBrand())};
    if (const auto lookup = field.site->controlAs<_keyscoutControl>())
      lookup->put_brand(brand.address());
  } else if (event == ControlEvent_brandChanged && arguments.cArgs == 1) {
    field.isAccepting = true;
    SetWindowTextW(field.brand, textOf(arguments.rgvarg[0]).c_str());
  } else if (event == ControlEvent_Change) {
    showAcceptedBrand(field);
  }
  showLock();
}

/// The number that was accepted comes as the next change after its brand; any other text has none.
void HostForm::showAcceptedBrand(Field& field) {
  const std::wstring text = textOf(*field.site);
  if (std::exchange(field.isAccepting, false)) field.accepted = text;
  if (text == field.accepted) return;
  field.accepted.clear();
  SetWindowTextW(field.brand, L"");
}

void HostForm::showLock() {
  if (!controller_) return;  // during start-up
  VARIANT_BOOL locked = VARIANT_FALSE;
  controller_->get_KeyscoutLocked(&locked);
  const bool isLocked = locked != VARIANT_FALSE;
  const wchar_t* const text = isLocked ? L"Lookups are locked" : L"Lookups are open";
  wchar_t shown[30] = L"";
  GetWindowTextW(lockState_, shown, 30);
  if (wcscmp(shown, text) == 0) return;
  SetWindowTextW(lockState_, text);
  const HWND useful = isLocked ? unlock_ : lock_;
  const HWND useless = isLocked ? lock_ : unlock_;
  EnableWindow(useful, TRUE);
  if (GetFocus() == useless) SetFocus(useful);
  EnableWindow(useless, FALSE);
}

void HostForm::onCommand(WORD id, WORD code) {
  if (id == authorizedId && code == LBN_SELCHANGE) authorizeBrands();
  if (code != BN_CLICKED) return;
  if (id == lockId) {
    fields_[0].site->controlAs<_keyscoutControl>()->lockKeyscout();
    log(L"Lookups are locked.");
  } else if (id == unlockId) {
    VARIANT_BOOL unlocked = VARIANT_FALSE;
    const HRESULT result = controller_->tryToUnlock(&unlocked);
    if (FAILED(result))
      logFailure(L"tryToUnlock", result);
    else
      log(unlocked ? L"Lookups are unlocked." : L"Lookups stay locked.");
  }
  showLock();
}

void HostForm::log(const std::wstring& line) {
  const LRESULT at = SendMessageW(log_, LB_ADDSTRING, 0, asParameter(line.c_str()));
  const WindowContext context{log_};
  const Selected font{context, font_.get()};
  SIZE size{};
  GetTextExtentPoint32W(context, line.data(), static_cast<int>(line.size()), &size);
  logWidth_ = std::max(logWidth_, static_cast<int>(size.cx) + keyscout::scaled(8, dpi_));
  SendMessageW(log_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(logWidth_), 0);
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

void HostForm::rememberFocus() {
  lastFocus_ = GetFocus();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (!fields_[i].site->hasFocus()) continue;
    lastField_ = i;
    lastFocus_ = nullptr;
  }
}

/// Where in a field the focus goes is the control's to say: the list that had it is closed by now.
void HostForm::giveFocusBack() {
  if (lastFocus_ && IsChild(window_, lastFocus_)) {
    SetFocus(lastFocus_);
    return;
  }
  const auto& site = fields_[lastField_].site;
  if (const auto object = site->controlAs<IOleObject>())
    object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.get(), 0, window_, nullptr);
}

void HostForm::run() {
  ShowWindow(window_, SW_SHOW);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool used = isKey && std::ranges::any_of(fields_, [&](const Field& field) {
                        return field.site->hasFocus() && field.site->translate(message);
                      });
    if (used || IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

LRESULT HostForm::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: onCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_ACTIVATE:
      // What the system does by itself is to give the focus to the form, where nobody can type.
      if (LOWORD(wParam) == WA_INACTIVE)
        rememberFocus();
      else if (HIWORD(wParam) == 0)
        giveFocusBack();
      return 0;
    case WM_NEXTDLGCTL:  // Tab, and the letters of labels
      SetFocus(LOWORD(lParam) ? pointerIn<HWND>(wParam)
                              : GetNextDlgTabItem(window_, GetFocus(), wParam != 0));
      return 0;
    case WM_SIZE: arrange(); return 0;
    case WM_GETMINMAXINFO: {
      RECT area = scaled({0, 0, formSize.cx, formSize.cy});
      AdjustWindowRectEx(&area, formStyle, FALSE, 0);
      pointerIn<MINMAXINFO*>(lParam)->ptMinTrackSize = {area.right - area.left,
                                                        area.bottom - area.top};
      return 0;
    }
    case WM_DPICHANGED: {
      const RECT at = *pointerIn<const RECT*>(lParam);
      dpi_ = LOWORD(wParam);
      setFonts();
      SetWindowPos(window_, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      arrange();
      return 0;
    }
    case WM_CTLCOLORSTATIC:
      if (pointerIn<HWND>(lParam) == lockState_ && IsWindowEnabled(unlock_))
        SetTextColor(pointerIn<HDC>(wParam), lockedColor);
      SetBkMode(pointerIn<HDC>(wParam), TRANSPARENT);
      return asParameter(GetSysColorBrush(COLOR_BTNFACE));
    case WM_CLOSE: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
  }
}

LRESULT CALLBACK HostForm::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* const creation = pointerIn<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, asParameter(creation->lpCreateParams));
  }
  auto* const self = pointerIn<HostForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // Until all parts are there the form answers nothing by itself.
  if (!self || !self->controller_) return DefWindowProcW(window, message, wParam, lParam);
  return self->onMessage(message, wParam, lParam);
}

}  // namespace keyscout
