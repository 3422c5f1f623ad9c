#include "platform/win32/thread_form.h"

#include "platform/win32/thread_pointer.h"

namespace keyscout {
namespace {

const ThreadPointer<ThreadForm> currentForm;

}  // namespace

std::shared_ptr<ThreadForm> ThreadForm::ofThisThread() {
  if (ThreadForm* const form = currentForm.get()) return form->shared_from_this();
  std::shared_ptr<ThreadForm> form{new ThreadForm};
  currentForm.set(form.get());
  return form;
}

ThreadForm::~ThreadForm() { currentForm.set(nullptr); }

ThreadForm::FocusPause::FocusPause() : form_(ofThisThread()), focused_(GetFocus()) {
  ++form_->pauses_;
}

ThreadForm::FocusPause::~FocusPause() {
  if (focused_ && IsWindow(focused_)) SetFocus(focused_);
  --form_->pauses_;
}

}  // namespace keyscout
