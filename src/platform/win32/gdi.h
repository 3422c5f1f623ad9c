#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace keyscout {

struct GdiDeleter {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <class Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;
using Font = GdiObject<HFONT>;
using Brush = GdiObject<HBRUSH>;

/// A context for measuring on `window`, or on the whole screen.
class WindowContext {
 public:
  explicit WindowContext(HWND window = nullptr) : window_(window), context_(GetDC(window)) {}
  ~WindowContext() { ReleaseDC(window_, context_); }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;

  operator HDC() const { return context_; }

 private:
  HWND window_;
  HDC context_;
};

/// A context for drawing on all of `window`, its border included.
class WholeWindowContext {
 public:
  explicit WholeWindowContext(HWND window) : window_(window), context_(GetWindowDC(window)) {}
  ~WholeWindowContext() { ReleaseDC(window_, context_); }
  WholeWindowContext(const WholeWindowContext&) = delete;
  WholeWindowContext& operator=(const WholeWindowContext&) = delete;

  operator HDC() const { return context_; }

 private:
  HWND window_;
  HDC context_;
};

/// While it lives, `context` draws with `object`.
class Selected {
 public:
  Selected(HDC context, HGDIOBJ object)
      : context_(context), before_(SelectObject(context, object)) {}
  ~Selected() { SelectObject(context_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC context_;
  HGDIOBJ before_;
};

}  // namespace keyscout
