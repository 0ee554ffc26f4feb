#include "hosts/automation/windows/com_object.h"

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <chrono>
#include <map>
#include <thread>

#include "hosts/automation/windows/com_variant.h"

namespace korvane::hosts::windows {
namespace {

// The server is busy (a dialog, a calculation): worth asking again.
bool busy(HRESULT hr) { return hr == RPC_E_CALL_REJECTED || hr == RPC_E_SERVERCALL_RETRYLATER; }

// A reference VARIANT to the value held in `value`, typed as Basic passes a
// variable of that type by reference.
VARIANT referenceTo(VARIANT& value) {
  VARIANT ref;
  VariantInit(&ref);
  switch (value.vt) {
    case VT_BSTR:
      ref.vt = VT_BYREF | VT_BSTR;
      ref.pbstrVal = &value.bstrVal;
      break;
    case VT_I4:
      ref.vt = VT_BYREF | VT_I4;
      ref.plVal = &value.lVal;
      break;
    case VT_R8:
      ref.vt = VT_BYREF | VT_R8;
      ref.pdblVal = &value.dblVal;
      break;
    case VT_BOOL:
      ref.vt = VT_BYREF | VT_BOOL;
      ref.pboolVal = &value.boolVal;
      break;
    default:
      ref.vt = VT_BYREF | VT_VARIANT;
      ref.pvarVal = &value;
      break;
  }
  return ref;
}

}  // namespace

AutoObject wrapDispatch(IDispatch* dispatch, const std::shared_ptr<ComApartment>& apartment,
                        const std::string& name) {
  if (!dispatch) return nullptr;
  return std::make_shared<ComObject>(dispatch, apartment, name);
}

struct ComObject::Core {
  IDispatch* dispatch;
  std::shared_ptr<ComApartment> apartment;
  std::string name;
  std::map<std::string, DISPID> ids;

  DISPID memberId(const std::string& member);
  AutoValue invoke(const std::string& member, unsigned short kind, std::vector<AutoValue>& args,
                   bool byReference);
};

ComObject::ComObject(IDispatch* dispatch, std::shared_ptr<ComApartment> apartment, std::string name)
    : core_(std::make_shared<Core>(Core{dispatch, std::move(apartment), std::move(name), {}})) {}

ComObject::~ComObject() {
  auto core = core_;
  core->apartment->post([core] { core->dispatch->Release(); });
}

const std::string& ComObject::name() const { return core_->name; }
IDispatch* ComObject::dispatch() const { return core_->dispatch; }

DISPID ComObject::Core::memberId(const std::string& member) {
  auto it = ids.find(member);
  if (it != ids.end()) return it->second;
  std::wstring wide = wideText(member);
  LPOLESTR names[] = {wide.data()};
  DISPID id = 0;
  HRESULT hr = dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) throw callError(hr, name + "." + member);
  ids[member] = id;
  return id;
}

AutoValue ComObject::Core::invoke(const std::string& member, unsigned short kind,
                                  std::vector<AutoValue>& args, bool byReference) {
  const std::string subject = name + "." + member;
  const DISPID id = member.empty() ? DISPID_VALUE : memberId(member);
  const std::size_t n = args.size();
  std::vector<VARIANT> values(n), passed(n);
  // Invoke takes the arguments last first.
  for (std::size_t k = 0; k < n; ++k) toVariant(args[k], values[n - 1 - k]);
  for (std::size_t k = 0; k < n; ++k) passed[k] = byReference ? referenceTo(values[k]) : values[k];
  DISPPARAMS params{passed.data(), nullptr, static_cast<UINT>(n), 0};
  DISPID putId = DISPID_PROPERTYPUT;
  if (kind == DISPATCH_PROPERTYPUT) {
    params.rgdispidNamedArgs = &putId;
    params.cNamedArgs = 1;
  }
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO info{};
  UINT badArg = 0;
  HRESULT hr;
  const auto deadline = std::chrono::steady_clock::now() + ComApartment::timeLimit();
  for (;;) {
    hr = dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &params,
                          kind == DISPATCH_PROPERTYPUT ? nullptr : &result, &info, &badArg);
    if (!busy(hr) || std::chrono::steady_clock::now() > deadline) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  AutoValue out;
  if (SUCCEEDED(hr)) {
    out = fromVariant(result, apartment, subject);
    if (byReference)
      for (std::size_t k = 0; k < n; ++k)
        args[k] = fromVariant(values[n - 1 - k], apartment, subject);
  }
  VariantClear(&result);
  for (auto& v : values) VariantClear(&v);
  if (FAILED(hr)) throw callError(hr, subject, &info);
  return out;
}

AutoValue ComObject::run(const std::string& member, unsigned short kind,
                         std::vector<AutoValue>& args, CallOptions options) {
  // The call's data is shared with the task, which may outlive this frame.
  struct Call {
    std::vector<AutoValue> args;
    AutoValue out;
  };
  auto data = std::make_shared<Call>(Call{args, {}});
  auto core = core_;
  core->apartment->run(
      [core, data, member, kind, options] {
        data->out = core->invoke(member, kind, data->args, options.byReference);
      },
      core->name + "." + member, options.untilDone);
  if (options.byReference) args = data->args;
  return data->out;
}

AutoValue ComObject::invoke(const std::string& method, std::vector<AutoValue>& args,
                            CallOptions options) {
  return run(method, DISPATCH_METHOD | DISPATCH_PROPERTYGET, args, options);
}

AutoValue ComObject::call(const std::string& method, const std::vector<AutoValue>& args) {
  std::vector<AutoValue> copy = args;
  return run(method, DISPATCH_METHOD | DISPATCH_PROPERTYGET, copy, {});
}

AutoValue ComObject::get(const std::string& property) {
  std::vector<AutoValue> none;
  // Both flags, as Basic asks for a property: some objects answer only so.
  return run(property, DISPATCH_PROPERTYGET | DISPATCH_METHOD, none, {});
}

void ComObject::set(const std::string& property, const AutoValue& value) {
  std::vector<AutoValue> args{value};
  run(property, DISPATCH_PROPERTYPUT, args, {});
}

std::vector<AutoValue> ComObject::elements() {
  auto core = core_;
  auto out = std::make_shared<std::vector<AutoValue>>();
  const std::string subject = core->name + "._NewEnum";
  core->apartment->run(
      [core, out, subject] {
        VARIANT result;
        VariantInit(&result);
        DISPPARAMS none{nullptr, nullptr, 0, 0};
        EXCEPINFO info{};
        HRESULT hr = core->dispatch->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                                            DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result,
                                            &info, nullptr);
        if (FAILED(hr)) throw callError(hr, subject, &info);
        IEnumVARIANT* items = nullptr;
        IUnknown* unknown = result.vt == VT_UNKNOWN    ? result.punkVal
                            : result.vt == VT_DISPATCH ? result.pdispVal
                                                       : nullptr;
        if (unknown) unknown->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&items));
        VariantClear(&result);
        if (!items) throw callError(E_NOINTERFACE, subject);
        VARIANT item;
        VariantInit(&item);
        ULONG got = 0;
        while (items->Next(1, &item, &got) == S_OK && got == 1) {
          out->push_back(fromVariant(item, core->apartment, core->name + ".Item"));
          VariantClear(&item);
        }
        items->Release();
      },
      subject);
  return *out;
}

}  // namespace korvane::hosts::windows
