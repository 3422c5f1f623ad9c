// Calls while there is no memory left.

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/message_box_answer.h"
#include "support/replaced_import.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

using Allocate = void*(std::size_t size);
using AllocateMany = void*(std::size_t count, std::size_t size);
using Reallocate = void*(void* block, std::size_t size);

/// While it lives, the library gets `allocations` blocks of memory and then none.
class LittleMemory {
 public:
  explicit LittleMemory(int allocations = 0)
      : malloc_(library(), "malloc", &allocate),
        calloc_(library(), "calloc", &allocateMany),
        realloc_(library(), "realloc", &reallocate) {
    originalMalloc = malloc_.original<Allocate>();
    originalCalloc = calloc_.original<AllocateMany>();
    originalRealloc = realloc_.original<Reallocate>();
    left = allocations;
    refused = 0;
  }

  int refusals() const { return refused; }

 private:
  static HMODULE library() { return GetModuleHandleW(L"keyscout.dll"); }
  static bool refuse() {
    if (--left >= 0) return false;
    ++refused;
    return true;
  }
  static void* allocate(std::size_t size) { return refuse() ? nullptr : originalMalloc(size); }
  static void* allocateMany(std::size_t count, std::size_t size) {
    return refuse() ? nullptr : originalCalloc(count, size);
  }
  static void* reallocate(void* block, std::size_t size) {
    return refuse() ? nullptr : originalRealloc(block, size);
  }

  static inline Allocate* originalMalloc = nullptr;
  static inline AllocateMany* originalCalloc = nullptr;
  static inline Reallocate* originalRealloc = nullptr;
  static inline std::atomic<int> left = 0;
  static inline std::atomic<int> refused = 0;
  ReplacedImport malloc_;
  ReplacedImport calloc_;
  ReplacedImport realloc_;
};

std::u16string longText() { return std::u16string(1000, u'x'); }

TEST(Memory, ACallEndsWithOutOfMemory) {
  TestForm form;
  const auto control = form.control();
  {
    const LittleMemory none;
    EXPECT_EQ(control->put_text(Bstr{longText()}.get()), E_OUTOFMEMORY);
    Bstr brand{longText()};
    EXPECT_EQ(control->put_brand(brand.address()), E_OUTOFMEMORY);
    EXPECT_EQ(form.controller().put_updateURL(Bstr{longText()}.get()), E_OUTOFMEMORY);
    EXPECT_EQ(control->put_TheToolTipText(Bstr{longText()}.get()), E_OUTOFMEMORY);
    EXPECT_GE(none.refusals(), 4);
  }
  // The text was not written, so lookups are still disabled for it.
  EXPECT_EQ(form.controller().put_KeyscoutEnabled(VARIANT_TRUE), S_OK);
  EXPECT_EQ(control->put_text(Bstr{u"again"}.get()), S_OK);
  EXPECT_EQ(form.text(), "again");
}

TEST(Memory, AListOpensAsBeforeOnceThereIsMemoryAgain) {
  TestForm form;
  const MessageBoxAnswer box{IDNO};
  // Without any, and with the little that lets the lookup begin.
  for (const int allocations : {0, 1, 2, 4, 8}) {
    SCOPED_TRACE(allocations);
    form.enter();
    form.control()->put_text(nullptr);
    form.type("a");
    ASSERT_TRUE(form.isOpen());
    {
      const LittleMemory little{allocations};
      form.type("b");
      EXPECT_GT(little.refusals(), 0);
    }
    EXPECT_EQ(form.text(), "ab") << "nothing typed is lost";
    VARIANT_BOOL unlocked = VARIANT_FALSE;
    EXPECT_EQ(form.controller().tryToUnlock(&unlocked), S_OK);
    EXPECT_EQ(form.controller().put_KeyscoutEnabled(VARIANT_TRUE), S_OK);
    form.key(VK_BACK);
    form.type("b");
    ASSERT_TRUE(form.isOpen());
    EXPECT_EQ(form.entries().size(), 9u);
    form.key(VK_DOWN);
    form.key(VK_RETURN);
    EXPECT_EQ(form.text(), "AB-100");
  }
}

// Each on a thread whose first failure it is.
TEST(Memory, AnyAllocationOfACreationMayFail) {
  ComPtr<IClassFactory> keepsLibrary;
  CoGetClassObject(CLSID_keyscoutControl, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                   keepsLibrary.putAny());
  int failures = 0;
  bool succeeded = false;
  for (int allocations = 0; allocations < 500 && !succeeded; ++allocations) {
    std::thread{[&] {
      OleInitialize(nullptr);
      {
        ComPtr<IClassFactory> factory;
        CoGetClassObject(CLSID_keyscoutControl, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                         factory.putAny());
        ComPtr<_keyscoutControl> control;
        const LittleMemory little{allocations};
        const HRESULT created =
            factory->CreateInstance(nullptr, IID__keyscoutControl, control.putAny());
        succeeded = little.refusals() == 0;
        failures += FAILED(created) ? 1 : 0;
        EXPECT_TRUE(created == S_OK || created == E_OUTOFMEMORY) << allocations;
        EXPECT_EQ(created == S_OK, control.get() != nullptr);
      }
      OleUninitialize();
    }}.join();
  }
  EXPECT_TRUE(succeeded);
  EXPECT_GT(failures, 3);
}

DWORD windowError = 0;

HWND WINAPI makeNoWindow(DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE,
                         LPVOID) {
  SetLastError(windowError);
  return nullptr;
}

TEST(Memory, AWindowThatCannotBeMadeIsNotAlwaysForWantOfMemory) {
  ComPtr<IClassFactory> factory;
  CoGetClassObject(CLSID_keyscoutControl, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                   factory.putAny());
  const ReplacedImport noWindows{GetModuleHandleW(L"keyscout.dll"), "CreateWindowExW",
                                 &makeNoWindow};
  ComPtr<IUnknown> control;
  const auto create = [&](DWORD error) {
    windowError = error;
    return factory->CreateInstance(nullptr, IID_IUnknown, control.putAny());
  };
  EXPECT_EQ(create(ERROR_NOT_ENOUGH_MEMORY), E_OUTOFMEMORY);
  EXPECT_EQ(create(0), static_cast<HRESULT>(0x800705B3));  // what a system without a screen leaves
  ComPtr<IErrorInfo> information;
  ASSERT_EQ(GetErrorInfo(0, information.put()), S_OK);
  BSTR description = nullptr;
  information->GetDescription(&description);
  EXPECT_EQ(takeText(description), "There is no screen to make windows on");
}

}  // namespace
}  // namespace keyscout
