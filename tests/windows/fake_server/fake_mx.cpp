// MX's services as Korvane's default names for them say (see
// src/hosts/mx/windows/mx_names.h): a configuration service that runs input
// files and creates and deletes models named by "crea,"/"dele," lines, a
// project service, the data-access object and the model library, over a
// small model store seeded with the model GROUND.
#include <cmath>
#include <cstdio>
#include <map>
#include <string>

#include "fake_roles.h"

namespace fake {
namespace {

struct Point {
  double x, y, z;
  bool breakAfter;
};
using Model = std::map<std::wstring, std::vector<Point>>;  // label -> points

std::map<std::wstring, Model>& models() {
  static std::map<std::wstring, Model> m{
      {L"GROUND",
       {{L"GR01", {{0, 0, 10, false}, {3, 4, 10, true}, {6, 8, 12, false}}},
        {L"GR02", {{0, 0, 0, false}, {0, 5, 0, false}}}}}};
  return m;
}

const std::vector<Point>* findString(const std::wstring& model, const std::wstring& label) {
  auto m = models().find(model);
  if (m == models().end()) return nullptr;
  auto s = m->second.find(label);
  return s == m->second.end() ? nullptr : &s->second;
}

// Runs an input file: "crea,NAME" and "dele,NAME" make and remove models; MX
// stops at a line it refuses ("fake,stop").
void runInput(const std::wstring& file) {
  FILE* f = _wfopen(file.c_str(), L"rb");
  if (!f) return;
  char buf[1024];
  while (std::fgets(buf, sizeof buf, f)) {
    std::string line = buf;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
    std::wstring name(line.begin() + std::min<std::size_t>(5, line.size()), line.end());
    if (line.rfind("crea,", 0) == 0) models()[name];
    if (line.rfind("dele,", 0) == 0) models().erase(name);
    if (line == "fake,stop") break;
  }
  std::fclose(f);
}

class Configuration final : public Dispatch {
 public:
  Configuration() : Dispatch(L"mxconfig") {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Initialise" || name == L"Terminate") return S_OK;
    if (name == L"GetSetting" && args.size() == 1)
      return setText(result, L"C:\\MX\\" + text(args[0])), S_OK;
    if (name == L"Run" && args.size() == 2) {
      if (text(args[0]) != L"input") return raise(info, L"unknown verb");
      runInput(text(args[1]));
      return S_OK;
    }
    if (name == L"ModelExists" && args.size() == 1)
      return setBool(result, models().count(text(args[0])) > 0), S_OK;
    if (name == L"StringExists" && args.size() == 2)
      return setBool(result, findString(text(args[0]), text(args[1])) != nullptr), S_OK;
    return DISP_E_MEMBERNOTFOUND;
  }
};

// MX's current project, one for the machine: a test puts another folder
// through any project object, and every project object answers with it.
std::wstring& currentProject() {
  static std::wstring folder = L"C:\\Projects\\Road";
  return folder;
}

class Project final : public Dispatch {
 public:
  Project() : Dispatch(L"mxproject") {}
  HRESULT member(const std::wstring& name, WORD flags, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO*) override {
    if (name != L"ProjectFolder") return DISP_E_MEMBERNOTFOUND;
    if (flags & DISPATCH_PROPERTYPUT) return currentProject() = text(args[0]), S_OK;
    return setText(result, currentProject()), S_OK;
  }
};

class DataAccess final : public Dispatch {
 public:
  DataAccess() : Dispatch(L"mxdata") {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO*) override {
    VARIANT v;
    VariantInit(&v);
    if (name == L"StringInfo" && args.size() == 3) {
      const auto* s = findString(text(args[0]), text(args[1]));
      setInt(&v, s ? static_cast<long>(s->size()) : 0);
      assign(args[2], v);
      return setInt(result, s ? 0 : 1), S_OK;
    }
    if (name == L"StringPoint" && args.size() == 4) {
      const auto* s = findString(text(args[0]), text(args[1]));
      const long n = static_cast<long>(number(args[2]));
      if (!s || n < 1 || n > static_cast<long>(s->size())) return setInt(result, 1), S_OK;
      // Numbers 1-3: x, y, z; number 5: the chainage along the string in plan.
      std::vector<double> record(16, 0.0);
      const Point& p = (*s)[n - 1];
      double chainage = 0;
      for (long k = 1; k < n; ++k)
        chainage += std::hypot((*s)[k].x - (*s)[k - 1].x, (*s)[k].y - (*s)[k - 1].y);
      record[0] = p.x;
      record[1] = p.y;
      record[2] = p.z;
      record[4] = chainage;
      assignNumbers(args[3], record);
      lastLabel_ = text(args[1]);
      return setInt(result, 0), S_OK;
    }
    if (name == L"PointText" && args.size() == 1)
      return setText(result, number(args[0]) == 1 ? lastLabel_ : L""), S_OK;
    if ((name == L"NextLabel" || name == L"LabelCount") && args.size() == 3) {
      auto m = models().find(text(args[0]));
      if (m == models().end()) return setInt(result, 1), S_OK;
      const std::wstring prefix = text(args[1]);
      long count = 0;
      for (const auto& [label, points] : m->second) count += label.rfind(prefix, 0) == 0;
      if (name == L"LabelCount") {
        setInt(&v, count);
      } else {
        wchar_t label[8];
        std::swprintf(label, 8, L"%ls%0*ld", prefix.c_str(), static_cast<int>(4 - prefix.size()),
                      count + 1);
        setText(&v, label);
      }
      assign(args[2], v);
      VariantClear(&v);
      return setInt(result, 0), S_OK;
    }
    if (name == L"Parameter" && args.size() == 3) {
      const bool known = text(args[0]) == L"units" && number(args[1]) == 1;
      setText(&v, known ? L"metres" : L"");
      assign(args[2], v);
      VariantClear(&v);
      return setInt(result, known ? 1 : 0), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  std::wstring lastLabel_;
};

class StringObject final : public Dispatch {
 public:
  StringObject(std::wstring label, std::vector<Point> points)
      : Dispatch(L"string"), label_(std::move(label)), points_(std::move(points)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>&, VARIANT* result,
                 EXCEPINFO*) override {
    if (name == L"Name") return setText(result, label_), S_OK;
    std::vector<double> values;
    if (name == L"GetPointData") {
      for (const auto& p : points_) values.insert(values.end(), {p.x, p.y, p.z});
    } else if (name == L"Discontinuities") {
      for (const auto& p : points_) values.push_back(p.breakAfter ? 1 : 0);
    } else {
      return DISP_E_MEMBERNOTFOUND;
    }
    VARIANT holder;
    VariantInit(&holder);
    VARIANT ref;
    ref.vt = VT_BYREF | VT_VARIANT;
    ref.pvarVal = &holder;
    assignNumbers(&ref, values);
    *result = holder;
    return S_OK;
  }
  std::wstring label_;
  std::vector<Point> points_;
};

class Strings final : public Dispatch {
 public:
  explicit Strings(Model m) : Dispatch(L"strings"), m_(std::move(m)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Count") return setInt(result, static_cast<long>(m_.size())), S_OK;
    if (name == L"Item" && args.size() == 1) {
      long i = static_cast<long>(number(args[0]));
      if (i < 1 || i > static_cast<long>(m_.size())) return raise(info, L"Subscript out of range");
      auto it = std::next(m_.begin(), i - 1);
      return setObject(result, new StringObject(it->first, it->second)), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  Model m_;
};

class ModelObject final : public Dispatch {
 public:
  explicit ModelObject(Model m) : Dispatch(L"model"), m_(std::move(m)) {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Strings") return setObject(result, new Strings(m_)), S_OK;
    if (name == L"String" && args.size() == 1) {
      auto it = m_.find(text(args[0]));
      if (it == m_.end()) return raise(info, L"String not found");
      return setObject(result, new StringObject(it->first, it->second)), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
  Model m_;
};

class Library final : public Dispatch {
 public:
  Library() : Dispatch(L"mxlib") {}
  HRESULT member(const std::wstring& name, WORD, std::vector<VARIANT*>& args, VARIANT* result,
                 EXCEPINFO* info) override {
    if (name == L"Model" && args.size() == 1) {
      auto it = models().find(text(args[0]));
      if (it == models().end()) return raise(info, L"Model not found");
      return setObject(result, new ModelObject(it->second)), S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
};

}  // namespace

IDispatch* createMxObject(Role role) {
  switch (role) {
    case Role::MxConfiguration:
      return new Configuration;
    case Role::MxProject:
      return new Project;
    case Role::MxDataAccess:
      return new DataAccess;
    default:
      return new Library;
  }
}

}  // namespace fake
