#include "platform/win32/thread_form.h"

namespace keyscout {
namespace {

// Only a pointer: a destructor would keep a library loaded for as long as the thread lives.
thread_local ThreadForm* currentForm = nullptr;

}  // namespace

std::shared_ptr<ThreadForm> ThreadForm::ofThisThread() {
  if (currentForm) return currentForm->shared_from_this();
  std::shared_ptr<ThreadForm> form{new ThreadForm};
  currentForm = form.get();
  return form;
}

ThreadForm::~ThreadForm() { currentForm = nullptr; }

ThreadForm::FocusPause::FocusPause() : form_(ofThisThread()), focused_(GetFocus()) {
  ++form_->pauses_;
}

ThreadForm::FocusPause::~FocusPause() {
  if (focused_ && IsWindow(focused_)) SetFocus(focused_);
  --form_->pauses_;
}

}  // namespace keyscout
