#include "server/control/event_source.h"

#include <algorithm>
#include <vector>

#include "keyscout_h.h"
#include "server/com/values.h"

namespace keyscout {
namespace {

/// The numbers of the events, as keyscout.idl gives them.
namespace Event {
constexpr DISPID change = 1;
constexpr DISPID brandChanged = 2;
constexpr DISPID needBrand = 3;
constexpr DISPID keyDown = 4;
constexpr DISPID mouseDown = 5;
constexpr DISPID mouseMove = 6;
constexpr DISPID mouseUp = 7;
constexpr DISPID click = 8;
constexpr DISPID dblClick = 9;
constexpr DISPID keyUp = 10;
constexpr DISPID updateKeyscout = 11;
}  // namespace Event

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

void EventSource::Change() { raise(Event::change); }
void EventSource::needBrand() { raise(Event::needBrand); }
void EventSource::Click() { raise(Event::click); }
void EventSource::DblClick() { raise(Event::dblClick); }
void EventSource::UpdateKeyscout() { raise(Event::updateKeyscout); }

void EventSource::brandChanged(String& strBrand) {
  Bstr variable{strBrand};
  raise(Event::brandChanged, {byReference(variable)});
  strBrand = viewOf(variable.get());
}

void EventSource::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  raise(Event::keyDown, {byReference(KeyCode), byReference(Shift)});
}

void EventSource::KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  raise(Event::keyUp, {byReference(KeyCode), byReference(Shift)});
}

void EventSource::MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(Event::mouseDown,
        {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

void EventSource::MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(Event::mouseMove,
        {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

void EventSource::MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raise(Event::mouseUp, {byReference(Button), byReference(Shift), byReference(X), byReference(Y)});
}

}  // namespace keyscout
