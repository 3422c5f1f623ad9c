#include "platform/win32/accessible.h"

#include <oleacc.h>
#include <oleauto.h>

#include <atomic>
#include <bit>
#include <utility>

#include "platform/win32/parameters.h"

namespace keyscout {
namespace {

/// The library of the system that makes accessible objects. It is loaded when somebody asks for
/// one, so that hosts nobody asks do without.
template <class Function>
Function* accessibilityFunction(const char* name) {
  const HMODULE library = LoadLibraryW(L"oleacc.dll");
  const FARPROC address = library ? GetProcAddress(library, name) : nullptr;
  return std::bit_cast<Function*>(address);
}

/// The members of IAccessible as the system describes them; null where it does not. One for each
/// call, so that nothing is kept beyond the end of COM.
ITypeInfo* describeAccessible() {
  constexpr GUID accessibility{
      0x1EA4DBF0, 0x3C3B, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
  ITypeLib* library = nullptr;
  if (FAILED(LoadRegTypeLib(accessibility, 1, 1, 0, &library))) return nullptr;
  ITypeInfo* description = nullptr;
  library->GetTypeInfoOfGuid(IID_IAccessible, &description);
  library->Release();
  return description;
}

using CreateStandard = HRESULT WINAPI(HWND, LONG, REFIID, void**);
using AnswerWith = LRESULT WINAPI(REFIID, WPARAM, IUnknown*);

/// An accessible object of the system with a name of its own. It refers to windows alone, which may
/// be gone before it is.
class NamedAccessible : public IAccessible {
 public:
  NamedAccessible(IAccessible* standard, HWND window, std::wstring name)
      : window_(window), standard_(standard), name_(std::move(name)) {}
  virtual ~NamedAccessible() { standard_->Release(); }
  NamedAccessible(const NamedAccessible&) = delete;
  NamedAccessible& operator=(const NamedAccessible&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (!result) return E_POINTER;
    const bool isOurs = id == IID_IUnknown || id == IID_IDispatch || id == IID_IAccessible;
    *result = isOurs ? static_cast<IAccessible*>(this) : nullptr;
    if (!isOurs) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    return standard_->GetTypeInfoCount(count);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override {
    return standard_->GetTypeInfo(index, locale, result);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return standard_->GetIDsOfNames(id, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override {
    // The standard object would answer for itself, without the name.
    ITypeInfo* const members = describeAccessible();
    if (!members)
      return standard_->Invoke(id, interfaceId, locale, flags, arguments, result, exception,
                               wrongArgument);
    const HRESULT invoked = interfaceId == IID_NULL
                                ? members->Invoke(static_cast<IAccessible*>(this), id, flags,
                                                  arguments, result, exception, wrongArgument)
                                : DISP_E_UNKNOWNINTERFACE;
    members->Release();
    return invoked;
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** result) override {
    return standard_->get_accParent(result);
  }
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* result) override {
    return standard_->get_accChildCount(result);
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** result) override {
    return standard_->get_accChild(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* result) override {
    if (!isSelf(child) || name_.empty()) return standard_->get_accName(child, result);
    return give(name_, result);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* result) override {
    return standard_->get_accValue(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* result) override {
    return standard_->get_accDescription(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* result) override {
    return standard_->get_accRole(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* result) override {
    return standard_->get_accState(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* result) override {
    return standard_->get_accHelp(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return standard_->get_accHelpTopic(file, child, topic);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* result) override {
    return standard_->get_accKeyboardShortcut(child, result);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* result) override {
    return standard_->get_accFocus(result);
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* result) override {
    return standard_->get_accSelection(result);
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* result) override {
    return standard_->get_accDefaultAction(child, result);
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
    return standard_->accSelect(flags, child);
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override {
    return standard_->accLocation(left, top, width, height, child);
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* result) override {
    return standard_->accNavigate(direction, start, result);
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* result) override {
    return standard_->accHitTest(x, y, result);
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    return standard_->accDoDefaultAction(child);
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR value) override {
    return standard_->put_accName(child, value);
  }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
    return standard_->put_accValue(child, value);
  }

 protected:
  static bool isSelf(const VARIANT& child) {
    return child.vt == VT_I4 && child.lVal == CHILDID_SELF;
  }
  static HRESULT give(const std::wstring& text, BSTR* result) {
    if (!result) return E_POINTER;
    *result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
  }
  static HRESULT give(LONG number, VARIANT* result) {
    if (!result) return E_POINTER;
    VariantInit(result);
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
  }

  const HWND window_;

 private:
  IAccessible* const standard_;
  const std::wstring name_;
  std::atomic<ULONG> references_{1};
};

/// A text box: it says, too, whether its list is open.
class AccessibleTextBox final : public NamedAccessible {
 public:
  AccessibleTextBox(IAccessible* standard, HWND edit, const std::wstring& name, HWND combo)
      : NamedAccessible(standard, edit, name), combo_(combo) {}

  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* result) override {
    const HRESULT answer = NamedAccessible::get_accState(child, result);
    if (FAILED(answer) || !isSelf(child) || result->vt != VT_I4) return answer;
    const bool isOpen = SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0) != 0;
    result->lVal |= STATE_SYSTEM_HASPOPUP;
    result->lVal |= isOpen ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
    return answer;
  }

 private:
  const HWND combo_;
};

/// A list: its entries are children that are no objects of their own, numbered from 1.
class AccessibleList final : public NamedAccessible {
 public:
  using NamedAccessible::NamedAccessible;

  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* result) override {
    if (!result) return E_POINTER;
    *result = count();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** result) override {
    if (!result) return E_POINTER;
    *result = nullptr;
    return isEntry(child) ? S_FALSE : E_INVALIDARG;
  }
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* result) override {
    if (!isEntry(child)) return NamedAccessible::get_accName(child, result);
    if (!result) return E_POINTER;
    const LRESULT length = send(LB_GETTEXTLEN, indexOf(child));
    *result = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!*result) return E_OUTOFMEMORY;
    send(LB_GETTEXT, indexOf(child), asParameter(*result));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* result) override {
    return give(isEntry(child) ? ROLE_SYSTEM_LISTITEM : ROLE_SYSTEM_LIST, result);
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* result) override {
    if (!isEntry(child)) return NamedAccessible::get_accState(child, result);
    LONG state = STATE_SYSTEM_SELECTABLE;
    if (child.lVal == selected()) state |= STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
    if (!IsWindowVisible(window_)) state |= STATE_SYSTEM_INVISIBLE;
    return give(state, result);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* result) override {
    return get_accSelection(result);
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* result) override {
    if (!result) return E_POINTER;
    VariantInit(result);
    return selected() == 0 ? S_FALSE : give(selected(), result);
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override {
    if (!isEntry(child)) return NamedAccessible::accLocation(left, top, width, height, child);
    if (!left || !top || !width || !height) return E_POINTER;
    RECT row{};
    send(LB_GETITEMRECT, indexOf(child), asParameter(&row));
    POINT corner{row.left, row.top};
    ClientToScreen(window_, &corner);
    *left = corner.x;
    *top = corner.y;
    *width = row.right - row.left;
    *height = row.bottom - row.top;
    return S_OK;
  }

 private:
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  LONG count() const { return static_cast<LONG>(send(LB_GETCOUNT)); }
  /// The number of the selected child, 0 where none is.
  LONG selected() const { return static_cast<LONG>(send(LB_GETCURSEL)) + 1; }
  bool isEntry(const VARIANT& child) const {
    return child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= count();
  }
  static WPARAM indexOf(const VARIANT& child) { return static_cast<WPARAM>(child.lVal - 1); }
};

template <class Class, class... Arguments>
std::optional<LRESULT> answer(AccessibleRequest request, HWND window, const std::wstring& name,
                              Arguments... arguments) {
  static const auto createStandard =
      accessibilityFunction<CreateStandard>("CreateStdAccessibleObject");
  static const auto answerWith = accessibilityFunction<AnswerWith>("LresultFromObject");
  if (static_cast<LONG>(request.object) != static_cast<LONG>(OBJID_CLIENT)) return {};
  if (!createStandard || !answerWith) return {};
  void* standard = nullptr;
  if (FAILED(createStandard(window, OBJID_CLIENT, IID_IAccessible, &standard))) return {};
  IAccessible* const object =
      new Class(static_cast<IAccessible*>(standard), window, name, arguments...);
  const LRESULT result = answerWith(IID_IAccessible, request.flags, object);
  object->Release();
  return result;
}

}  // namespace

std::optional<LRESULT> answerForTextBox(AccessibleRequest request, HWND edit,
                                        const std::wstring& name, HWND combo) {
  return answer<AccessibleTextBox>(request, edit, name, combo);
}

std::optional<LRESULT> answerForPart(AccessibleRequest request, HWND window,
                                     const std::wstring& name) {
  return answer<NamedAccessible>(request, window, name);
}

std::optional<LRESULT> answerForList(AccessibleRequest request, HWND list,
                                     const std::wstring& name) {
  return answer<AccessibleList>(request, list, name);
}

}  // namespace keyscout
