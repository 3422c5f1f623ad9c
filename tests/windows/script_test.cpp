// A host whose code is a script: VBScript with the control and the controller as named items.

#include <gtest/gtest.h>

#include <activscp.h>

#include <map>

#include "platform/win32/wide.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

/// What a script stands in: the objects that it may use by their names, and its last failure.
class ScriptHost final : public Object<IActiveScriptSite> {
 public:
  std::map<std::wstring, ComPtr<IDispatch>, std::less<>> objects;
  std::string failure;

  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                        ITypeInfo** info) override {
    const auto& object = objects.at(name);
    if (mask & SCRIPTINFO_IUNKNOWN) *item = ComPtr<IUnknown>{object.get()}.detach();
    if (mask & SCRIPTINFO_ITYPEINFO)
      ComPtr<IProvideClassInfo>::from(object.get())->GetClassInfo(info);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    EXCEPINFO info{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&info);
    error->GetSourcePosition(&context, &line, &column);
    failure = "line " + std::to_string(line + 1) + ": " + takeText(info.bstrDescription);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

/// The VBScript engine with one script in it, connected to the control's events. "ctl" is the
/// control, "host" the controller, "list" an empty list of brands, "services" what takes the host's
/// own services: a script here creates nothing itself, since the runtime's engine never lets go of
/// a class object that it created from, and other tests of this process count what is left of the
/// library's objects.
class Script {
 public:
  Script(TestForm& form, const char* code) : site_(makeObject<ScriptHost>()) {
    site_->objects = {{L"ctl", form.site().controlAs<IDispatch>()},
                      {L"host", ComPtr<IDispatch>{&form.controller()}},
                      {L"list", create<IDispatch>(CLSID_BrandList)},
                      {L"services", create<IDispatch>(CLSID_HostServices)}};
    CLSID engine{};
    CLSIDFromProgID(L"VBScript", &engine);
    engine_ = create<IActiveScript>(engine);
    const auto parser = ComPtr<IActiveScriptParse>::from(engine_.get());
    parser->InitNew();
    engine_->SetScriptSite(site_.get());
    for (const auto& [name, object] : site_->objects)
      engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE);
    const std::wstring wide(code, code + strlen(code));
    parser->ParseScriptText(wide.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr);
    engine_->SetScriptState(SCRIPTSTATE_CONNECTED);
    form.onEvent = [this](const std::string& name, DISPPARAMS& arguments) {
      handle(name, arguments);
    };
  }
  ~Script() { engine_->Close(); }

  /// The script's variable `result`, or what went wrong.
  std::string result() {
    if (!site_->failure.empty()) return site_->failure;
    ComPtr<IDispatch> globals;
    engine_->GetScriptDispatch(nullptr, globals.put());
    wchar_t name[] = L"result";
    LPOLESTR names = name;
    DISPID id = 0;
    DISPPARAMS none{};
    OwnedVariant value;
    if (FAILED(globals->GetIDsOfNames(IID_NULL, &names, 1, 0, &id)) ||
        FAILED(globals->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                               nullptr)))
      return "no result";
    OwnedVariant text;
    VariantChangeType(&text, &value, 0, VT_BSTR);
    return text.vt == VT_BSTR ? narrow(toWide(viewOf(text.bstrVal))) : "no text";
  }

 private:
  /// Calls the script's handler of an event, where it has one. The runtime's engine does not
  /// connect itself to a named item's events.
  void handle(const std::string& event, DISPPARAMS& arguments) {
    ComPtr<IDispatch> globals;
    engine_->GetScriptDispatch(nullptr, globals.put());
    std::wstring name = L"ctl_" + std::wstring{event.begin(), event.end()};
    LPOLESTR names = name.data();
    DISPID id = 0;
    if (FAILED(globals->GetIDsOfNames(IID_NULL, &names, 1, 0, &id))) return;

    // The engine writes back into variables of its own type alone.
    std::vector<OwnedVariant> variables(arguments.cArgs);
    std::vector<VARIANT> references(arguments.cArgs);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
      VariantCopyInd(&variables[i], &arguments.rgvarg[i]);
      references[i].vt = VT_BYREF | VT_VARIANT;
      references[i].pvarVal = &variables[i];
    }
    DISPPARAMS parameters{references.data(), nullptr, arguments.cArgs, 0};
    globals->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    for (UINT i = 0; i < arguments.cArgs; ++i) {
      OwnedVariant number;
      const bool isShort = arguments.rgvarg[i].vt == (VT_BYREF | VT_I2);
      if (isShort && SUCCEEDED(VariantChangeType(&number, &variables[i], 0, VT_I2)))
        *arguments.rgvarg[i].piVal = number.iVal;
    }
  }

  ComPtr<ScriptHost> site_;
  ComPtr<IActiveScript> engine_;
};

struct Refusal {
  const char* name;
  void (*spoil)(TestForm&);
  const char* expected;
};

TEST(Scripts, EachRefusalOfInit) {
  for (const Refusal& with : {
           Refusal{
               "no index file name",
               [](TestForm& form) { form.controller().put_KeyscoutIndexFile(Bstr{u""}.address()); },
               "-2147218504|RWKeyscoutController|"},
           Refusal{"an old format",
                   [](TestForm& form) { form.folder().write(L"catalog.txt", "0000000001\r\n"); },
                   "-2147218503|RWKeyscoutController|The format of the catalog number download has "
                   "changed."},
           Refusal{"another version",
                   [](TestForm& form) { form.folder().write(L"catalog.txt", "x\r\n"); },
                   "-2147218502|RWKeyscoutController|The version of the catalog numbers downloaded "
                   "is not consistant "
                   "with\r\nthe current version of Tessaly."},
           Refusal{
               "no download", [](TestForm& form) { form.folder().remove(L"catalog.txt"); },
               "-2147218504|RWKeyscoutController|The catalog number download file does not exist."},
           Refusal{"in process",
                   [](TestForm& form) { form.folder().write(L"catcontrol.txt", "INPROCESS\r\n"); },
                   "-2147218501|RWKeyscoutController|Keyscout will be enabled as soon as the "
                   "catalog number download "
                   "has been completed."},
           Refusal{"corrupt",
                   [](TestForm& form) { form.folder().write(L"catcontrol.txt", "CORRUPT\r\n"); },
                   "-2147218500|RWKeyscoutController|Keyscout will not be available because the "
                   "latest download "
                   "contains invalid data."},
       }) {
    SCOPED_TRACE(with.name);
    TestForm form;
    with.spoil(form);
    Script script{form,
                  "result = \"\"\n"
                  "On Error Resume Next\n"
                  "host.init\n"
                  "result = Err.Number & \"|\" & Err.Source & \"|\" & Err.Description\n"};
    EXPECT_EQ(script.result().substr(0, strlen(with.expected)), with.expected);
    VARIANT_BOOL locked = VARIANT_FALSE;
    form.controller().get_KeyscoutLocked(&locked);
    EXPECT_EQ(locked, VARIANT_TRUE);
  }
}

TEST(Scripts, EventsWithWriteBack) {
  TestForm form;
  Script script{
      form,
      "Dim result\n"
      "Sub ctl_needBrand()\n  ctl.brand = \"BOLT\"\nEnd Sub\n"
      "Sub ctl_KeyDown(KeyCode, Shift)\n"
      "  result = result & \"K\" & KeyCode & \" \"\n"
      "  If KeyCode = 90 Then KeyCode = 0\n"
      "End Sub\n"
      "Sub ctl_Change()\n  result = result & \"C \"\nEnd Sub\n"
      "Sub ctl_brandChanged(strBrand)\n  result = result & \"B\" & strBrand & \" \"\nEnd Sub\n"};
  form.enter();
  form.type("azb");
  EXPECT_EQ(form.text(), "ab");
  ASSERT_TRUE(form.isOpen());
  EXPECT_EQ(form.entries()[0], "AB-101") << "the brand that the script set";
  form.key(VK_DOWN);
  form.key(VK_RETURN);
  EXPECT_EQ(form.text(), "AB-101");
  EXPECT_EQ(script.result(), "K65 C K90 K66 C K40 BBOLT C ");
}

TEST(Scripts, BrandListsAndOtherCollections) {
  struct Case {
    const char* code;
    const char* expected;
  };
  for (const Case& with : {
           Case{"list.Add \"bolt\"\nctl.setAuthorizedBrands list\n"
                "result = host.authorizedBrands.Count\n",
                "1"},
           Case{
               "ctl.setAuthorizedBrands Nothing\nresult = CStr(host.authorizedBrands Is Nothing)\n",
               "True"},
           Case{"Class Empty_\nEnd Class\nOn Error Resume Next\nctl.setAuthorizedBrands New "
                "Empty_\nresult = Err.Number\n",
                "13"},
           Case{"On Error Resume Next\nctl.setAuthorizedBrands \"x\"\nresult = Err.Number\n", "13"},
           Case{"Class Mine\nPublic Property Get Count\nCount = 3\nEnd Property\nPublic Function "
                "Item(key)\n"
                "Set Item = Me\nEnd Function\nEnd Class\nctl.setAuthorizedBrands New Mine\n"
                "result = host.authorizedBrands.Count\n",
                "3"},
       }) {
    SCOPED_TRACE(with.code);
    TestForm form;
    Script script{form, with.code};
    EXPECT_EQ(script.result(), with.expected);
  }
}

TEST(Scripts, AScriptsOwnTraceAndTitle) {
  TestForm form;
  Script script{
      form,
      "Dim result\n"
      "Class Mine\n"
      "Public Sub enterProcedure(className, procName, level)\n"
      "  result = result & \"+\" & className & \".\" & procName & level\n"
      "End Sub\n"
      "Public Sub exitProcedure(className, procName, level)\n  result = result & \"-\"\nEnd Sub\n"
      "Public Sub reportError(className, procName, number, source, description, line)\n"
      "  result = result & \"!\" & number\n"
      "End Sub\n"
      "Public Sub traceMessage(className, procName, text, level)\nEnd Sub\n"
      "Public Sub logMessage(className, procName, text, level)\nEnd Sub\n"
      "Public Property Get titleRecord\n  Set titleRecord = Me\nEnd Property\n"
      "End Class\n"
      "Set services.traceService = New Mine\n"
      "Set services.messageTitleSource = services.traceService\n"
      "host.resetLastTableNumber\n"
      "host.KeyscoutDirectory = \"C:\\nowhere\"\n"
      "host.checkCatalogControlFile\n"
      "Set services.traceService = Nothing\n"
      "Set services.messageTitleSource = Nothing\n"
      "host.resetLastTableNumber\n"
      "On Error Resume Next\n"
      "Set services.traceService = list\n"
      "result = result & \" \" & Err.Number\n"};
  EXPECT_EQ(script.result(),
            "+RWKeyscoutController.resetLastTableNumber1-"
            "+RWKeyscoutController.checkCatalogControlFile1!76 13");
}

TEST(Scripts, OnlyAuthorizedBrandsAreListed) {
  TestForm form;
  Script script{form,
                "list.Add \"bolt\"\nlist.Add \"ACME\", \"a text\"\n"
                "ctl.setAuthorizedBrands list\nresult = list.Count\n"};
  ASSERT_EQ(script.result(), "2");
  form.enter();
  form.type("ab");
  ASSERT_EQ(form.entries().size(), 9u);
  for (std::size_t i = 0; i < 9; ++i)
    EXPECT_EQ(form.entries()[i], "AB-" + std::to_string(101 + 2 * i));
}

}  // namespace
}  // namespace keyscout
