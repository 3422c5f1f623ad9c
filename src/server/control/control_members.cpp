#include "server/com/values.h"
#include "server/control/control_object.h"
#include "server/control/extent.h"
#include "server/host_brands.h"
#include "server/windows_platform.h"

// The members that the host's code calls. What each does stands with `keyscoutControl`.

namespace keyscout {
namespace {

/// A colour as the host gave it, a number or a text that is one to the system: "&HFF", "1,000".
/// What is none comes back as nothing, which the core refuses.
Variant colorFrom(const VARIANT& given) {
  OwnedVariant plain;
  require(VariantCopyInd(&plain, const_cast<VARIANT*>(&given)));
  // Colours beyond 31 bits come as unsigned numbers, too.
  if (plain.vt == VT_UI4) return static_cast<std::int32_t>(plain.ulVal);
  OwnedVariant number;
  const bool isNumber =
      plain.vt != VT_DISPATCH && SUCCEEDED(VariantChangeType(&number, &plain, 0, VT_I4));
  if (!isNumber) return std::monostate{};
  return static_cast<std::int32_t>(number.lVal);
}

void toVariant(const Variant& value, VARIANT& result) {
  result.vt = VT_I4;
  result.lVal = toInt32(value);
}

}  // namespace

ControlObject::ControlObject() : control_(windowsPlatform(), surface_, events_) {
  extent_ = toHimetric(surface_.size(), surface_.look().dpi());
}

HRESULT ControlObject::get_text(BSTR* result) {
  return call([&] { target(result) = newBstr(control_.text()); });
}
HRESULT ControlObject::put_text(BSTR value) {
  return call([&] {
    control_.setText(viewOf(value));
    propertyChanged(ControlMember_text);
  });
}

HRESULT ControlObject::hideList() {
  return call([&] { control_.hideList(); });
}

HRESULT ControlObject::setAuthorizedBrands(IDispatch** authroizedBrands) {
  return call([&] {
    const ComPtr<IDispatch> object{target(authroizedBrands)};
    HostBrandList brands{object};
    control_.setAuthorizedBrands(object ? &brands : nullptr);
  });
}

HRESULT ControlObject::lockKeyscout() {
  return call([&] { control_.lockKeyscout(); });
}

HRESULT ControlObject::doit() {
  return call([&] { control_.doit(); });
}

HRESULT ControlObject::get_selStart(short* result) {
  return call([&] { target(result) = control_.selStart(); });
}
HRESULT ControlObject::put_selStart(short value) {
  return call([&] { control_.setSelStart(value); });
}
HRESULT ControlObject::get_selLength(short* result) {
  return call([&] { target(result) = control_.selLength(); });
}
HRESULT ControlObject::put_selLength(short value) {
  return call([&] { control_.setSelLength(value); });
}
HRESULT ControlObject::get_Enabled(VARIANT_BOOL* result) {
  return call([&] { target(result) = toVariantBool(control_.Enabled()); });
}
HRESULT ControlObject::put_Enabled(VARIANT_BOOL value) {
  return call([&] {
    control_.setEnabled(fromVariantBool(value));
    if (inPlaceSite_) surface_.setEnabled(takesInput());
    propertyChanged(ControlMember_Enabled);
  });
}
HRESULT ControlObject::get_ForeColor(VARIANT* result) {
  return call([&] { toVariant(control_.ForeColor(), target(result)); });
}
HRESULT ControlObject::put_ForeColor(VARIANT value) {
  return call([&] {
    control_.setForeColor(colorFrom(value));
    propertyChanged(ControlMember_ForeColor);
  });
}
HRESULT ControlObject::get_BackColor(VARIANT* result) {
  return call([&] { toVariant(control_.BackColor(), target(result)); });
}
HRESULT ControlObject::put_BackColor(VARIANT value) {
  return call([&] {
    control_.setBackColor(colorFrom(value));
    propertyChanged(ControlMember_BackColor);
  });
}
HRESULT ControlObject::get_FontBold(VARIANT_BOOL* result) {
  return call([&] { target(result) = toVariantBool(control_.FontBold()); });
}
HRESULT ControlObject::put_FontBold(VARIANT_BOOL value) {
  return call([&] {
    control_.setFontBold(fromVariantBool(value));
    propertyChanged(ControlMember_FontBold);
  });
}
HRESULT ControlObject::get_TheToolTipText(BSTR* result) {
  return call([&] { target(result) = newBstr(control_.TheToolTipText()); });
}
HRESULT ControlObject::put_TheToolTipText(BSTR value) {
  return call([&] {
    control_.setTheToolTipText(viewOf(value));
    propertyChanged(ControlMember_TheToolTipText);
  });
}
HRESULT ControlObject::get_isListShowing(VARIANT_BOOL* result) {
  return call([&] { target(result) = toVariantBool(control_.isListShowing()); });
}
HRESULT ControlObject::get_Locked(VARIANT_BOOL* result) {
  return call([&] { target(result) = toVariantBool(control_.Locked()); });
}
HRESULT ControlObject::put_Locked(VARIANT_BOOL value) {
  return call([&] {
    control_.setLocked(fromVariantBool(value));
    propertyChanged(ControlMember_Locked);
  });
}
HRESULT ControlObject::get_brand(BSTR* result) {
  return call([&] { target(result) = newBstr(control_.brand()); });
}
HRESULT ControlObject::put_brand(BSTR* value) {
  return call([&] {
    control_.setBrand(viewOf(target(value)));
    propertyChanged(ControlMember_brand);
  });
}

}  // namespace keyscout
