// A host's own trace service and message title in place of the library's.

#include <gtest/gtest.h>

#include "platform/win32/wide.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

/// A host's object whose members are these names; notes each call as "name argument argument", an
/// argument by reference with an "&" before it.
class NotingObject final : public Object<IDispatch> {
 public:
  explicit NotingObject(std::vector<std::wstring> members) : members_(std::move(members)) {}

  Log calls;
  /// What a property holds.
  std::map<std::wstring, ComPtr<IDispatch>> objects;
  std::map<std::wstring, std::u16string> texts;
  /// The member whose calls fail, with "5", "Host" and "Not today."
  std::wstring failing;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* id) override {
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (members_[i] != names[0]) continue;
      *id = static_cast<DISPID>(i + 1);
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const std::wstring& name = members_.at(static_cast<std::size_t>(id - 1));
    std::string line = narrow(name);
    for (UINT i = arguments->cArgs; i > 0; --i) {
      VARIANT& argument = arguments->rgvarg[i - 1];
      OwnedVariant plain;
      OwnedVariant text;
      VariantCopyInd(&plain, &argument);
      VariantChangeType(&text, &plain, 0, VT_BSTR);
      line += argument.vt & VT_BYREF ? " &" : " ";
      line += narrow(toWide(viewOf(text.bstrVal)));
      // What a callee leaves in an argument is nobody's concern.
      if (argument.vt == (VT_BYREF | VT_I4)) *argument.plVal = 77;
    }
    calls.push_back(line);
    if (name == failing) {
      exception->scode = static_cast<SCODE>(0x800A0005);
      exception->bstrSource = newBstr(u"Host");
      exception->bstrDescription = newBstr(u"Not today.");
      return DISP_E_EXCEPTION;
    }
    if (const auto object = objects.find(name); object != objects.end() && result) {
      result->vt = VT_DISPATCH;
      result->pdispVal = ComPtr<IDispatch>{object->second}.detach();
    } else if (const auto text = texts.find(name); text != texts.end() && result) {
      result->vt = VT_BSTR;
      result->bstrVal = newBstr(text->second);
    }
    return S_OK;
  }

 private:
  std::vector<std::wstring> members_;
};

const std::vector<std::wstring> traceMembers = {L"enterProcedure", L"exitProcedure", L"reportError",
                                                L"traceMessage", L"logMessage"};

class HostServices : public testing::Test {
 protected:
  ~HostServices() override {
    services->putref_traceService(nullptr);
    services->putref_messageTitleSource(nullptr);
  }
  IDispatch* givenTrace() {
    IDispatch* given = nullptr;
    EXPECT_EQ(services->get_traceService(&given), S_OK);
    if (given) given->Release();
    return given;
  }

  const ComPtr<_HostServices> services = create<_HostServices>(CLSID_HostServices);
  const ComPtr<NotingObject> trace = makeObject<NotingObject>(traceMembers);
  TestForm form;
};

TEST_F(HostServices, AHostTakesTheTraceAndGivesItBack) {
  EXPECT_EQ(givenTrace(), nullptr) << "the library's own";
  ASSERT_EQ(services->putref_traceService(trace.get()), S_OK);
  EXPECT_EQ(givenTrace(), trace.get());
  VARIANT_BOOL answer = VARIANT_FALSE;
  EXPECT_EQ(form.controller().resetLastTableNumber(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_TRUE);
  EXPECT_EQ(std::exchange(trace->calls, {}),
            (Log{"enterProcedure &RWKeyscoutController &resetLastTableNumber &1",
                 "exitProcedure &RWKeyscoutController &resetLastTableNumber &1"}));

  form.folder().remove(L"catcontrol.txt");
  EXPECT_EQ(form.controller().checkCatalogControlFile(&answer), S_OK);
  EXPECT_EQ(std::exchange(trace->calls, {}),
            (Log{"enterProcedure &RWKeyscoutController &checkCatalogControlFile &1",
                 "reportError &RWKeyscoutController &checkCatalogControlFile &53 &Files &File not "
                 "found &0"}));

  EXPECT_EQ(services->putref_traceService(nullptr), S_OK);
  EXPECT_EQ(givenTrace(), nullptr);
  form.controller().resetLastTableNumber(&answer);
  EXPECT_EQ(trace->calls, Log{});
}

TEST_F(HostServices, ALookupIsTracedToTheHost) {
  ASSERT_EQ(services->putref_traceService(trace.get()), S_OK);
  form.enter();
  trace->calls.clear();
  form.type("ab");
  ASSERT_TRUE(form.isOpen());
  const auto count = [&](const char* call) {
    return std::ranges::count_if(trace->calls,
                                 [&](const std::string& line) { return line.starts_with(call); });
  };
  EXPECT_EQ(count("enterProcedure &keyscoutControl &showList() &0"), 2);
  EXPECT_EQ(count("exitProcedure &keyscoutControl &showList() &0"), 2);
  EXPECT_EQ(count("reportError"), 0);
}

TEST_F(HostServices, AFailureOfTheTraceIsAFailureOfTheCall) {
  ASSERT_EQ(services->putref_traceService(trace.get()), S_OK);
  trace->failing = L"enterProcedure";
  VARIANT_BOOL answer = VARIANT_FALSE;
  EXPECT_EQ(form.controller().resetLastTableNumber(&answer), static_cast<HRESULT>(0x800A0005));
  ComPtr<IErrorInfo> information;
  ASSERT_EQ(GetErrorInfo(0, information.put()), S_OK);
  BSTR description = nullptr;
  information->GetDescription(&description);
  EXPECT_EQ(takeText(description), "Not today.");
  EXPECT_EQ(trace->calls.back(),
            "reportError &RWKeyscoutController &resetLastTableNumber &5 &Host &Not today. &0");
}

TEST_F(HostServices, ObjectsThatLackMembersAreRefused) {
  constexpr auto typeMismatch = static_cast<HRESULT>(0x800A000D);
  ASSERT_EQ(services->putref_traceService(trace.get()), S_OK);
  for (const std::wstring& missing : traceMembers) {
    SCOPED_TRACE(narrow(missing));
    auto members = traceMembers;
    std::erase(members, missing);
    const auto poor = makeObject<NotingObject>(members);
    EXPECT_EQ(services->putref_traceService(poor.get()), typeMismatch);
    EXPECT_EQ(givenTrace(), trace.get()) << "nothing changed";
  }
  EXPECT_EQ(services->putref_messageTitleSource(trace.get()), typeMismatch);
}

/// Answers No to the next message box of this process; its title.
class NoToNextBox {
 public:
  NoToNextBox() { timer_ = SetTimer(nullptr, 0, 20, &look), title_.clear(); }
  ~NoToNextBox() { KillTimer(nullptr, timer_); }
  NoToNextBox(const NoToNextBox&) = delete;
  NoToNextBox& operator=(const NoToNextBox&) = delete;

  static std::string title() { return narrow(title_); }

 private:
  static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowW(L"#32770", nullptr);
    if (!box || !IsWindowVisible(box)) return;
    wchar_t text[100] = L"";
    GetWindowTextW(box, text, 100);
    title_ = text;
    PostMessageW(box, WM_COMMAND, IDNO, 0);
  }
  static inline std::wstring title_;
  UINT_PTR timer_;
};

TEST_F(HostServices, TheMessageBoxBearsTheHostsTitle) {
  const auto record = makeObject<NotingObject>(std::vector<std::wstring>{L"titleText"});
  record->texts[L"titleText"] = u"Größe Ω";
  const auto source = makeObject<NotingObject>(std::vector<std::wstring>{L"titleRecord"});
  source->objects[L"titleRecord"] = ComPtr<IDispatch>{record.get()};
  const auto failLookup = [&] {
    const NoToNextBox no;
    form.folder().remove(L"0.txt");
    form.control()->put_text(Bstr{u""}.get());
    form.controller().put_KeyscoutLocked(VARIANT_FALSE);
    form.enter();
    form.type("a");
    return NoToNextBox::title();
  };
  EXPECT_EQ(failLookup(), "Keyscout");
  ASSERT_EQ(services->putref_messageTitleSource(source.get()), S_OK);
  EXPECT_EQ(failLookup(), "Größe Ω");
  VARIANT_BOOL locked = VARIANT_FALSE;
  form.controller().get_KeyscoutLocked(&locked);
  EXPECT_EQ(locked, VARIANT_TRUE);
}

}  // namespace
}  // namespace keyscout
