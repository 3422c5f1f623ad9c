// Every member through its dispatch identifier and its slot: what is given there, and what must be
// refused. And the numbers in the type library.

#include <gtest/gtest.h>

#include <oleauto.h>

#include <map>

#include "base/utf8.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

ComPtr<ITypeInfo> typeOf(IDispatch& object) {
  ComPtr<ITypeInfo> info;
  object.GetTypeInfo(0, LOCALE_NEUTRAL, info.put());
  return info;
}

std::string nameOf(ITypeInfo& info, MEMBERID id) {
  BSTR name = nullptr;
  UINT count = 0;
  info.GetNames(id, &name, 1, &count);
  return takeText(name);
}

/// The members of a dual interface in the order of their slots, as "get text 6803000A".
std::vector<std::string> slotsOf(ITypeInfo& info, bool withNumbers) {
  std::map<int, std::string> bySlot;
  for (UINT i = 0;; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(info.GetFuncDesc(i, &function))) break;
    const char* kind = function->invkind == INVOKE_PROPERTYGET      ? "get "
                       : function->invkind == INVOKE_PROPERTYPUT    ? "put "
                       : function->invkind == INVOKE_PROPERTYPUTREF ? "set "
                                                                    : "";
    char number[16] = "";
    if (withNumbers)
      snprintf(number, sizeof number, " %08lX", static_cast<unsigned long>(function->memid));
    if (function->oVft >= 7 * static_cast<int>(sizeof(void*)))
      bySlot[function->oVft] = kind + nameOf(info, function->memid) + number;
    info.ReleaseFuncDesc(function);
  }
  std::vector<std::string> slots;
  for (const auto& [slot, name] : bySlot) slots.push_back(name);
  return slots;
}

TEST(TypeLibrary, ControlMembersAndTheirNumbers) {
  const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
  const std::vector<std::string> expected = {
      "get text 6803000A",           "put text 6803000A",
      "hideList 6003000C",           "setAuthorizedBrands 60030013",
      "lockKeyscout 60030014",       "doit 60030024",
      "get selStart 68030009",       "put selStart 68030009",
      "get selLength 68030008",      "put selLength 68030008",
      "get Enabled 68030007",        "put Enabled 68030007",
      "get ForeColor 68030006",      "put ForeColor 68030006",
      "get BackColor 68030005",      "put BackColor 68030005",
      "get FontBold 68030004",       "put FontBold 68030004",
      "get TheToolTipText 68030003", "put TheToolTipText 68030003",
      "get isListShowing 68030002",  "get Locked 68030001",
      "put Locked 68030001",         "get brand 68030000",
      "put brand 68030000"};
  EXPECT_EQ(slotsOf(*typeOf(*control), true), expected);
}

TEST(TypeLibrary, ControllerMembersInTheirOrder) {
  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  const std::vector<std::string> expected = {"set authorizedBrands",
                                             "get authorizedBrands",
                                             "get hasdataIntegrity",
                                             "put hasdataIntegrity",
                                             "get isInitialized",
                                             "put isInitialized",
                                             "get KeyscoutDirectory",
                                             "put KeyscoutDirectory",
                                             "get KeyscoutIndexFile",
                                             "put KeyscoutIndexFile",
                                             "get CatalogNumbersDownloadFile",
                                             "put CatalogNumbersDownloadFile",
                                             "get updateURL",
                                             "put updateURL",
                                             "get updateURLFile",
                                             "put updateURLFile",
                                             "get updaterExe",
                                             "put updaterExe",
                                             "get KeyscoutInitialized",
                                             "get isKeyscoutAuthenticated",
                                             "put isKeyscoutAuthenticated",
                                             "get KeyscoutEnabled",
                                             "put KeyscoutEnabled",
                                             "get KeyscoutLocked",
                                             "put KeyscoutLocked",
                                             "initialize",
                                             "checkDownloadVersion",
                                             "init",
                                             "tryToUnlock",
                                             "resetLastTableNumber",
                                             "checkCatalogControlFile",
                                             "needToUpdate",
                                             "authenticateRequiredProperties"};
  EXPECT_EQ(slotsOf(*typeOf(*controller), false), expected);
}

TEST(TypeLibrary, EventsRecordsAndErrorNumbers) {
  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  ComPtr<ITypeLib> library;
  UINT index = 0;
  ASSERT_EQ(typeOf(*controller)->GetContainingTypeLib(library.put(), &index), S_OK);

  ComPtr<ITypeInfo> events;
  ASSERT_EQ(library->GetTypeInfoOfGuid(DIID___keyscoutControl, events.put()), S_OK);
  const char* names[] = {"Change",    "brandChanged", "needBrand",     "KeyDown",
                         "MouseDown", "MouseMove",    "MouseUp",       "Click",
                         "DblClick",  "KeyUp",        "UpdateKeyscout"};
  for (int i = 0; i < 11; ++i) EXPECT_EQ(nameOf(*events, i + 1), names[i]);

  ComPtr<ITypeInfo> record;
  ASSERT_EQ(library->GetTypeInfoOfGuid(IID__RWKeyscoutCatalogData, record.put()), S_OK);
  EXPECT_EQ(slotsOf(*record, true),
            (std::vector<std::string>{"get CatalogNumber 68030002", "put CatalogNumber 68030002",
                                      "get CatalogBrand 68030001", "put CatalogBrand 68030001",
                                      "get CatalogIndex 68030000", "put CatalogIndex 68030000"}));
  struct ClassFlags {
    const CLSID& id;
    bool creatable;
    bool isControl;
  };
  for (const ClassFlags& of : {ClassFlags{CLSID_RWKeyscoutCatalogData, false, false},
                               ClassFlags{CLSID_RWKeyscoutController, true, false},
                               ClassFlags{CLSID_keyscoutControl, true, true}}) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(library->GetTypeInfoOfGuid(of.id, info.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ((attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0, of.creatable);
    EXPECT_EQ((attributes->wTypeFlags & TYPEFLAG_FCONTROL) != 0, of.isControl);
    info->ReleaseTypeAttr(attributes);
  }

  int found = 0;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND kind{};
    library->GetTypeInfoType(i, &kind);
    if (kind != TKIND_ENUM) continue;
    ComPtr<ITypeInfo> codes;
    library->GetTypeInfo(i, codes.put());
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(codes->GetTypeAttr(&attributes), S_OK);
    EXPECT_FALSE(attributes->guid == GUID_NULL) << "hosts refer to the numbers by it";
    codes->ReleaseTypeAttr(attributes);
    for (UINT v = 0; v < 7; ++v) {
      VARDESC* value = nullptr;
      ASSERT_EQ(codes->GetVarDesc(v, &value), S_OK);
      EXPECT_EQ(value->lpvarValue->lVal, -2147218504 + static_cast<LONG>(v));
      codes->ReleaseVarDesc(value);
      ++found;
    }
  }
  EXPECT_EQ(found, 7);
}

/// Calls every member of `object` with one argument for each that it takes; none may crash. How
/// many answered well.
int callAll(IDispatch& object, const VARIANT& argument) {
  int succeeded = 0;
  const auto info = typeOf(object);
  for (UINT i = 0;; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(info->GetFuncDesc(i, &function))) break;
    const DISPID id = function->memid;
    const auto kind = static_cast<WORD>(function->invkind);
    const auto count = static_cast<UINT>(function->cParams);
    info->ReleaseFuncDesc(function);
    std::vector<VARIANT> arguments(count, argument);
    DISPID put = DISPID_PROPERTYPUT;
    const bool isPut = kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF);
    const bool hasResult = kind & (INVOKE_PROPERTYGET);
    DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr, hasResult ? 0 : count,
                          isPut ? 1u : 0u};
    OwnedVariant result;
    EXCEPINFO exception{};
    UINT wrong = 0;
    succeeded += SUCCEEDED(object.Invoke(id, IID_NULL, LOCALE_NEUTRAL, kind, &parameters, &result,
                                         &exception, &wrong));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
  }
  return succeeded;
}

TEST(Members, WrongTypesNeverCrash) {
  struct Case {
    VARTYPE type;
    LONGLONG value;
  };
  const CLSID* classes[] = {&CLSID_RWKeyscoutController, &CLSID_keyscoutControl, &CLSID_BrandList,
                            &CLSID_BrandItem};
  for (const CLSID* id : classes) {
    const auto object = create<IDispatch>(*id);
    ASSERT_TRUE(object);
    int succeeded = 0;
    for (const Case& with :
         {Case{VT_EMPTY, 0}, Case{VT_NULL, 0}, Case{VT_I4, -1}, Case{VT_R8, -1}, Case{VT_BOOL, 5},
          Case{VT_DISPATCH, 0}, Case{VT_UNKNOWN, 0}, Case{VT_ERROR, DISP_E_PARAMNOTFOUND},
          Case{VT_BSTR, 0}, Case{VT_BYREF | VT_BSTR, 0}, Case{VT_BYREF | VT_VARIANT, 0},
          Case{VT_BYREF | VT_I2, 0}, Case{VT_BYREF | VT_DISPATCH, 0}}) {
      VARIANT argument{};
      argument.vt = with.type;
      argument.llVal = with.value;
      succeeded += callAll(*object, argument);
    }
    EXPECT_GT(succeeded, 0);
  }
}

TEST(Members, NullPointersAreRefused) {
  const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
  EXPECT_EQ(control->get_text(nullptr), E_POINTER);
  EXPECT_EQ(control->put_text(nullptr), S_OK);
  EXPECT_EQ(control->setAuthorizedBrands(nullptr), E_POINTER);
  EXPECT_EQ(control->get_selStart(nullptr), E_POINTER);
  EXPECT_EQ(control->get_selLength(nullptr), E_POINTER);
  EXPECT_EQ(control->get_Enabled(nullptr), E_POINTER);
  EXPECT_EQ(control->get_ForeColor(nullptr), E_POINTER);
  EXPECT_EQ(control->get_BackColor(nullptr), E_POINTER);
  EXPECT_EQ(control->get_FontBold(nullptr), E_POINTER);
  EXPECT_EQ(control->get_TheToolTipText(nullptr), E_POINTER);
  EXPECT_EQ(control->get_isListShowing(nullptr), E_POINTER);
  EXPECT_EQ(control->get_Locked(nullptr), E_POINTER);
  EXPECT_EQ(control->get_brand(nullptr), E_POINTER);
  EXPECT_EQ(control->put_brand(nullptr), E_POINTER);
  EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(control->Invoke(0x6803000A, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr,
                            nullptr, nullptr),
            E_POINTER);
  EXPECT_EQ(control->GetTypeInfo(0, 0, nullptr), E_POINTER);

  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  EXPECT_EQ(controller->get_authorizedBrands(nullptr), E_POINTER);
  EXPECT_EQ(controller->putref_authorizedBrands(nullptr), S_OK);
  EXPECT_EQ(controller->get_KeyscoutDirectory(nullptr), E_POINTER);
  EXPECT_EQ(controller->put_KeyscoutDirectory(nullptr), E_POINTER);
  EXPECT_EQ(controller->get_KeyscoutLocked(nullptr), E_POINTER);
  EXPECT_EQ(controller->initialize(nullptr), E_POINTER);
  EXPECT_EQ(controller->init(nullptr), E_POINTER);
  EXPECT_EQ(controller->checkDownloadVersion(nullptr), E_POINTER);
  EXPECT_EQ(controller->resetLastTableNumber(nullptr), E_POINTER);

  const auto ole = ComPtr<IOleObject>::from(control.get());
  EXPECT_EQ(ole->GetClientSite(nullptr), E_POINTER);
  EXPECT_EQ(ole->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(ole->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(ole->Advise(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(ole->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_TRUE(FAILED(ole->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
}

TEST(Members, ColoursAreWhatTheSystemTakesForANumber) {
  const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
  struct {
    const char16_t* text;
    LONG expected;
  } const numbers[] = {{u"255", 255},    {u"&HFF", 255},
                       {u"1,000", 1000}, {u"+5", 5},
                       {u" 7 ", 7},      {u"-2", -2},
                       {u"1e3", 1000},   {u"2.5", 2},
                       {u"3.5", 4},      {u"&H8000000F", static_cast<LONG>(0x8000000F)}};
  for (const auto& number : numbers) {
    SCOPED_TRACE(toUtf8(number.text));
    OwnedVariant given;
    given.vt = VT_BSTR;
    given.bstrVal = newBstr(number.text);
    EXPECT_EQ(control->put_ForeColor(given), S_OK);
    OwnedVariant read;
    control->get_ForeColor(&read);
    EXPECT_EQ(read.vt, VT_I4);
    EXPECT_EQ(read.lVal, number.expected);
  }
  for (const char16_t* const text : {u"red", u"", u"1 2", u"99999999999", u"&HFG"}) {
    SCOPED_TRACE(toUtf8(text));
    OwnedVariant given;
    given.vt = VT_BSTR;
    given.bstrVal = newBstr(text);
    EXPECT_EQ(control->put_BackColor(given), static_cast<HRESULT>(0x800A000D));
  }
}

TEST(Members, NoInterfaceMayBeNamedInADispatchCall) {
  const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
  DISPPARAMS none{};
  OwnedVariant result;
  EXPECT_EQ(control->Invoke(0x6803000A, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &none, &result,
                            nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(control->Invoke(0x6803000A, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &result, nullptr,
                            nullptr),
            S_OK);
  wchar_t name[] = L"text";
  LPOLESTR names = name;
  DISPID id = 0;
  EXPECT_EQ(control->GetIDsOfNames(IID_IDispatch, &names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
}

TEST(Members, StoredBooleansAreReadBackAsGiven) {
  const auto controller = create<_RWKeyscoutController>(CLSID_RWKeyscoutController);
  for (const VARIANT_BOOL value : {VARIANT_BOOL{5}, VARIANT_FALSE, VARIANT_TRUE, VARIANT_FALSE}) {
    controller->put_hasdataIntegrity(value);
    VARIANT_BOOL read = 1;
    controller->get_hasdataIntegrity(&read);
    EXPECT_EQ(read, value);
  }
}

TEST(Members, FailuresCarryNumberSourceAndSentence) {
  const auto control = create<_keyscoutControl>(CLSID_keyscoutControl);
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(control->put_selStart(-1), static_cast<HRESULT>(0x800A017C));
  ComPtr<IErrorInfo> information;
  ASSERT_EQ(GetErrorInfo(0, information.put()), S_OK);
  BSTR description = nullptr;
  information->GetDescription(&description);
  EXPECT_EQ(takeText(description), "Invalid property value");
  const auto support = ComPtr<ISupportErrorInfo>::from(control.get());
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__keyscoutControl), S_OK);
  IDispatch* noList = control.get();
  EXPECT_EQ(control->setAuthorizedBrands(&noList), static_cast<HRESULT>(0x800A000D));
}

}  // namespace
}  // namespace keyscout
