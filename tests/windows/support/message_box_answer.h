#pragma once

#include <windows.h>

namespace keyscout {

/// While it lives, message boxes of this thread are answered with `button`, IDYES or IDNO, and
/// menus that open are closed.
class MessageBoxAnswer {
 public:
  explicit MessageBoxAnswer(int button);
  ~MessageBoxAnswer();
  MessageBoxAnswer(const MessageBoxAnswer&) = delete;
  MessageBoxAnswer& operator=(const MessageBoxAnswer&) = delete;

  int boxes() const { return boxes_; }
  int menus() const { return menus_; }

 private:
  static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD);

  static MessageBoxAnswer* current_;
  int button_;
  int boxes_ = 0;
  int menus_ = 0;
  HWND answered_ = nullptr;
  UINT_PTR timer_;
};

}  // namespace keyscout
