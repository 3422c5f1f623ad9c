// Calls from one thread's objects to another's, which find their way by what is registered.

#include <gtest/gtest.h>

#include <thread>

#include "support/test_form.h"

namespace keyscout {
namespace {

struct Answer {
  HRESULT unmarshaled = E_FAIL;
  HRESULT put = E_FAIL;
  HRESULT got = E_FAIL;
  std::string directory;
};

/// What a thread of its own, with an apartment of its own, is answered by the controller in
/// `stream`.
Answer askFromOtherThread(IStream* stream) {
  Answer answer;
  OleInitialize(nullptr);
  void* made = nullptr;
  answer.unmarshaled =
      CoGetInterfaceAndReleaseStream(stream, __uuidof(_RWKeyscoutController), &made);
  if (SUCCEEDED(answer.unmarshaled)) {
    const auto controller =
        ComPtr<_RWKeyscoutController>::adopt(static_cast<_RWKeyscoutController*>(made));
    Bstr directory{u"C:\\elsewhere"};
    BSTR read = nullptr;
    answer.put = controller->put_KeyscoutDirectory(directory.address());
    answer.got = controller->get_KeyscoutDirectory(&read);
    answer.directory = takeText(read);
  }
  OleUninitialize();
  return answer;
}

TEST(Threads, AControllerAnswersOtherThreads) {
  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  ASSERT_TRUE(controller);
  IStream* stream = nullptr;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_RWKeyscoutController), controller.get(),
                                                  &stream),
            S_OK);
  Answer answer;
  std::thread other{[&, caller = GetCurrentThreadId()] {
    answer = askFromOtherThread(stream);
    PostThreadMessageW(caller, WM_APP, 0, 0);
  }};
  // The call comes as a message to this thread.
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_APP)
    DispatchMessageW(&message);
  other.join();
  EXPECT_EQ(answer.unmarshaled, S_OK);
  EXPECT_EQ(answer.put, S_OK);
  EXPECT_EQ(answer.got, S_OK);
  EXPECT_EQ(answer.directory, "C:\\elsewhere\\");

  Bstr none{u""};
  controller->put_KeyscoutDirectory(none.address());
}

}  // namespace
}  // namespace keyscout
