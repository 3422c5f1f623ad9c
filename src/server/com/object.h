#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <atomic>
#include <tuple>
#include <type_traits>

#include "server/com/com_ptr.h"
#include "server/com/module.h"

namespace keyscout {

/// The interface that an interface extends, where that is more than IUnknown and may be asked for.
template <class Interface>
struct Extends {
  using Type = std::conditional_t<std::is_base_of_v<IDispatch, Interface> &&
                                      !std::is_same_v<IDispatch, Interface>,
                                  IDispatch, IUnknown>;
};
template <>
struct Extends<IProvideClassInfo2> {
  using Type = IProvideClassInfo;
};
template <>
struct Extends<IOleInPlaceObject> {
  using Type = IOleWindow;
};
template <>
struct Extends<IOleInPlaceActiveObject> {
  using Type = IOleWindow;
};
template <>
struct Extends<IViewObject2> {
  using Type = IViewObject;
};
template <>
struct Extends<IPersistStreamInit> {
  using Type = IPersist;
};
template <>
struct Extends<IPersistStorage> {
  using Type = IPersist;
};
template <>
struct Extends<IPersistPropertyBag> {
  using Type = IPersist;
};

/// Reference counting and interface lookup, once for every class of objects. An object begins with
/// the one reference that its maker owns, and is deleted with its last.
template <class... Interfaces>
class Object : public Interfaces... {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id == __uuidof(IUnknown))
      *result = identity();
    else
      ((*result || (*result = find<Interfaces, Interfaces>(id))), ...);
    if (!*result) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      // What the destructor calls may hold and release the object once more.
      references_ = beingDestroyed;
      delete this;
    }
    return left;
  }

 protected:
  Object() = default;
  virtual ~Object() = default;

  IUnknown* identity() {
    using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
    return static_cast<First*>(this);
  }

 private:
  static constexpr ULONG beingDestroyed = 0x40000000;

  template <class Interface, class Asked>
  Interface* find(REFIID id) {
    if (id == __uuidof(Asked)) return this;
    using Base = typename Extends<Asked>::Type;
    if constexpr (!std::is_same_v<Base, IUnknown>) return find<Interface, Base>(id);
    return nullptr;
  }

  std::atomic<ULONG> references_{1};
  ModuleUse use_;
};

}  // namespace keyscout
