// Hosts that end a control at any time, and what is left afterwards.

#include <gtest/gtest.h>

#include <thread>

#include "support/test_form.h"

namespace keyscout {
namespace {

using CanUnload = HRESULT STDAPICALLTYPE();

bool canUnload() {
  const HMODULE library = GetModuleHandleW(L"keyscout.dll");
  const FARPROC found = library ? GetProcAddress(library, "DllCanUnloadNow") : nullptr;
  return found && std::bit_cast<CanUnload*>(found)() == S_OK;
}

int windowsOfThread() {
  int count = 0;
  for (const HWND root : {HWND{}, HWND{HWND_MESSAGE}})
    for (HWND window = nullptr; (window = FindWindowExW(root, window, nullptr, nullptr));) {
      wchar_t name[40] = L"";
      GetClassNameW(window, name, 40);
      const bool ours = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
      const std::wstring_view kind = name;
      count += ours && (kind == L"Keyscout.Surface" || kind == L"ComboBox" || kind == L"Edit");
    }
  return count;
}

struct Ending {
  const char* name;
  void (*end)(TestForm&);
};

const Ending endings[] = {
    {"the control is closed", [](TestForm& form) { form.site().close(); }},
    {"the form is destroyed", [](TestForm& form) { DestroyWindow(form.window()); }},
    {"the control is closed, then the form destroyed",
     [](TestForm& form) {
       form.site().close();
       DestroyWindow(form.window());
     }},
};

struct Trigger {
  const char* event;
  void (*act)(TestForm&);
};

const Trigger triggers[] = {
    {"KeyDown", [](TestForm& form) { form.type("a"); }},
    {"needBrand", [](TestForm& form) { form.type("a"); }},
    {"Change", [](TestForm& form) { form.type("a"); }},
    {"KeyUp", [](TestForm& form) { form.type("a"); }},
    {"Change",
     [](TestForm& form) {
       if (const auto control = form.control()) control->put_text(Bstr{u"x"}.get());
     }},
    {"brandChanged",
     [](TestForm& form) {
       form.type("ab");
       form.key(VK_DOWN);
       form.key(VK_RETURN);
     }},
    {"brandChanged",
     [](TestForm& form) {
       form.type("ab");
       form.click(form.entryOnScreen(2));
     }},
    {"MouseDown",
     [](TestForm& form) {
       const RECT box = placeOf(form.edit());
       form.click({box.left + 9, box.top + 9});
     }},
};

TEST(Lifetime, TheHostMayEndTheControlInsideAnyEvent) {
  for (const Ending& ending : endings) {
    for (const Trigger& trigger : triggers) {
      SCOPED_TRACE(std::string{ending.name} + " in " + trigger.event);
      {
        TestForm form;
        form.enter();
        bool ended = false;
        form.onEvent = [&](const std::string& name, DISPPARAMS&) {
          if (ended || name != trigger.event) return;
          ended = true;
          ending.end(form);
        };
        trigger.act(form);
        EXPECT_TRUE(ended);
      }
      EXPECT_EQ(windowsOfThread(), 0);
      EXPECT_TRUE(canUnload());
    }
  }
}

TEST(Lifetime, TenThousandObjectsLeaveNothing) {
  {
    // A thread without any other window would set up and take down its keyboard input each time.
    const TestForm form;
    for (int i = 0; i < 10000; ++i) {
      const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
      ASSERT_TRUE(control);
      const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
      ASSERT_TRUE(controller);
    }
    EXPECT_EQ(windowsOfThread(), 0);
  }
  EXPECT_TRUE(canUnload());
}

TEST(Lifetime, AnotherApartmentHasItsOwnState) {
  const auto here = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  here->put_KeyscoutEnabled(VARIANT_TRUE);
  HRESULT created = E_FAIL;
  VARIANT_BOOL enabled = VARIANT_TRUE;
  std::string text;
  std::thread{[&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
      const auto there = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
      const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
      created = there && control ? S_OK : E_FAIL;
      there->get_KeyscoutEnabled(&enabled);
      control->put_text(Bstr{u"over there"}.get());
      BSTR read = nullptr;
      control->get_text(&read);
      text = takeText(read);
    }
    CoUninitialize();
  }}.join();
  EXPECT_EQ(created, S_OK);
  EXPECT_EQ(enabled, VARIANT_FALSE);
  EXPECT_EQ(text, "over there");
  here->put_KeyscoutEnabled(VARIANT_FALSE);
}

TEST(Lifetime, ClassFactoriesLockTheLibrary) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(CoGetClassObject(CLSID_keyscoutControl, CLSCTX_INPROC_SERVER, nullptr,
                             IID_IClassFactory, std::bit_cast<void**>(factory.put())),
            S_OK);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  ComPtr<IUnknown> object;
  EXPECT_EQ(
      factory->CreateInstance(factory.get(), IID_IUnknown, std::bit_cast<void**>(object.put())),
      CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_FALSE(canUnload());
  factory = nullptr;
  EXPECT_TRUE(canUnload());
  EXPECT_EQ(CoGetClassObject(CLSID_RWKeyscoutCatalogData, CLSCTX_INPROC_SERVER, nullptr,
                             IID_IClassFactory, std::bit_cast<void**>(factory.put())),
            REGDB_E_CLASSNOTREG);
}

}  // namespace
}  // namespace keyscout
