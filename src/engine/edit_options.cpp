// EDIT's minor options, which cut strings of the block's model back:
//   005,3=S,6=k      keep points 1 to k of string S (k past the end keeps all)
//   005,3=S,9=m      delete the points before point m
//   005,3=S,6=k,9=m  keep points m to k
//   006,3=S,6=a,9=b  delete the points between a and b (both kept) and break
//                    the string between them
//   031,3=S          delete string S
// Point numbers are those of the string as the previous records left it.
#include "engine/engine_limits.h"
#include "engine/run_state.h"

namespace korvane::engine {
namespace {

// The string that field 3 names.
StringRow editedString(RunState& run, const Record& r, const Fields& f) {
  const std::string number(r.text.substr(0, 3));
  std::string label = normalLabel(f.raw(3));
  if (label.empty()) throw EngineError(number + " needs a string label in field 3");
  if (label.size() > kLabelWidth) throw EngineError(number + ": labels have at most 4 characters");
  std::optional<StringRow> row = run.store.findString(run.model.id, label);
  if (!row)
    throw EngineError("there is no string " + label + " in model \"" + run.model.name + "\"");
  return *row;
}

// The string cut by `cut`, stored again: its chainages are measured anew.
template <class Cut>
void editPoints(RunState& run, const Record& r, Cut cut) {
  Fields f(r.text);
  const StringRow row = editedString(run, r, f);
  std::optional<long> six = f.integer(6), nine = f.integer(9);
  ModelString s = run.store.load(row);
  const std::size_t before = s.points.size();
  cut(s.points, six, nine);
  run.store.saveString(run.model.id, s);
  run.listing.note("string " + s.header.label + ": " + std::to_string(s.points.size()) + " of " +
                   std::to_string(before) + " points left");
}

void keepPoints(RunState& run, const Record& r) {
  editPoints(run, r, [](std::vector<ModelPoint>& points, auto last, auto first) {
    const long count = static_cast<long>(points.size());
    if (!last && !first)
      throw EngineError("005 needs the last point to keep in field 6 or the first in field 9");
    long from = first.value_or(1), to = last.value_or(count);
    if (from < 1 || to < 1) throw EngineError("005: point numbers start at 1");
    if (to > count) to = count;
    if (from > to)
      throw EngineError("005 would leave no point of the string's " + std::to_string(count) +
                        " (keep " + std::to_string(from) + " to " + std::to_string(to) +
                        "); delete the string with 031");
    points.erase(points.begin() + to, points.end());
    points.erase(points.begin(), points.begin() + (from - 1));
    points.back().gapAfter = false;  // nothing follows the last point
  });
}

void cutBetween(RunState& run, const Record& r) {
  editPoints(run, r, [](std::vector<ModelPoint>& points, auto a, auto b) {
    if (!a || !b) throw EngineError("006 needs the points a and b in fields 6 and 9");
    const long count = static_cast<long>(points.size());
    if (*a < 1 || *b <= *a || *b > count)
      throw EngineError("006 needs points 1 <= a < b <= " + std::to_string(count) +
                        " in fields 6 and 9 (got " + std::to_string(*a) + " and " +
                        std::to_string(*b) + ")");
    points.erase(points.begin() + *a, points.begin() + (*b - 1));
    points[static_cast<std::size_t>(*a - 1)].gapAfter = true;
  });
}

void deleteString(RunState& run, const Record& r) {
  const StringRow row = editedString(run, r, Fields(r.text));
  run.store.deleteString(row.id);
  run.listing.note("string " + row.header.label + " deleted");
}

// An import has no EDIT block: it refuses EDIT and so all of these.
constexpr RecordRow kEditOptionsRows[] = {
    {"005", Block::Edit, InImport::Refused, keepPoints},
    {"006", Block::Edit, InImport::Refused, cutBetween},
    {"031", Block::Edit, InImport::Refused, deleteString},
    {"999", Block::Edit, InImport::Refused, endBlock},
};

}  // namespace

const std::span<const RecordRow> kEditOptions = kEditOptionsRows;

}  // namespace korvane::engine
