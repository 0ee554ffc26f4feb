// A hand-written IDispatch for the fake servers: any name is accepted by
// GetIDsOfNames; Invoke records the call and hands it to the role's member(),
// after the test's knobs (raise, hang, busy, crash) have had their say.
#pragma once

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

#include <map>
#include <string>
#include <vector>

namespace fake {

class Dispatch : public IDispatch {
 public:
  explicit Dispatch(std::wstring name) : name_(std::move(name)) {}
  virtual ~Dispatch() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return InterlockedIncrement(&refs_); }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* n) override {
    *n = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* info, UINT* badArg) override;

 protected:
  // One call: `args` in the order written, references not yet followed.
  // Returns DISP_E_MEMBERNOTFOUND for a name the role does not know.
  virtual HRESULT member(const std::wstring& name, WORD flags, std::vector<VARIANT*>& args,
                         VARIANT* result, EXCEPINFO* info) = 0;

  std::wstring name_;
  std::map<std::wstring, VARIANT> properties_;  // what was put, for a later get

 private:
  LONG refs_ = 1;
};

// Helpers for the roles.
std::wstring text(const VARIANT* v);
double number(const VARIANT* v);
void setText(VARIANT* out, const std::wstring& s);
void setNumber(VARIANT* out, double d);
void setInt(VARIANT* out, long i);
void setBool(VARIANT* out, bool b);
void setObject(VARIANT* out, IDispatch* d);  // takes over the reference
// Writes through a by-reference argument of whatever type the caller passed.
void assign(VARIANT* ref, const VARIANT& value);
void assignNumbers(VARIANT* ref, const std::vector<double>& numbers);
HRESULT raise(EXCEPINFO* info, const std::wstring& description);

// The process's record of calls, and the knobs the tests set.
void record(const std::wstring& line);
std::wstring recordedCalls();
void resetFake();
void quitServer();
// When the last call came (GetTickCount).
DWORD lastActivity();
void touch();

}  // namespace fake
