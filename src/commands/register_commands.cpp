// The directive table rows of the extended commands and the Excel directives:
// what the compile pass prepares before each, and the call of its operation.
#include <array>

#include "base/conversions.h"
#include "commands/commands.h"
#include "compiler/compile_failure.h"
#include "compiler/language.h"

namespace korvane::commands {
namespace {

using R = DirectiveResult;

R labelmoveRow(DirectiveCall& d) {
  labelmove(d, d.argument(1), d.argument(2));
  return R::Continue;
}
R trimsectionRow(DirectiveCall& d) {
  trimsection(d.context(), d.argument(1));
  return R::Continue;
}
// A reserved word: its keyword text is assigned and nothing is written.
R drawxsectionRow(DirectiveCall&) { return R::Continue; }
R superelevationRow(DirectiveCall& d) {
  superelevation(d, d.argument(1));
  return R::Continue;
}
R earthworkRow(DirectiveCall& d) {
  earthworkToExcel(d.context());
  return R::Continue;
}
R ditchListRow(DirectiveCall& d) {
  ditchList(d.context(), d.argument(1));
  return R::Continue;
}
R ditchPipsRow(DirectiveCall& d) {
  ditchPips(d.context(), d.argument(1));
  return R::Continue;
}

R xlmacroRow(DirectiveCall& d) {
  hosts::ExcelHost* excel = d.context().excelHost();
  if (!excel || !excel->running()) throw StopMessage("s8");
  std::array<std::string, 14> values;
  int count = 0;  // the macro gets the fields the line has, up to its last one
  for (int i = 0; i < 14; ++i) {
    if (!d.argument(i + 1).empty()) count = i + 1;
    values[i] = d.context().evaluate(d.argument(i + 1));
  }
  xlmacro(d.context(), values[0], values.data() + 1, count > 1 ? count - 1 : 0);
  return R::Continue;
}

R xlputRow(DirectiveCall& d) {
  std::array<std::string, 5> v;
  for (int i = 0; i < 5; ++i) v[i] = d.context().evaluate(d.argument(i + 1));
  xlput(d.context(), v[0], v[1], conv::CLng(v[2]), conv::CLng(v[3]), v[4]);
  return R::Continue;
}

// Flush, then the keyword text read, as every extended command begins.
Preparation command(DefaultBlock defaults, std::vector<std::string> assignments = {},
                    bool assignKeywordText = false) {
  Preparation p;
  p.flushFirst = true;
  p.readKeywordText = true;
  p.defaults = defaults;
  p.assignments = std::move(assignments);
  p.assignKeywordText = assignKeywordText;
  return p;
}

}  // namespace

void registerCommands(DirectiveTable& t) {
  using enum DefaultBlock;
  t.add("labelmove", command(WithKeywordText), labelmoveRow);
  t.add("trimsection",
        command(Plain,
                {"mask1=\"????\",mask2=\"????\",mask3=\"????\",mask4=\"????\",",
                 "mask5=\"????\",mask6=\"????\",mask7=\"????\",mask8=\"????\","},
                true),
        trimsectionRow);
  t.add("drawxsection", command(None, {}, true), drawxsectionRow);
  t.add("superelevation", command(WithKeywordText, {"mref=%1,"}), superelevationRow);
  t.add("earthwork->excel", command(WithKeywordText), earthworkRow);
  t.add("ditch_list", command(Plain, {"\xE1xs=\"?\",\xE1xe=\"?\","}, true),  // "áxs", "áxe"
        ditchListRow);
  t.add("ditch_pips", command(WithKeywordText), ditchPipsRow);

  Preparation xlmacroPrep;  // the announcing line comes before the flush
  xlmacroPrep.announce = "s10";
  xlmacroPrep.flushFirst = true;
  t.add("xlmacro", xlmacroPrep, xlmacroRow);
  Preparation flush;
  flush.flushFirst = true;
  t.add("xlput", flush, xlputRow);
}

}  // namespace korvane::commands
