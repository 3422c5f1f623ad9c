#include "server/com/invocation.h"

#include <oleauto.h>

#include "server/com/failures.h"

namespace keyscout {
namespace {

/// What the type information says of one function, for as long as it lives.
class Function {
 public:
  /// Looked for one by one: not every system finds the members of a dual interface by number.
  Function(ITypeInfo& info, DISPID id, WORD flags) : info_(info) {
    TYPEATTR* attributes = nullptr;
    require(info.GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    info.ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count && !description_; ++i) {
      FUNCDESC* candidate = nullptr;
      if (FAILED(info.GetFuncDesc(i, &candidate))) continue;
      if (candidate->memid == id && (candidate->invkind & flags))
        description_ = candidate;
      else
        info.ReleaseFuncDesc(candidate);
    }
  }
  ~Function() {
    if (description_) info_.ReleaseFuncDesc(description_);
  }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;

  const FUNCDESC* description() const { return description_; }

 private:
  ITypeInfo& info_;
  FUNCDESC* description_ = nullptr;
};

/// The type that a parameter refers to; VT_EMPTY for one that is no reference for the host to give.
VARTYPE referredType(const ELEMDESC& parameter) {
  const bool isResult = (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  const TYPEDESC& type = parameter.tdesc;
  if (isResult || type.vt != VT_PTR) return VT_EMPTY;
  const TYPEDESC* const referred = type.lptdesc;
  // An interface is a pointer itself.
  const bool isObject = referred->vt == VT_PTR || referred->vt == VT_DISPATCH;
  if (isObject) return VT_DISPATCH;
  return referred->vt == VT_USERDEFINED ? VARTYPE{VT_EMPTY} : referred->vt;
}

}  // namespace

Invocation::Invocation(ITypeInfo& info, DISPID id, WORD flags, const DISPPARAMS& arguments)
    : info_(info), id_(id), flags_(flags), given_(arguments) {
  if (arguments.cArgs > 0 && !arguments.rgvarg) throw ComFailure{E_POINTER};
  if (arguments.cNamedArgs > arguments.cArgs) throw ComFailure{DISP_E_BADPARAMCOUNT};
  if (arguments.cNamedArgs > 0 && !arguments.rgdispidNamedArgs) throw ComFailure{E_POINTER};
  arguments_.assign(arguments.rgvarg, arguments.rgvarg + arguments.cArgs);
}

HRESULT Invocation::run(void* object, VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
  // A reference to nothing is refused here: not every system looks before it reads.
  for (UINT place = 0; place < arguments_.size(); ++place) {
    if (!(arguments_[place].vt & VT_BYREF) || arguments_[place].byref) continue;
    if (wrongArgument) *wrongArgument = place;
    return DISP_E_TYPEMISMATCH;
  }
  // Hosts may set an object property without saying that it is an object.
  const bool sets = (flags_ & DISPATCH_PROPERTYPUT) != 0;
  if (sets && !Function{info_, id_, flags_}.description()) flags_ = DISPATCH_PROPERTYPUTREF;
  const Function function{info_, id_, flags_};
  if (!function.description()) return DISP_E_MEMBERNOTFOUND;
  const HRESULT prepared = prepare(*function.description(), wrongArgument);
  if (FAILED(prepared)) return prepared;

  DISPPARAMS arguments = given_;
  arguments.rgvarg = arguments_.data();
  UINT ignored = 0;
  const HRESULT answer = info_.Invoke(object, id_, flags_, &arguments, result, exception,
                                      wrongArgument ? wrongArgument : &ignored);
  if (SUCCEEDED(answer)) giveBack();
  return answer;
}

HRESULT Invocation::prepare(const FUNCDESC& function, UINT* wrongArgument) {
  const auto count = static_cast<UINT>(arguments_.size());
  const auto parameters = static_cast<UINT>(function.cParams);
  for (UINT place = 0; place < count; ++place) {
    // The last argument comes first; named ones stand before all others.
    UINT parameter = count - 1 - place;
    if (place < given_.cNamedArgs) {
      const DISPID name = given_.rgdispidNamedArgs[place];
      parameter = name == DISPID_PROPERTYPUT ? parameters - 1 : static_cast<UINT>(name);
    }
    if (parameter >= parameters) continue;
    const VARTYPE type = referredType(function.lprgelemdescParam[parameter]);
    if (type == VT_EMPTY) continue;
    const HRESULT substituted = substitute(arguments_[place], type);
    if (SUCCEEDED(substituted)) continue;
    if (wrongArgument) *wrongArgument = place;
    return substituted;
  }
  return S_OK;
}

HRESULT Invocation::substitute(VARIANT& argument, VARTYPE type) {
  const auto reference = static_cast<VARTYPE>(VT_BYREF | type);
  if (argument.vt == reference) return S_OK;

  Variable& variable = variables_.emplace_back();
  if (argument.vt == (VT_BYREF | VT_VARIANT)) variable.host = argument.pvarVal;
  OwnedVariant plain;
  const HRESULT copied = VariantCopyInd(&plain, &argument);
  if (FAILED(copied)) return copied;
  const HRESULT converted = VariantChangeType(&variable.value, &plain, 0, type);
  if (FAILED(converted)) return DISP_E_TYPEMISMATCH;
  argument.vt = reference;
  argument.byref = &variable.value.byref;
  return S_OK;
}

void Invocation::giveBack() {
  for (Variable& variable : variables_)
    if (variable.host) VariantCopy(variable.host, &variable.value);
}

}  // namespace keyscout
