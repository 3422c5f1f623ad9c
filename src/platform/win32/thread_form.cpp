#include "platform/win32/thread_form.h"

#include <windows.h>

namespace keyscout {
namespace {

// Only a pointer: a destructor would keep a library loaded for as long as the thread lives.
thread_local std::weak_ptr<ThreadForm>* currentForm = nullptr;

}  // namespace

std::shared_ptr<ThreadForm> ThreadForm::ofThisThread() {
  if (currentForm) return currentForm->lock();
  std::shared_ptr<ThreadForm> form{new ThreadForm};
  currentForm = new std::weak_ptr<ThreadForm>{form};
  return form;
}

ThreadForm::~ThreadForm() {
  delete currentForm;
  currentForm = nullptr;
}

ThreadForm::FocusPause::FocusPause() : form_(ofThisThread()), focused_(GetFocus()) {
  ++form_->pauses_;
}

ThreadForm::FocusPause::~FocusPause() {
  const auto window = static_cast<HWND>(focused_);
  if (window && IsWindow(window)) SetFocus(window);
  --form_->pauses_;
}

}  // namespace keyscout
