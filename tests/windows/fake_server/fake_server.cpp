// korvane_fake_servers: a local COM server for the tests, playing AutoCAD
// (three releases), MicroStation, Excel and MX's services and recording every
// call made to them. Test-only; registered in the test Wine prefix.
//   korvane_fake_servers /register        registers the classes (HKCR) for this program
//   korvane_fake_servers /run PROGID...   stands as running instances of those classes
//   korvane_fake_servers -Embedding       started by COM for a new object
// It ends on FakeQuit, or after half a minute without calls.

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
// clang-format on

#include <string>
#include <vector>

#include "fake_roles.h"

namespace {

using fake::FakeClass;

class Factory final : public IClassFactory {
 public:
  explicit Factory(const FakeClass& c) : c_(c) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IClassFactory) {
      *out = this;
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    if (outer) return CLASS_E_NOAGGREGATION;
    fake::touch();
    IDispatch* d = fake::createTopObject(c_);
    HRESULT hr = d->QueryInterface(iid, out);
    d->Release();
    return hr;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  const FakeClass& c_;
};

bool setKey(const std::wstring& key, const std::wstring& value) {
  HKEY k;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &k,
                      nullptr) != ERROR_SUCCESS)
    return false;
  RegSetValueExW(k, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                 static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(k);
  return true;
}

// HKCR, not HKCU\Software\Classes: Wine looks for classes only there.
int registerClasses() {
  wchar_t self[MAX_PATH];
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  for (const auto& c : fake::kClasses) {
    const std::wstring clsid = c.clsid;
    bool ok = setKey(L"CLSID\\" + clsid + L"\\LocalServer32",
                     L"\"" + std::wstring(self) + L"\" -Embedding");
    if (*c.progId) {
      ok = ok && setKey(L"CLSID\\" + clsid + L"\\ProgID", c.progId) &&
           setKey(std::wstring(c.progId) + L"\\CLSID", clsid);
    }
    if (!ok) return 1;
  }
  // The release-independent name goes to the last release installed.
  setKey(L"AutoCAD.Application\\CLSID", fake::kClasses[2].clsid);
  setKey(L"AutoCAD.Application\\CurVer", fake::kClasses[2].progId);
  return 0;
}

}  // namespace

int main() {
  int argc = 0;
  wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  std::vector<std::wstring> args(argv + 1, argv + argc);
  LocalFree(argv);
  if (!args.empty() && args[0] == L"/register") return registerClasses();

  // Started by COM, the server inherits its client's standard handles; a test
  // runner would wait for them to close as long as the server lives.
  for (DWORD h : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    CloseHandle(GetStdHandle(h));
    SetStdHandle(h, nullptr);
  }
  CoInitialize(nullptr);
  std::vector<Factory*> factories;
  std::vector<DWORD> cookies;
  for (const auto& c : fake::kClasses) {
    CLSID id;
    CLSIDFromString(c.clsid, &id);
    auto* f = new Factory(c);
    factories.push_back(f);
    DWORD cookie = 0;
    CoRegisterClassObject(id, f, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    cookies.push_back(cookie);
  }
  std::vector<DWORD> running;
  std::vector<IDispatch*> instances;
  if (!args.empty() && args[0] == L"/run") {
    for (std::size_t k = 1; k < args.size(); ++k) {
      for (const auto& c : fake::kClasses) {
        if (args[k] != c.progId && args[k] != c.clsid) continue;
        CLSID id;
        CLSIDFromString(c.clsid, &id);
        IDispatch* d = fake::createTopObject(c);
        DWORD cookie = 0;
        if (SUCCEEDED(RegisterActiveObject(d, id, ACTIVEOBJECT_STRONG, &cookie))) {
          running.push_back(cookie);
          instances.push_back(d);
        }
      }
    }
  }

  // Ends when told to, or when nobody has called for half a minute.
  SetTimer(nullptr, 0, 1000, nullptr);
  MSG msg;
  while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
    if (msg.message == WM_TIMER && GetTickCount() - fake::lastActivity() > 30000) break;
    DispatchMessageW(&msg);
  }
  for (DWORD c : running) RevokeActiveObject(c, nullptr);
  for (IDispatch* d : instances) d->Release();
  for (DWORD c : cookies) CoRevokeClassObject(c);
  CoUninitialize();
  return 0;
}
