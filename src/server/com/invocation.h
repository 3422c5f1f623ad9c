#pragma once

#include <windows.h>

#include <oaidl.h>

#include <deque>
#include <vector>

#include "server/com/com_ptr.h"
#include "server/com/values.h"

namespace keyscout {

/// One call of a member by its dispatch identifier. Where a member takes an argument by reference,
/// hosts may give a plain value or a variable of another type all the same: the member then gets a
/// variable of its own type, and what it leaves there goes back into the host's.
class Invocation {
 public:
  /// `arguments` must outlive the call.
  Invocation(ITypeInfo& info, DISPID id, WORD flags, const DISPPARAMS& arguments);
  Invocation(const Invocation&) = delete;
  Invocation& operator=(const Invocation&) = delete;

  /// Calls `object`, whose interface the type information describes. A failed member is told in
  /// `exception`, as IDispatch::Invoke does; any of the last three may be null.
  HRESULT run(void* object, VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument);

 private:
  /// A variable in the place of the host's argument.
  struct Variable {
    OwnedVariant value;
    VARIANT* host = nullptr;  // null where nothing goes back
  };

  HRESULT prepare(const FUNCDESC& function, UINT* wrongArgument);
  HRESULT substitute(VARIANT& argument, VARTYPE type);
  void giveBack();

  ITypeInfo& info_;
  DISPID id_;
  WORD flags_;
  const DISPPARAMS& given_;
  std::vector<VARIANT> arguments_;  // what they hold belongs to the host
  std::deque<Variable> variables_;
};

}  // namespace keyscout
