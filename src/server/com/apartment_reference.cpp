#include "server/com/apartment_reference.h"

#include <atomic>

namespace keyscout {
namespace {

// The loader ends one thread at a time.
std::atomic<DWORD> endingThread{0};

}  // namespace

ApartmentReference::ApartmentReference(ComPtr<IDispatch> object)
    : keeper_(makeObject<Keeper>(std::move(object))) {
  CoRegisterInitializeSpy(keeper_.get(), &registration_);
}

ApartmentReference::~ApartmentReference() {
  if (endingThread == GetCurrentThreadId())
    keeper_->object.detach();
  else
    CoRevokeInitializeSpy(registration_);
}

ApartmentReference::ThreadEnd::ThreadEnd() noexcept { endingThread = GetCurrentThreadId(); }
ApartmentReference::ThreadEnd::~ThreadEnd() { endingThread = 0; }

}  // namespace keyscout
