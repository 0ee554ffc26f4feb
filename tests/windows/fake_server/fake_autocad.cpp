// AutoCAD and MicroStation as far as Korvane talks to them.
#include <map>
#include <memory>

#include "fake_roles.h"

namespace fake {
namespace {

// Polls of GetAcadState that answer "busy" after each SendCommand.
constexpr int kBusyPolls = 3;

struct AutoCadState {
  std::wstring version;
  int documents = 0;
  int busyPolls = 0;
  std::map<std::wstring, std::wstring> variables{{L"FILEDIA", L"1"}, {L"CMDECHO", L"1"}};
};

class AcadState final : public Dispatch {
 public:
  explicit AcadState(std::shared_ptr<AutoCadState> s) : Dispatch(L"state"), s_(std::move(s)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO*) override {
    if (name != L"IsQuiescent") return DISP_E_MEMBERNOTFOUND;
    setBool(result, s_->busyPolls == 0);
    if (s_->busyPolls > 0) --s_->busyPolls;
    return S_OK;
  }
  std::shared_ptr<AutoCadState> s_;
};

class AcadDocument final : public Dispatch {
 public:
  explicit AcadDocument(std::shared_ptr<AutoCadState> s) : Dispatch(L"doc"), s_(std::move(s)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"GetVariable" && args.size() == 1) {
      auto it = s_->variables.find(text(args[0]));
      if (it == s_->variables.end()) return raise(info, L"Error getting system variable");
      setInt(result, std::stol(it->second));
      return S_OK;
    }
    if (name == L"SetVariable" && args.size() == 2) {
      s_->variables[text(args[0])] = text(args[1]);
      return S_OK;
    }
    if (name == L"SendCommand" && args.size() == 1) {
      s_->busyPolls = kBusyPolls;
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  std::shared_ptr<AutoCadState> s_;
};

class AcadDocuments final : public Dispatch {
 public:
  explicit AcadDocuments(std::shared_ptr<AutoCadState> s) : Dispatch(L"docs"), s_(std::move(s)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"Count") return setInt(result, s_->documents), S_OK;
    if (name == L"Add") {
      ++s_->documents;
      setObject(result, new AcadDocument(s_));
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  std::shared_ptr<AutoCadState> s_;
};

class AcadApplication final : public Dispatch {
 public:
  explicit AcadApplication(std::wstring version)
      : Dispatch(L"acad"), s_(std::make_shared<AutoCadState>()) {
    s_->version = std::move(version);
  }
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Version") return setText(result, s_->version), S_OK;
    if (name == L"Documents") return setObject(result, new AcadDocuments(s_)), S_OK;
    if (name == L"GetAcadState") return setObject(result, new AcadState(s_)), S_OK;
    if (name == L"ActiveDocument") {
      if (s_->documents == 0) return raise(info, L"No active document");
      return setObject(result, new AcadDocument(s_)), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  std::shared_ptr<AutoCadState> s_;
};

class CadInputQueue final : public Dispatch {
 public:
  CadInputQueue() : Dispatch(L"queue") {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT*,
                 EXCEPINFO*) override {
    return name == L"SendCommand" && args.size() == 1 ? S_OK : DISP_E_MEMBERNOTFOUND;
  }
};

class MicroStation final : public Dispatch {
 public:
  MicroStation() : Dispatch(L"ustation") {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"CadInputQueue") return setObject(result, new CadInputQueue), S_OK;
    return DISP_E_MEMBERNOTFOUND;
  }
};

}  // namespace

IDispatch* createMxObject(Role role);
IDispatch* createExcel();

IDispatch* createTopObject(const FakeClass& c) {
  switch (c.role) {
    case Role::AutoCad:
      return new AcadApplication(c.version);
    case Role::MicroStation:
      return new MicroStation;
    case Role::Excel:
      return createExcel();
    default:
      return createMxObject(c.role);
  }
}

}  // namespace fake
