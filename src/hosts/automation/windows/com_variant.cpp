#include "hosts/automation/windows/com_variant.h"

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <cstdio>
#include <vector>

#include "hosts/automation/windows/com_object.h"

namespace korvane::hosts::windows {

std::wstring wideText(const std::string& text) {
  if (text.empty()) return {};
  int n =
      MultiByteToWideChar(kTextCodePage, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring w(n, L'\0');
  MultiByteToWideChar(kTextCodePage, 0, text.data(), static_cast<int>(text.size()), w.data(), n);
  return w;
}

std::string narrowText(const wchar_t* text, int length) {
  if (!text) return {};
  if (length < 0) length = static_cast<int>(wcslen(text));
  if (length == 0) return {};
  int n = WideCharToMultiByte(kTextCodePage, 0, text, length, nullptr, 0, "?", nullptr);
  std::string s(n, '\0');
  WideCharToMultiByte(kTextCodePage, 0, text, length, s.data(), n, "?", nullptr);
  return s;
}

void toVariant(const AutoValue& value, VARIANT& out) {
  VariantInit(&out);
  if (auto b = std::get_if<bool>(&value.v)) {
    out.vt = VT_BOOL;
    out.boolVal = *b ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (auto i = std::get_if<std::int32_t>(&value.v)) {
    out.vt = VT_I4;
    out.lVal = *i;
  } else if (auto d = std::get_if<double>(&value.v)) {
    out.vt = VT_R8;
    out.dblVal = *d;
  } else if (auto s = std::get_if<std::string>(&value.v)) {
    std::wstring w = wideText(*s);
    out.vt = VT_BSTR;
    out.bstrVal = SysAllocStringLen(w.data(), static_cast<UINT>(w.size()));
  } else if (auto a = std::get_if<std::vector<double>>(&value.v)) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(a->size()));
    double* data = nullptr;
    SafeArrayAccessData(array, reinterpret_cast<void**>(&data));
    for (std::size_t k = 0; k < a->size(); ++k) data[k] = (*a)[k];
    SafeArrayUnaccessData(array);
    out.vt = VT_ARRAY | VT_R8;
    out.parray = array;
  } else if (auto o = std::get_if<AutoObject>(&value.v)) {
    auto* com = dynamic_cast<ComObject*>(o->get());
    if (*o && !com)
      throw AutomationError(AutomationError::Reason::Failed, "argument", "not a COM object");
    out.vt = VT_DISPATCH;
    out.pdispVal = com ? com->dispatch() : nullptr;
    if (out.pdispVal) out.pdispVal->AddRef();
  }
}

namespace {

std::vector<double> numbersOf(SAFEARRAY* array, VARTYPE type) {
  std::vector<double> out;
  if (!array || SafeArrayGetDim(array) == 0) return out;
  // All dimensions in memory order: a 2-D array of points reads x, y, z, x, ...
  ULONG count = 1;
  for (UINT d = 1; d <= SafeArrayGetDim(array); ++d) {
    LONG lo = 0, hi = -1;
    SafeArrayGetLBound(array, d, &lo);
    SafeArrayGetUBound(array, d, &hi);
    count *= static_cast<ULONG>(hi - lo + 1);
  }
  void* raw = nullptr;
  if (FAILED(SafeArrayAccessData(array, &raw))) return out;
  for (ULONG k = 0; k < count; ++k) {
    VARIANT v;
    VariantInit(&v);
    if (type == VT_VARIANT) {
      VariantChangeType(&v, &static_cast<VARIANT*>(raw)[k], 0, VT_R8);
    } else if (type == VT_R8) {
      v.vt = VT_R8;
      v.dblVal = static_cast<double*>(raw)[k];
    } else if (type == VT_R4) {
      v.vt = VT_R8;
      v.dblVal = static_cast<float*>(raw)[k];
    } else if (type == VT_I4) {
      v.vt = VT_R8;
      v.dblVal = static_cast<LONG*>(raw)[k];
    } else if (type == VT_I2) {
      v.vt = VT_R8;
      v.dblVal = static_cast<SHORT*>(raw)[k];
    }
    out.push_back(v.vt == VT_R8 ? v.dblVal : 0.0);
    VariantClear(&v);
  }
  SafeArrayUnaccessData(array);
  return out;
}

}  // namespace

AutoValue fromVariant(const VARIANT& in, const std::shared_ptr<ComApartment>& apartment,
                      const std::string& name) {
  // The API takes no const; nothing here changes the VARIANT.
  VARIANT* v = const_cast<VARIANT*>(&in);
  if (v->vt == (VT_BYREF | VT_VARIANT)) v = v->pvarVal;
  VARIANT copy;
  VariantInit(&copy);
  if (v->vt & VT_BYREF) {  // a typed reference: its value
    if (FAILED(VariantCopyInd(&copy, v))) return {};
    v = &copy;
  }
  AutoValue out;
  if (v->vt & VT_ARRAY) {
    out = AutoValue(numbersOf(v->parray, static_cast<VARTYPE>(v->vt & VT_TYPEMASK)));
  } else {
    switch (v->vt) {
      case VT_BOOL:
        out = AutoValue(v->boolVal != VARIANT_FALSE);
        break;
      case VT_I1:
      case VT_I2:
      case VT_I4:
      case VT_INT:
      case VT_UI1:
      case VT_UI2:
      case VT_ERROR: {
        VARIANT n;
        VariantInit(&n);
        VariantChangeType(&n, v, 0, VT_I4);
        out = AutoValue(static_cast<std::int32_t>(n.lVal));
        break;
      }
      case VT_UI4:
      case VT_UINT:
      case VT_I8:
      case VT_UI8:
      case VT_R4:
      case VT_R8:
      case VT_CY:
      case VT_DATE:
      case VT_DECIMAL: {
        VARIANT n;
        VariantInit(&n);
        VariantChangeType(&n, v, 0, VT_R8);
        out = AutoValue(n.dblVal);
        break;
      }
      case VT_BSTR:
        out = AutoValue(narrowText(v->bstrVal, static_cast<int>(SysStringLen(v->bstrVal))));
        break;
      case VT_DISPATCH:
        if (v->pdispVal) v->pdispVal->AddRef();
        out = AutoValue(wrapDispatch(v->pdispVal, apartment, name));
        break;
      case VT_UNKNOWN: {
        IDispatch* d = nullptr;
        if (v->punkVal) v->punkVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&d));
        out = AutoValue(wrapDispatch(d, apartment, name));
        break;
      }
      default:
        break;  // empty, null and what Korvane has no use for
    }
  }
  VariantClear(&copy);
  return out;
}

AutomationError callError(long hr, const std::string& subject, EXCEPINFO* info) {
  using R = AutomationError::Reason;
  char code[16];
  std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(hr));
  if (hr == DISP_E_EXCEPTION && info) {
    if (info->pfnDeferredFillIn) info->pfnDeferredFillIn(info);
    std::string description = narrowText(info->bstrDescription);
    long scode = info->scode ? info->scode : info->wCode;
    SysFreeString(info->bstrDescription);
    SysFreeString(info->bstrSource);
    SysFreeString(info->bstrHelpFile);
    char inner[16];
    std::snprintf(inner, sizeof inner, "0x%08lX", static_cast<unsigned long>(scode));
    return AutomationError(R::Raised, subject,
                           description.empty() ? std::string(inner) : description);
  }
  switch (static_cast<unsigned long>(hr)) {
    case static_cast<unsigned long>(DISP_E_UNKNOWNNAME):
    case static_cast<unsigned long>(DISP_E_MEMBERNOTFOUND):
      return AutomationError(R::UnknownMember, subject, code);
    case static_cast<unsigned long>(CO_E_CLASSSTRING):
    case static_cast<unsigned long>(REGDB_E_CLASSNOTREG):
      return AutomationError(R::NotInstalled, subject, code);
    case static_cast<unsigned long>(MK_E_UNAVAILABLE):
      return AutomationError(R::NotRunning, subject, code);
    case static_cast<unsigned long>(RPC_E_SERVERFAULT):
    case static_cast<unsigned long>(RPC_E_DISCONNECTED):
    case static_cast<unsigned long>(HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)):
    case static_cast<unsigned long>(HRESULT_FROM_WIN32(RPC_S_CALL_FAILED)):
    case static_cast<unsigned long>(CO_E_SERVER_EXEC_FAILURE):
      return AutomationError(R::Gone, subject, code);
    default:
      return AutomationError(R::Failed, subject, code);
  }
}

}  // namespace korvane::hosts::windows
