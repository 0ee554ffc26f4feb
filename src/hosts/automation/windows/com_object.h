// An automation object reached over COM: late-bound calls through IDispatch
// (names looked up with GetIDsOfNames, calls made with Invoke) on the COM
// thread, each within the time limit of ComApartment.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/automation.h"
#include "hosts/automation/windows/com_apartment.h"

struct IDispatch;

namespace korvane::hosts::windows {

class ComObject final : public AutomationObject {
 public:
  // Takes over one reference of `dispatch`, which lives in `apartment`.
  // `name` names the object in messages ("AutoCAD.Application.ActiveDocument").
  ComObject(IDispatch* dispatch, std::shared_ptr<ComApartment> apartment, std::string name);
  ~ComObject() override;

  AutoValue call(const std::string& method, const std::vector<AutoValue>& args = {}) override;
  AutoValue get(const std::string& property) override;
  void set(const std::string& property, const AutoValue& value) override;
  AutoValue invoke(const std::string& method, std::vector<AutoValue>& args,
                   CallOptions options) override;
  std::vector<AutoValue> elements() override;

  const std::string& name() const;
  // Runs on the COM thread only.
  IDispatch* dispatch() const;

  // What a call on the COM thread uses. A call that has run over its time
  // limit may still come back after its caller has gone: it holds this.
  struct Core;

 private:
  AutoValue run(const std::string& member, unsigned short kind, std::vector<AutoValue>& args,
                CallOptions options);

  std::shared_ptr<Core> core_;
};

// Wraps an interface pointer got on the COM thread into an object (null for
// null); used there by the automation system.
AutoObject wrapDispatch(IDispatch* dispatch, const std::shared_ptr<ComApartment>& apartment,
                        const std::string& name);

}  // namespace korvane::hosts::windows
