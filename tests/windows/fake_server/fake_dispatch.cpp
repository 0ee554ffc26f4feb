#include "fake_dispatch.h"

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <cstdio>
#include <mutex>

namespace fake {
namespace {

std::mutex g_mutex;
std::vector<std::wstring> g_calls;
std::map<std::wstring, DISPID> g_ids;
std::map<DISPID, std::wstring> g_names;
// Knobs: the next call(s) of a member.
std::map<std::wstring, std::wstring> g_raise;
std::map<std::wstring, DWORD> g_hang;
std::map<std::wstring, int> g_busy;
std::map<std::wstring, bool> g_crash;
DWORD g_mainThread = GetCurrentThreadId();
volatile DWORD g_lastActivity = GetTickCount();

std::wstring shown(const VARIANT* v) {
  if (v->vt == (VT_BYREF | VT_VARIANT)) v = v->pvarVal;
  VARIANT copy;
  VariantInit(&copy);
  VariantCopyInd(&copy, const_cast<VARIANT*>(v));
  std::wstring s;
  if (copy.vt & VT_ARRAY) {
    LONG lo = 0, hi = -1;
    SafeArrayGetLBound(copy.parray, 1, &lo);
    SafeArrayGetUBound(copy.parray, 1, &hi);
    s = L"[" + std::to_wstring(hi - lo + 1) + L" values]";
  } else if (copy.vt == VT_BOOL) {
    s = copy.boolVal ? L"True" : L"False";
  } else if (copy.vt == VT_DISPATCH) {
    s = L"<object>";
  } else if (copy.vt == VT_EMPTY) {
    s = L"<empty>";
  } else {
    s = text(&copy);
  }
  VariantClear(&copy);
  return s;
}

template <typename T>
bool take(std::map<std::wstring, T>& knobs, const std::wstring& name, T& value) {
  auto it = knobs.find(name);
  if (it == knobs.end()) return false;
  value = it->second;
  knobs.erase(it);
  return true;
}

}  // namespace

std::wstring text(const VARIANT* v) {
  VARIANT s;
  VariantInit(&s);
  // As a program would write it: "2.5", "True", whatever the user's locale.
  if (FAILED(VariantChangeTypeEx(&s, const_cast<VARIANT*>(v), LOCALE_INVARIANT, VARIANT_ALPHABOOL,
                                 VT_BSTR)))
    return L"";
  std::wstring out(s.bstrVal, SysStringLen(s.bstrVal));
  VariantClear(&s);
  return out;
}

double number(const VARIANT* v) {
  VARIANT d;
  VariantInit(&d);
  if (FAILED(VariantChangeTypeEx(&d, const_cast<VARIANT*>(v), LOCALE_INVARIANT, 0, VT_R8)))
    return 0;
  return d.dblVal;
}

void setText(VARIANT* out, const std::wstring& s) {
  if (!out) return;
  out->vt = VT_BSTR;
  out->bstrVal = SysAllocStringLen(s.data(), static_cast<UINT>(s.size()));
}
void setNumber(VARIANT* out, double d) {
  if (!out) return;
  out->vt = VT_R8;
  out->dblVal = d;
}
void setInt(VARIANT* out, long i) {
  if (!out) return;
  out->vt = VT_I4;
  out->lVal = i;
}
void setBool(VARIANT* out, bool b) {
  if (!out) return;
  out->vt = VT_BOOL;
  out->boolVal = b ? VARIANT_TRUE : VARIANT_FALSE;
}
void setObject(VARIANT* out, IDispatch* d) {
  if (!out) {
    d->Release();
    return;
  }
  out->vt = VT_DISPATCH;
  out->pdispVal = d;
}

void assign(VARIANT* ref, const VARIANT& value) {
  if (ref->vt == (VT_BYREF | VT_VARIANT)) {
    VariantClear(ref->pvarVal);
    VariantCopy(ref->pvarVal, const_cast<VARIANT*>(&value));
    return;
  }
  if (!(ref->vt & VT_BYREF)) return;  // passed by value: nothing comes back
  VARIANT converted;
  VariantInit(&converted);
  if (FAILED(VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, ref->vt & ~VT_BYREF)))
    return;
  switch (ref->vt & ~VT_BYREF) {
    case VT_BSTR:
      SysFreeString(*ref->pbstrVal);
      *ref->pbstrVal = converted.bstrVal;
      return;
    case VT_I4:
      *ref->plVal = converted.lVal;
      break;
    case VT_R8:
      *ref->pdblVal = converted.dblVal;
      break;
    case VT_BOOL:
      *ref->pboolVal = converted.boolVal;
      break;
  }
  VariantClear(&converted);
}

void assignNumbers(VARIANT* ref, const std::vector<double>& numbers) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_ARRAY | VT_R8;
  v.parray = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(numbers.size()));
  double* data = nullptr;
  SafeArrayAccessData(v.parray, reinterpret_cast<void**>(&data));
  for (std::size_t k = 0; k < numbers.size(); ++k) data[k] = numbers[k];
  SafeArrayUnaccessData(v.parray);
  if (ref->vt == (VT_BYREF | VT_VARIANT)) {
    VariantClear(ref->pvarVal);
    *ref->pvarVal = v;
  } else {
    VariantClear(&v);
  }
}

HRESULT raise(EXCEPINFO* info, const std::wstring& description) {
  if (info) {
    *info = EXCEPINFO{};
    info->scode = 0x80040201;
    info->bstrSource = SysAllocString(L"fake");
    info->bstrDescription = SysAllocString(description.c_str());
  }
  return DISP_E_EXCEPTION;
}

DWORD lastActivity() { return g_lastActivity; }
void touch() { g_lastActivity = GetTickCount(); }

void record(const std::wstring& line) {
  touch();
  std::lock_guard<std::mutex> lock(g_mutex);
  g_calls.push_back(line);
}

std::wstring recordedCalls() {
  std::lock_guard<std::mutex> lock(g_mutex);
  std::wstring all;
  for (const auto& c : g_calls) all += c + L"\n";
  return all;
}

void resetFake() {
  std::lock_guard<std::mutex> lock(g_mutex);
  g_calls.clear();
  g_raise.clear();
  g_hang.clear();
  g_busy.clear();
  g_crash.clear();
}

void quitServer() { PostThreadMessageW(g_mainThread, WM_QUIT, 0, 0); }

HRESULT Dispatch::QueryInterface(REFIID iid, void** out) {
  if (iid == IID_IUnknown || iid == IID_IDispatch) {
    *out = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

ULONG Dispatch::Release() {
  LONG n = InterlockedDecrement(&refs_);
  if (n == 0) delete this;
  return n;
}

HRESULT Dispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  std::lock_guard<std::mutex> lock(g_mutex);
  for (UINT k = 0; k < count; ++k) {
    std::wstring n = names[k];
    auto it = g_ids.find(n);
    if (it == g_ids.end()) {
      DISPID id = static_cast<DISPID>(g_ids.size() + 1);
      it = g_ids.emplace(n, id).first;
      g_names[id] = n;
    }
    ids[k] = it->second;
  }
  return S_OK;
}

HRESULT Dispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                         EXCEPINFO* info, UINT*) {
  std::wstring name;
  {
    std::lock_guard<std::mutex> lock(g_mutex);
    auto it = g_names.find(id);
    if (it == g_names.end()) return DISP_E_MEMBERNOTFOUND;
    name = it->second;
  }
  std::vector<VARIANT*> args;
  for (UINT k = params->cArgs; k > params->cNamedArgs; --k) args.push_back(&params->rgvarg[k - 1]);
  if (flags & DISPATCH_PROPERTYPUT) args.insert(args.begin(), &params->rgvarg[0]);
  if (result) VariantInit(result);

  // The test's own controls.
  if (name == L"FakeCalls") return setText(result, recordedCalls()), S_OK;
  if (name == L"FakeReset") return resetFake(), S_OK;
  if (name == L"FakeQuit") return quitServer(), S_OK;
  if (name.rfind(L"Fake", 0) == 0 && !args.empty()) {
    std::lock_guard<std::mutex> lock(g_mutex);
    const std::wstring target = text(args[0]);
    if (name == L"FakeRaise")
      g_raise[target] = args.size() > 1 ? text(args[1]) : L"";
    else if (name == L"FakeHang")
      g_hang[target] = static_cast<DWORD>(number(args[1]));
    else if (name == L"FakeBusy")
      g_busy[target] = static_cast<int>(number(args[1]));
    else if (name == L"FakeCrash")
      g_crash[target] = true;
    else
      return DISP_E_MEMBERNOTFOUND;
    return S_OK;
  }

  std::wstring line = name_ + L"." + name;
  if (flags & DISPATCH_PROPERTYPUT) {
    line += L"=" + shown(args[0]);
  } else if (!args.empty()) {
    line += L"(";
    for (std::size_t k = 0; k < args.size(); ++k) line += (k ? L"," : L"") + shown(args[k]);
    line += L")";
  }

  std::wstring description;
  DWORD hang = 0;
  int busy = 0;
  bool crash = false;
  {
    std::lock_guard<std::mutex> lock(g_mutex);
    auto b = g_busy.find(name);
    if (b != g_busy.end() && b->second > 0) {
      --b->second;
      busy = 1;
    }
    take(g_hang, name, hang);
    take(g_crash, name, crash);
  }
  if (busy) {
    record(line + L" <busy>");
    return RPC_E_CALL_REJECTED;
  }
  record(line);
  if (crash) ExitProcess(3);
  if (hang) Sleep(hang);
  {
    std::lock_guard<std::mutex> lock(g_mutex);
    if (take(g_raise, name, description)) return raise(info, description);
  }
  HRESULT hr = member(name, flags, args, result, info);
  if (hr != DISP_E_MEMBERNOTFOUND) return hr;
  // Properties nobody plays: what was put comes back.
  if (flags & DISPATCH_PROPERTYPUT) {
    VARIANT& stored = properties_[name];
    VariantClear(&stored);
    VariantCopyInd(&stored, args[0]);
    return S_OK;
  }
  auto it = properties_.find(name);
  if (it != properties_.end() && args.empty()) {
    if (result) VariantCopy(result, &it->second);
    return S_OK;
  }
  return DISP_E_MEMBERNOTFOUND;
}

}  // namespace fake
