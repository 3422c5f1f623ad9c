// The control's picture, for forms that are being designed and for paper.

#include <algorithm>
#include <array>

#include "platform/win32/appearance.h"
#include "platform/win32/gdi.h"
#include "platform/win32/wide.h"
#include "server/control/control_object.h"

namespace keyscout {
namespace {

/// Gives a device context back as it was.
class SavedContext {
 public:
  explicit SavedContext(HDC context) : context_(context), state_(SaveDC(context)) {}
  ~SavedContext() { RestoreDC(context_, state_); }
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;

 private:
  HDC context_;
  int state_;
};

void fill(HDC target, const RECT& area, COLORREF color) {
  const Brush brush{CreateSolidBrush(color)};
  FillRect(target, &area, brush.get());
}

/// Where `bounds` is on the device, whose pixels `context` measures in from then on: a container
/// may measure in any unit and upwards. A metafile has no pixels and keeps its maker's measures.
RECT placeOnDevice(HDC context, const RECTL& bounds) {
  std::array<POINT, 2> corners{{{bounds.left, bounds.top}, {bounds.right, bounds.bottom}}};
  const DWORD kind = GetObjectType(context);
  if (kind == OBJ_DC || kind == OBJ_MEMDC) {
    LPtoDP(context, corners.data(), static_cast<int>(corners.size()));
    ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
    SetMapMode(context, MM_TEXT);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetViewportOrgEx(context, 0, 0, nullptr);
  }
  const auto [left, right] = std::minmax(corners[0].x, corners[1].x);
  const auto [top, bottom] = std::minmax(corners[0].y, corners[1].y);
  return {left, top, right, bottom};
}

}  // namespace

HRESULT ControlObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context,
                            LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                            ULONG_PTR) {
  return call([&] {
    if (aspect != DVASPECT_CONTENT) throw ComFailure{DV_E_DVASPECT};
    if (!context) throw ComFailure{E_POINTER};
    const RECTL& given = target(bounds);
    const SavedContext saved{context};
    RECT area = placeOnDevice(context, given);
    if (IsRectEmpty(&area)) return;

    // The target may have any resolution: everything is as large as the control is drawn.
    const SIZE pixels = surface_.size();
    const int drawnHeight = area.bottom - area.top;
    const auto toTarget = [&](int length) {
      return MulDiv(length, drawnHeight, std::max<int>(1, static_cast<int>(pixels.cy)));
    };
    fill(context, area, colorOf(ambients_.backColor, GetSysColor(COLOR_BTNFACE)));
    area.bottom = std::min<LONG>(area.bottom, area.top + toTarget(surface_.textBox().height()));
    fill(context, area, surface_.textBox().shownBackColor());
    DrawEdge(context, &area, EDGE_SUNKEN, BF_RECT);

    LOGFONTW description = surface_.look().fontDescription();
    description.lfHeight = toTarget(description.lfHeight);
    description.lfWidth = 0;
    if (surface_.textBox().fontBold()) description.lfWeight = FW_BOLD;
    const Font font{CreateFontIndirectW(&description)};
    SelectObject(context, font.get());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, surface_.textBox().shownForeColor());
    InflateRect(&area, -toTarget(surface_.look().inset()), 0);
    std::wstring text = toWide(control_.text());
    const UINT direction = isRightToLeft() ? DT_RIGHT : DT_LEFT;
    DrawTextW(context, text.data(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | direction);
    SelectObject(context, GetStockObject(SYSTEM_FONT));
  });
}

HRESULT ControlObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return call([&] {
    viewSink_ = ComPtr<IAdviseSink>{sink};
    viewAspects_ = aspects;
    viewFlags_ = flags;
    if (flags & ADVF_PRIMEFIRST) viewChanged();
  });
}

HRESULT ControlObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  return call([&] {
    if (aspects) *aspects = viewAspects_;
    if (flags) *flags = viewFlags_;
    if (sink) *sink = ComPtr<IAdviseSink>{viewSink_}.detach();
  });
}

void ControlObject::viewChanged() {
  const auto sink = viewSink_;
  if (!sink) return;
  if (viewFlags_ & ADVF_ONLYONCE) viewSink_ = nullptr;
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace keyscout
