// Hosts that end a control at any time, and what is left afterwards. A program of its own, since
// the other tests leave state on the thread that they all run on.

#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <mutex>
#include <thread>

#include "support/replaced_import.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

/// The library's file as it is registered.
std::wstring libraryPath() {
  wchar_t path[MAX_PATH] = L"";
  DWORD size = sizeof path;
  RegGetValueW(HKEY_CLASSES_ROOT, L"CLSID\\{8DC9DEA3-00F1-485C-AB67-39522C69C52F}\\InprocServer32",
               nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
  return path;
}

/// The library, kept loaded while one of these lives.
class Library {
 public:
  Library() : module_(LoadLibraryW(libraryPath().c_str())) {}
  ~Library() { FreeLibrary(module_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  HMODULE module() const { return module_; }
  bool canUnload() const {
    const FARPROC found = GetProcAddress(module_, "DllCanUnloadNow");
    return found && std::bit_cast<HRESULT(STDAPICALLTYPE*)()>(found)() == S_OK;
  }

 private:
  HMODULE module_;
};

/// The library as somebody has it who loads it without COM, which would keep it loaded.
class UnsharedLibrary {
 public:
  UnsharedLibrary() : module_(LoadLibraryW(libraryPath().c_str())) {}
  ~UnsharedLibrary() {
    if (module_) FreeLibrary(module_);
  }
  UnsharedLibrary(const UnsharedLibrary&) = delete;
  UnsharedLibrary& operator=(const UnsharedLibrary&) = delete;

  HMODULE module() const { return module_; }
  HRESULT makeControl(ComPtr<_keyscoutControl>& control) const {
    const auto getClass = std::bit_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
        GetProcAddress(module_, "DllGetClassObject"));
    ComPtr<IClassFactory> factory;
    const HRESULT found = getClass(CLSID_keyscoutControl, IID_IClassFactory, factory.putAny());
    return FAILED(found) ? found
                         : factory->CreateInstance(nullptr, IID__keyscoutControl, control.putAny());
  }

 private:
  HMODULE module_;
};

/// A thread's hold on the library is given up by another thread, a moment after its end.
bool libraryGoes() {
  for (int tries = 0; tries < 1000 && GetModuleHandleW(L"keyscout.dll"); ++tries) Sleep(10);
  return !GetModuleHandleW(L"keyscout.dll");
}

bool isSurfaceClassKnownOf(HMODULE module) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  return GetClassInfoExW(module, L"Keyscout.Surface", &description) != FALSE;
}

std::atomic<int> registrations{0};
decltype(RegisterClassExW)* registerClass = nullptr;

/// Gives another thread the time to come here as well, where nothing keeps it from that.
ATOM WINAPI registerTogether(const WNDCLASSEXW* description) {
  ++registrations;
  for (int tries = 0; tries < 100 && registrations < 2; ++tries) Sleep(1);
  return registerClass(description);
}

// First, while COM does not know the library yet.
TEST(Lifetime, TwoThreadsMayMakeTheirFirstControlAtOnce) {
  for (int round = 0; round < 5; ++round) {
    SCOPED_TRACE(round);
    HMODULE module = nullptr;
    {
      const UnsharedLibrary library;
      module = library.module();
      ASSERT_TRUE(module);
      ASSERT_FALSE(isSurfaceClassKnownOf(module));
      const ReplacedImport together{module, "RegisterClassExW", &registerTogether};
      registerClass = together.original<decltype(RegisterClassExW)>();
      registrations = 0;
      std::string texts[2];
      std::mutex texting;
      const auto use = [&](std::string& text) {
        OleInitialize(nullptr);
        ComPtr<_keyscoutControl> control;
        EXPECT_EQ(library.makeControl(control), S_OK);
        if (control) {
          // Not at once: where two threads lay out the first text in a font, the runtime that these
          // tests run under frees what it keeps in a list, and falls later.
          const std::scoped_lock oneText{texting};
          control->put_text(Bstr{u"works"}.get());
          BSTR read = nullptr;
          control->get_text(&read);
          text = takeText(read);
        }
        OleUninitialize();
      };
      std::thread first{[&] { use(texts[0]); }};
      std::thread second{[&] { use(texts[1]); }};
      first.join();
      second.join();
      EXPECT_EQ(texts[0], "works");
      EXPECT_EQ(texts[1], "works");
      EXPECT_EQ(registrations, 1);
      EXPECT_TRUE(isSurfaceClassKnownOf(module));
    }
    ASSERT_TRUE(libraryGoes()) << "nothing of it is in use";
    EXPECT_FALSE(isSurfaceClassKnownOf(module)) << "the class went with it";
  }
}

/// Runs `body` on a thread with an apartment of its own, and returns when both have ended.
void onThread(const std::function<void()>& body) {
  std::thread{[&] {
    OleInitialize(nullptr);
    body();
    OleUninitialize();
  }}.join();
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
  const Library library;
  for (const Ending& ending : endings) {
    for (const Trigger& trigger : triggers) {
      SCOPED_TRACE(std::string{ending.name} + " in " + trigger.event);
      onThread([&] {
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
      });
      EXPECT_TRUE(library.canUnload());
    }
  }
}

TEST(Lifetime, TenThousandObjectsLeaveNothing) {
  const Library library;
  onThread([] {
    // A thread without any other window would set up and take down its keyboard input each time.
    const TestForm form;
    for (int i = 0; i < 10000; ++i) {
      const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
      ASSERT_TRUE(control);
      const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
      ASSERT_TRUE(controller);
    }
    EXPECT_EQ(windowsOfThread(), 0);
  });
  EXPECT_TRUE(library.canUnload());
}

std::string directory() {
  BSTR text = nullptr;
  create<_RWKeyscoutController>(CLSID_RWKeyscoutController)->get_KeyscoutDirectory(&text);
  return takeText(text);
}

void setDirectory(const char16_t* path) {
  Bstr text{path};
  create<_RWKeyscoutController>(CLSID_RWKeyscoutController)->put_KeyscoutDirectory(text.address());
}

TEST(Lifetime, TheStateOfAThreadStaysUntilTheThreadEnds) {
  const Library library;
  EXPECT_TRUE(library.canUnload());
  std::thread{[&] {
    // Also beyond the objects, the question whether the library may go, and COM itself.
    for (int round = 0; round < 3; ++round) {
      OleInitialize(nullptr);
      EXPECT_EQ(directory(), round == 0 ? "" : "C:\\here\\");
      setDirectory(u"C:\\here\\");
      EXPECT_FALSE(library.canUnload());
      CoFreeUnusedLibrariesEx(0, 0);
      EXPECT_EQ(directory(), "C:\\here\\");
      onThread([] {
        EXPECT_EQ(directory(), "") << "another thread has its own";
        setDirectory(u"C:\\there\\");
      });
      EXPECT_EQ(directory(), "C:\\here\\");
      OleUninitialize();
    }
  }}.join();
  EXPECT_TRUE(library.canUnload());
}

/// A host's list of brands that notes who still refers to it and calls it.
class CountedList final : public Object<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    *ids = std::wstring_view{*names} == L"Count" ? 1 : 2;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    result->vt = VT_I4;
    result->lVal = 1;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    ++calls;
    return references = Object::AddRef();
  }
  ULONG STDMETHODCALLTYPE Release() override {
    ++calls;
    --references;
    return Object::Release();
  }

  std::atomic<ULONG> references{1};
  std::atomic<int> calls{0};
};

void giveToController(const ComPtr<CountedList>& list) {
  create<_RWKeyscoutController>(CLSID_RWKeyscoutController)->putref_authorizedBrands(list.get());
}

ComPtr<IDispatch> listOfController() {
  ComPtr<IDispatch> list;
  create<_RWKeyscoutController>(CLSID_RWKeyscoutController)->get_authorizedBrands(list.put());
  return list;
}

TEST(Lifetime, TheHostsBrandListGoesBeforeCom) {
  const auto list = makeObject<CountedList>();
  int calls = 0;
  std::thread{[&] {
    OleInitialize(nullptr);
    giveToController(list);
    EXPECT_GT(list->references, 1u) << "the state refers to it without any object";
    EXPECT_EQ(listOfController().get(), list.get());
    OleInitialize(nullptr);
    OleUninitialize();
    EXPECT_GT(list->references, 1u) << "COM goes on";
    OleUninitialize();
    EXPECT_EQ(list->references, 1u);
    calls = list->calls;
    OleInitialize(nullptr);
    EXPECT_FALSE(listOfController());
    OleUninitialize();
  }}.join();
  EXPECT_EQ(list->calls, calls) << "nothing is called once COM has ended";
}

TEST(Lifetime, AnotherApartmentHasItsOwnState) {
  onThread([] {
    const auto here = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
    here->put_KeyscoutEnabled(VARIANT_TRUE);
    HRESULT created = E_FAIL;
    VARIANT_BOOL enabled = VARIANT_TRUE;
    std::string text;
    onThread([&] {
      const auto there = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
      const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
      created = there && control ? S_OK : E_FAIL;
      there->get_KeyscoutEnabled(&enabled);
      control->put_text(Bstr{u"over there"}.get());
      BSTR read = nullptr;
      control->get_text(&read);
      text = takeText(read);
    });
    EXPECT_EQ(created, S_OK);
    EXPECT_EQ(enabled, VARIANT_FALSE);
    EXPECT_EQ(text, "over there");
  });
}

TEST(Lifetime, ClassFactoriesLockTheLibrary) {
  const Library library;
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(CoGetClassObject(CLSID_keyscoutControl, CLSCTX_INPROC_SERVER, nullptr,
                             IID_IClassFactory, factory.putAny()),
            S_OK);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  ComPtr<IUnknown> object;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, object.putAny()),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_FALSE(library.canUnload());
  factory = nullptr;
  EXPECT_TRUE(library.canUnload());
  EXPECT_EQ(CoGetClassObject(CLSID_RWKeyscoutCatalogData, CLSCTX_INPROC_SERVER, nullptr,
                             IID_IClassFactory, factory.putAny()),
            REGDB_E_CLASSNOTREG);
}

// Last, since COM does not take back what such a thread leaves.
TEST(Lifetime, AThreadThatEndsWithoutEndingComCallsNothing) {
  const auto list = makeObject<CountedList>();
  int calls = 0;
  std::thread{[&] {
    OleInitialize(nullptr);
    giveToController(list);
    calls = list->calls;
  }}.join();
  EXPECT_EQ(list->calls, calls);
}

}  // namespace
}  // namespace keyscout
