// How long it takes from a key to the painted list, in a lookup control and in an edit field with
// the system's own auto-completion, over the same numbers. `scripts/bench-windows` builds and runs
// it. Its arguments are a data directory and a file of its catalog numbers, one a line, in order.

#include <windows.h>

#include <shldisp.h>
#include <shlguid.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/windows_host/control_site.h"
#include "keyscout_h.h"
#include "platform/win32/wide.h"
#include "server/com/failures.h"
#include "server/com/values.h"

namespace keyscout::bench {
namespace {

constexpr std::size_t textCount = 50;
constexpr std::size_t keysPerText = 5;
constexpr DWORD patience = 5000;  // milliseconds

using Numbers = std::vector<std::wstring>;

/// What the system's auto-completion chooses from.
class NumberSource final : public Object<IEnumString> {
 public:
  explicit NumberSource(const Numbers& numbers) : numbers_(numbers) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, LPOLESTR* strings, ULONG* fetched) override {
    ULONG given = 0;
    for (; given < count && next_ < numbers_.size(); ++given, ++next_) {
      const std::wstring& number = numbers_[next_];
      const std::size_t size = (number.size() + 1) * sizeof(wchar_t);
      strings[given] = static_cast<LPOLESTR>(CoTaskMemAlloc(size));
      if (!strings[given]) break;
      std::copy_n(number.c_str(), number.size() + 1, strings[given]);
    }
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    next_ += count;
    return next_ <= numbers_.size() ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumString**) override { return E_NOTIMPL; }

 private:
  const Numbers& numbers_;
  std::size_t next_ = 0;
};

/// A text box and the window that drops down below it.
struct Field {
  std::string name;
  HWND edit;
  std::function<HWND()> dropDown;
};

HWND dropDownOf(HWND surface) {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  const HWND combo = FindWindowExW(surface, nullptr, L"COMBOBOX", nullptr);
  return combo && GetComboBoxInfo(combo, &info) ? info.hwndList : nullptr;
}

BOOL CALLBACK keepWindowWithList(HWND window, LPARAM result) {
  if (!IsWindowVisible(window) || !FindWindowExW(window, nullptr, L"LISTBOX", nullptr)) return TRUE;
  *std::bit_cast<HWND*>(result) = window;
  return FALSE;
}

/// The window with suggestions: the thread's only other one in sight that has a list in it.
HWND suggestions() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), keepWindowWithList, std::bit_cast<LPARAM>(&found));
  return found;
}

HWND editOf(HWND surface) { return FindWindowExW(surface, nullptr, L"EDIT", nullptr); }

void work() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void press(HWND window, wchar_t character, UINT message) {
  const auto key = static_cast<WPARAM>(LOBYTE(VkKeyScanW(character)));
  const auto bits = static_cast<LPARAM>(message == WM_KEYUP ? 0xC0000001 : 1);
  PostMessageW(window, message, key, bits);
}

/// Milliseconds from the key until its list is there and nothing is left to be painted.
double timeOfKey(const Field& field, wchar_t character) {
  const auto start = std::chrono::steady_clock::now();
  press(field.edit, character, WM_KEYDOWN);
  const DWORD tooLate = GetTickCount() + patience;
  for (;;) {
    work();
    const HWND list = field.dropDown();
    if (list && IsWindowVisible(list)) break;
    if (GetTickCount() > tooLate) throw std::runtime_error{field.name + ": no list has opened"};
  }
  RedrawWindow(field.dropDown(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  GdiFlush();
  const auto end = std::chrono::steady_clock::now();
  press(field.edit, character, WM_KEYUP);
  work();
  return std::chrono::duration<double, std::milli>(end - start).count();
}

std::vector<double> timesOf(const Field& field, const Numbers& texts) {
  std::vector<double> times;
  for (const std::wstring& text : texts) {
    SetWindowTextW(field.edit, L"");
    SetFocus(field.edit);
    work();
    for (const wchar_t character : text) times.push_back(timeOfKey(field, character));
  }
  SetWindowTextW(field.edit, L"");
  work();
  std::ranges::sort(times);
  return times;
}

void print(const Field& field, const std::vector<double>& times) {
  const auto at = [&](double share) {
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
  };
  std::printf("%-28s %8.2f %8.2f %8.2f\n", field.name.c_str(), at(0.5), at(0.95), at(1));
}

Numbers readNumbers(const wchar_t* path) {
  std::ifstream file{std::filesystem::path{path}};
  Numbers numbers;
  for (std::string line; std::getline(file, line);) numbers.emplace_back(line.begin(), line.end());
  if (numbers.empty()) throw std::runtime_error{"no numbers"};
  return numbers;
}

Numbers beginningsOf(const Numbers& numbers) {
  std::mt19937 random{20};
  Numbers texts;
  for (std::size_t i = 0; i < textCount; ++i) {
    std::wstring text = numbers[random() % numbers.size()].substr(0, keysPerText);
    // As a clerk types it; the lookup and the auto-completion find capitals by it.
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    texts.push_back(std::move(text));
  }
  return texts;
}

void run(const wchar_t* directory, const wchar_t* numbersFile) {
  const Numbers numbers = readNumbers(numbersFile);
  const Numbers texts = beginningsOf(numbers);

  const HWND window =
      CreateWindowExW(0, L"STATIC", L"bench", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 50, 50, 500,
                      400, nullptr, nullptr, nullptr, nullptr);
  ComPtr<_RWKeyscoutController> controller;
  require(createInstance(CLSID_RWKeyscoutController, controller));
  Bstr folder{fromWide(directory)};
  Bstr index{u"catindex.txt"};
  Bstr download{u"catalog.txt"};
  controller->put_KeyscoutDirectory(folder.address());
  controller->put_KeyscoutIndexFile(index.address());
  controller->put_CatalogNumbersDownloadFile(download.address());
  VARIANT_BOOL ready = VARIANT_FALSE;
  controller->init(&ready);
  if (!ready) throw std::runtime_error{"no catalog there"};
  controller->put_KeyscoutEnabled(VARIANT_TRUE);

  const auto site = makeObject<ControlSite>(window);
  site->create(CLSID_keyscoutControl, {20, 10, 220, 34});
  HWND surface = nullptr;
  site->controlAs<IOleWindow>()->GetWindow(&surface);
  const Field lookup{"lookup control", editOf(surface), [surface] { return dropDownOf(surface); }};

  const HWND plain = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 260, 10, 200, 24,
                                     window, nullptr, nullptr, nullptr);
  ComPtr<IAutoComplete2> completion;
  require(createInstance(CLSID_AutoComplete, completion));
  const auto source = makeObject<NumberSource>(numbers);
  completion->SetOptions(ACO_AUTOSUGGEST);
  require(completion->Init(plain, static_cast<IEnumString*>(source.get()), nullptr, nullptr));
  const Field completed{"the system's completion", plain, suggestions};

  SetForegroundWindow(window);
  work();
  timesOf(lookup, {texts.front()});  // code and files that are read once
  timesOf(completed, {texts.front()});
  std::printf(
      "%zu numbers, %zu keys: milliseconds from a key to the painted list\n%-28s %8s %8s %8s\n",
      numbers.size(), textCount * keysPerText, "", "median", "95 %", "most");
  const auto own = timesOf(lookup, texts);
  const auto systems = timesOf(completed, texts);
  print(lookup, own);
  print(completed, systems);
  std::printf("ratio of the medians %.2f\n", own[own.size() / 2] / systems[systems.size() / 2]);

  site->close();
  DestroyWindow(window);
}

}  // namespace
}  // namespace keyscout::bench

int wmain(int argc, wchar_t** argv) {
  if (argc != 3) {
    std::fputs("usage: keyscout_painted_list DIRECTORY NUMBERS\n", stderr);
    return 2;
  }
  OleInitialize(nullptr);
  try {
    keyscout::bench::run(argv[1], argv[2]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "keyscout_painted_list: %s\n", failure.what());
    return 1;
  } catch (const keyscout::ComFailure& failure) {
    std::fprintf(stderr, "keyscout_painted_list: 0x%08lX\n",
                 static_cast<unsigned long>(failure.result));
    return 1;
  }
  OleUninitialize();
  return 0;
}
