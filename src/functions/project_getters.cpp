// getparam, getlispvar and getacadvar: settings of the current MX project and
// values read from the running AutoCAD.
#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "compiler/extension/model_queries.h"
#include "compiler/extension/trap.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

constexpr int kParameterGroups = 7;

// The value after "CurrentDPF=" in the MX project file: the 256 characters
// after the key, blanks trimmed (line ends and later lines are not cut off, so
// the key is expected at the end of the file). Without the key, the text from
// its 11th character. A project file that cannot be read gives empty text.
std::string currentDpf(CallContext& ctx) {
  const std::string name = queryEngine(ctx, "getparam").project().projectFileName();
  if (name.empty()) return {};
  const std::optional<std::string> data = fs::readFile(fs::join(ctx.mxProjectFolder(), name));
  if (!data) return {};
  constexpr std::string_view kKey = "CurrentDPF=";
  const std::size_t at = data->find(kKey);
  const std::size_t from = at == std::string::npos ? kKey.size() - 1 : at + kKey.size();
  return from < data->size() ? text::trim(std::string_view(*data).substr(from, 256)) : "";
}

// Runs `read` on the running AutoCAD's active document, under the error
// trap: empty text when AutoCAD has no document or refuses a call. No AutoCAD
// at all ends the run with the lookup's message.
template <typename F>
std::string fromActiveDocument(CallContext& ctx, F read) {
  hosts::AutoObject acad = ctx.autocad();
  return trapped([&]() -> std::optional<std::string> {
           hosts::AutoObject doc = acad ? acad->get("ActiveDocument").object() : nullptr;
           return doc ? read(*doc) : std::string();
         })
      .value_or("");
}

std::string fnGetparam(CallContext& ctx) {
  const std::string raw = ctx.arg(1);
  const std::string name = cp::lower(text::trim(raw));
  if (name == "projectdir") return ctx.mxProjectFolder();
  if (name == "mmdname") {
    const std::string file = queryEngine(ctx, "getparam").project().projectFileName();
    return file.substr(0, cp::lower(file).find(".mmd"));
  }
  if (name == "currentdpf") return currentDpf(ctx);
  hosts::MxDataAccess& data = queryEngine(ctx, "getparam").dataAccess();
  for (int group = 1; group <= kParameterGroups; ++group) {
    std::string value;
    ctx.query().status = data.parameter(raw, group, value);
    if (ctx.query().status == hosts::MxStatus::kFound) return value;
  }
  return {};
}

std::string fnGetlispvar(CallContext& ctx) {
  const std::string expression = ctx.arg(1);
  return fromActiveDocument(ctx, [&](hosts::AutomationObject& doc) {
    // AutoCAD evaluates the expression and keeps its value, as text, in USERS5.
    doc.call("SendCommand",
             {"(vl-load-com)(setvar \"USERS5\" (vlax-variant-value (vlax-make-variant " +
              expression + " vlax-vbString)))\r"});
    return doc.call("GetVariable", {"USERS5"}).text();
  });
}

std::string fnGetacadvar(CallContext& ctx) {
  const std::string variable = ctx.arg(1);
  return fromActiveDocument(ctx, [&](hosts::AutomationObject& doc) {
    return doc.call("GetVariable", {variable}).text();
  });
}

constexpr FunctionRow kProjectGettersRows[] = {
    {"getparam", fnGetparam},
    {"getlispvar", fnGetlispvar},
    {"getacadvar", fnGetacadvar},
};

}  // namespace

extern const FunctionRows kProjectGetters = kProjectGettersRows;

}  // namespace korvane
