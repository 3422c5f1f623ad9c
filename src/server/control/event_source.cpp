#include "server/control/event_source.h"

#include <algorithm>
#include <vector>

#include "keyscout_h.h"
#include "server/com/values.h"

namespace keyscout {
namespace {

VARIANT byReference(std::int16_t& variable) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_I2;
  argument.piVal = &variable;
  return argument;
}

VARIANT byReference(float& variable) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_R4;
  argument.pfltVal = &variable;
  return argument;
}

VARIANT byReference(Bstr& variable) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_BSTR;
  argument.pbstrVal = variable.address();
  return argument;
}

}  // namespace

EventSource::EventSource(IConnectionPointContainer& owner)
    : point_(owner, DIID___keyscoutControl, true) {}

void EventSource::raise(DISPID id, std::initializer_list<VARIANT> arguments) {
  if (isFrozen()) return;
  std::vector<VARIANT> lastFirst{arguments};
  std::reverse(lastFirst.begin(), lastFirst.end());
  point_.tellEach([&](IUnknown& sink) {
    DISPPARAMS parameters{lastFirst.data(), nullptr, static_cast<UINT>(lastFirst.size()), 0};
    OwnedVariant ignored;
    // A sink of an event interface is called by number alone. Its failures stay its own.
    static_cast<IDispatch&>(sink).Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                         &parameters, &ignored, nullptr, nullptr);
  });
}

void EventSource::Change() { raise(ControlEvent_Change); }
void EventSource::needBrand() { raise(ControlEvent_needBrand); }
void EventSource::Click() { raise(ControlEvent_Click); }
void EventSource::DblClick() { raise(ControlEvent_DblClick); }
void EventSource::UpdateKeyscout() { raise(ControlEvent_UpdateKeyscout); }

void EventSource::brandChanged(String& strBrand) {
  Bstr variable{strBrand};
  raise(ControlEvent_brandChanged, {byReference(variable)});
  strBrand = viewOf(variable.get());
}

void EventSource::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  raise(ControlEvent_KeyDown, {byReference(KeyCode), byReference(Shift)});
}

void EventSource::KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  raise(ControlEvent_KeyUp, {byReference(KeyCode), byReference(Shift)});
}

void EventSource::MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(ControlEvent_MouseDown,
        {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

void EventSource::MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(ControlEvent_MouseMove,
        {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

void EventSource::MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(ControlEvent_MouseUp,
        {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

}  // namespace keyscout
