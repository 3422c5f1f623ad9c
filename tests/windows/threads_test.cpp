// Calls from one thread's objects to another's, which find their way by what is registered.

#include <gtest/gtest.h>

#include "support/other_thread.h"

namespace keyscout {
namespace {

TEST(Threads, AControllerAnswersOtherThreads) {
  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  ASSERT_TRUE(controller);
  const OtherThreadsAnswer answer = askFromOtherThread(*controller);
  EXPECT_EQ(answer.marshaled, S_OK);
  EXPECT_EQ(answer.unmarshaled, S_OK);
  EXPECT_EQ(answer.put, S_OK);
  EXPECT_EQ(answer.got, S_OK);
  EXPECT_EQ(answer.directory, "C:\\elsewhere\\");

  Bstr none{u""};
  controller->put_KeyscoutDirectory(none.address());
}

}  // namespace
}  // namespace keyscout
