#include "support/message_box_answer.h"

namespace keyscout {

MessageBoxAnswer* MessageBoxAnswer::current_ = nullptr;

MessageBoxAnswer::MessageBoxAnswer(int button)
    : button_(button), timer_(SetTimer(nullptr, 0, 20, &look)) {
  current_ = this;
}

MessageBoxAnswer::~MessageBoxAnswer() {
  KillTimer(nullptr, timer_);
  current_ = nullptr;
}

void CALLBACK MessageBoxAnswer::look(HWND, UINT, UINT_PTR, DWORD) {
  if (!current_) return;
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  if (GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE)) {
    ++current_->menus_;
    EndMenu();
  }
  const HWND box = FindWindowW(L"#32770", nullptr);
  const bool isOurs = box && GetWindowThreadProcessId(box, nullptr) == GetCurrentThreadId();
  if (!isOurs || box == current_->answered_ || !IsWindowVisible(box)) return;
  current_->answered_ = box;
  ++current_->boxes_;
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(current_->button_), 0);
}

}  // namespace keyscout
