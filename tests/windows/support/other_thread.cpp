#include "support/other_thread.h"

#include <thread>

namespace keyscout {
namespace {

void ask(IStream* stream, OtherThreadsAnswer& answer) {
  ComPtr<_RWKeyscoutController> controller;
  answer.unmarshaled =
      CoGetInterfaceAndReleaseStream(stream, __uuidof(_RWKeyscoutController), controller.putAny());
  if (FAILED(answer.unmarshaled)) return;
  Bstr directory{u"C:\\elsewhere"};
  BSTR read = nullptr;
  answer.put = controller->put_KeyscoutDirectory(directory.address());
  answer.got = controller->get_KeyscoutDirectory(&read);
  answer.directory = takeText(read);
}

}  // namespace

OtherThreadsAnswer askFromOtherThread(_RWKeyscoutController& controller) {
  OtherThreadsAnswer answer;
  IStream* stream = nullptr;
  answer.marshaled =
      CoMarshalInterThreadInterfaceInStream(__uuidof(_RWKeyscoutController), &controller, &stream);
  if (FAILED(answer.marshaled)) return answer;
  std::thread other{[&, caller = GetCurrentThreadId()] {
    OleInitialize(nullptr);
    ask(stream, answer);
    OleUninitialize();
    PostThreadMessageW(caller, WM_APP, 0, 0);
  }};
  // The calls come as messages to this thread.
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_APP)
    DispatchMessageW(&message);
  other.join();
  return answer;
}

}  // namespace keyscout
