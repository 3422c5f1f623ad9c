#include "server/control/ambients.h"

#include <oleauto.h>
#include <olectl.h>

#include "platform/win32/appearance.h"
#include "server/com/values.h"

namespace keyscout {
namespace {

/// An ambient property converted to `type`; false where the container has none such.
bool read(IDispatch* container, DISPID id, VARTYPE type, OwnedVariant& value) {
  if (!container) return false;
  DISPPARAMS none{};
  OwnedVariant given;
  return SUCCEEDED(container->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                     &given, nullptr, nullptr)) &&
         SUCCEEDED(VariantChangeType(&value, &given, 0, type));
}

bool flag(IDispatch* container, DISPID id, bool otherwise) {
  OwnedVariant value;
  return read(container, id, VT_BOOL, value) ? value.boolVal != VARIANT_FALSE : otherwise;
}

LONG color(IDispatch* container, DISPID id, LONG otherwise) {
  OwnedVariant value;
  return read(container, id, VT_I4, value) ? value.lVal : otherwise;
}

String text(IDispatch* container, DISPID id) {
  OwnedVariant value;
  return read(container, id, VT_BSTR, value) ? String{viewOf(value.bstrVal)} : String{};
}

std::optional<LOGFONTW> fontOf(IDispatch* container) {
  OwnedVariant value;
  if (!read(container, DISPID_AMBIENT_FONT, VT_DISPATCH, value)) return {};
  const auto font = ComPtr<IFont>::from(value.pdispVal);
  HFONT handle = nullptr;
  LOGFONTW description{};
  if (!font || FAILED(font->get_hFont(&handle))) return {};
  if (GetObjectW(handle, sizeof description, &description) == 0) return {};
  return description;
}

}  // namespace

Ambients Ambients::of(IOleClientSite* site) {
  const auto container = ComPtr<IDispatch>::from(site);
  IDispatch* const from = container.get();
  return {flag(from, DISPID_AMBIENT_USERMODE, true),
          flag(from, DISPID_AMBIENT_UIDEAD, false),
          color(from, DISPID_AMBIENT_BACKCOLOR, systemColor(COLOR_BTNFACE)),
          color(from, DISPID_AMBIENT_FORECOLOR, systemColor(COLOR_WINDOWTEXT)),
          flag(from, DISPID_AMBIENT_RIGHTTOLEFT, false),
          fontOf(from),
          text(from, DISPID_AMBIENT_DISPLAYNAME)};
}

}  // namespace keyscout
