#include "hosts/automation/windows/com_system.h"

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <objbase.h>
#include <oleauto.h>
// clang-format on

#include "base/registry.h"
#include "hosts/automation/windows/com_apartment.h"
#include "hosts/automation/windows/com_object.h"
#include "hosts/automation/windows/com_variant.h"

namespace korvane::hosts::windows {
namespace {

const char* const kWmi = "winmgmts:{impersonationLevel=impersonate}!\\\\.\\root\\cimv2";

HRESULT classId(const std::string& progId, CLSID& id) {
  std::wstring wide = wideText(progId);
  if (!progId.empty() && progId.front() == '{') return CLSIDFromString(wide.data(), &id);
  return CLSIDFromProgID(wide.data(), &id);
}

// Runs `get` on the COM thread; it returns an IDispatch reference or fails with an HRESULT.
AutoObject objectFrom(const std::string& name, HRESULT (*get)(const std::string&, IDispatch**)) {
  auto apartment = ComApartment::current();
  auto result = std::make_shared<AutoObject>();
  apartment->run(
      [apartment, result, name, get] {
        IDispatch* d = nullptr;
        HRESULT hr = get(name, &d);
        if (FAILED(hr) || !d) throw callError(FAILED(hr) ? hr : E_NOINTERFACE, name);
        *result = wrapDispatch(d, apartment, name);
      },
      name);
  return *result;
}

HRESULT activeObject(const std::string& progId, IDispatch** out) {
  CLSID id;
  HRESULT hr = classId(progId, id);
  if (FAILED(hr)) return hr;
  IUnknown* unknown = nullptr;
  hr = GetActiveObject(id, nullptr, &unknown);
  if (FAILED(hr)) return hr;
  hr = unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(out));
  unknown->Release();
  return hr;
}

HRESULT newObject(const std::string& progId, IDispatch** out) {
  CLSID id;
  HRESULT hr = classId(progId, id);
  if (FAILED(hr)) return hr;
  return CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER | CLSCTX_INPROC_SERVER, IID_IDispatch,
                          reinterpret_cast<void**>(out));
}

HRESULT namedObject(const std::string& name, IDispatch** out) {
  std::wstring wide = wideText(name);
  return CoGetObject(wide.c_str(), nullptr, IID_IDispatch, reinterpret_cast<void**>(out));
}

class ComAutomationSystem final : public AutomationSystem {
 public:
  std::vector<std::string> processCommandLines(const std::string& exeName) override {
    std::vector<std::string> lines;
    try {
      AutoObject wmi = fileObject(kWmi);
      AutoObject found =
          wmi->call("ExecQuery", {"select * from Win32_Process where Name='" + exeName + "'"})
              .object();
      if (!found) return lines;
      for (const auto& process : found->elements()) {
        std::string line;  // a process whose command line cannot be read still counts
        try {
          if (AutoObject p = process.object()) line = p->get("CommandLine").text();
        } catch (const AutomationError&) {
        }
        lines.push_back(line);
      }
    } catch (const AutomationError&) {
      // WMI not there or refusing: no process found.
    }
    return lines;
  }

  AutoObject runningObject(const std::string& progId) override {
    return objectFrom(progId, activeObject);
  }
  AutoObject createObject(const std::string& progId) override {
    return objectFrom(progId, newObject);
  }
  AutoObject fileObject(const std::string& name) override { return objectFrom(name, namedObject); }

  std::string fileVersion(const std::string& path) override { return GetFileVersionText(path); }

  std::vector<std::string> registrySubkeys(const std::string& key) override {
    std::vector<std::string> names;
    RegistryKey k = OpenRegistryKey(RegistryHive::CurrentUser, key);
    if (!k) return names;
    bool failed = false;
    for (std::uint32_t i = 0;; ++i) {
      std::string name = EnumRegistrySubkey(k, i, failed);
      if (failed) break;
      names.push_back(name);
    }
    CloseRegistryKey(k);
    return names;
  }
};

}  // namespace

std::unique_ptr<AutomationSystem> makeComAutomationSystem() {
  return std::make_unique<ComAutomationSystem>();
}

bool classRegistered(const std::string& progId) {
  auto found = std::make_shared<bool>(false);
  try {
    ComApartment::current()->run(
        [found, progId] {
          CLSID id;
          LPOLESTR text = nullptr;
          if (FAILED(classId(progId, id)) || FAILED(StringFromCLSID(id, &text))) return;
          RegistryKey k = OpenRegistryKey(RegistryHive::ClassesRoot, "CLSID\\" + narrowText(text));
          CoTaskMemFree(text);
          CloseRegistryKey(k);
          *found = k != 0;
        },
        progId);
  } catch (const AutomationError&) {
  }
  return *found;
}

}  // namespace korvane::hosts::windows
