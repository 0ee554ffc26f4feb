// GENIO's minor options: the layout of data records (001 FORMAT, 003 ORDR),
// unit records, selection masks (019), a string and its points (080) and
// output of strings (081).
#include <algorithm>

#include "base/text.h"
#include "engine/engine_limits.h"
#include "engine/genio_writer.h"
#include "engine/kept_records.h"
#include "engine/run_state.h"

namespace korvane::engine {
namespace {

void readFormat(RunState& run, const Record& r) { run.format = parseFormatRecord(r.text); }

void readOrder(RunState& run, const Record& r) {
  run.order = parseOrderRecord(genioFields(r.text));
}

void acceptUnits(RunState& run, const Record&) {
  run.listing.note("unit record accepted; units are not converted");
}

void addMask(RunState& run, const Record& r) {
  Fields f = genioFields(r.text);
  std::optional<long> mode = f.integer(4);
  if (mode && *mode != 1 && *mode != -1)
    throw EngineError("019: field 4 must be 1 (include) or -1 (exclude)");
  std::string_view mask = f.raw(2);
  if (text::rtrim(mask).size() > kLabelWidth)
    throw EngineError("019: a mask has at most 4 characters");
  if (run.masks.size() >= kMaxMasks)
    throw EngineError("019: at most " + std::to_string(kMaxMasks) + " masks in one GENIO");
  run.masks.add(mask, mode.value_or(1) == 1);
}

// The string header; its data records follow up to the terminator, read by
// the run loop through run.reader.
void beginString(RunState& run, const Record& r) {
  const Fields fields = genioFields(r.text);
  if (fields.integer(7).value_or(0) % 100 == kTextStringDimension) {
    run.reader = std::make_unique<KeptRecords>(
        run.format.value_or(FortranFormat::mxDefault()), std::string(r.text),
        KeptBlock::Kind::TextString, normalLabel(fields.raw(2)), std::nullopt,
        fields.number(8).value_or(0), fields.number(9).value_or(0));
    run.pointsFrom = run.lineNo + 1;
    run.readingWith = formatRecord(run.format.value_or(FortranFormat::mxDefault()));
    return;
  }
  int defaultDim = run.order ? std::max(run.order->highestDimension(), kMinDimension) : 3;
  if (defaultDim > kMaxDimension) defaultDim = kMaxDimension;
  HeaderRecord h = parseHeaderRecord(fields, defaultDim);
  const FortranFormat format = run.format.value_or(FortranFormat::mxDefault());
  GenioOrder order = run.order ? *run.order : GenioOrder::natural(h.header.dimension);
  // Without an ORDR a record holds as many points as its FORMAT has values for.
  if (!run.order) order.perRecord = std::max(1, format.firstRecordItems() / order.itemsPerPoint());
  run.reader = std::make_unique<PointListReader>(format, order, std::move(h));
  run.readingWith = formatRecord(format) + " and " + order.record();
  run.pointsFrom = run.lineNo + 1;
}

// 090: triangles, as many as field 5 says, one READ of the FORMAT each.
void beginTriangles(RunState& run, const Record& r) {
  const Fields f = genioFields(r.text);
  std::optional<long> count = f.integer(5);
  if (!count || *count < 1) throw EngineError("090 needs the number of triangles in field 5");
  run.reader = std::make_unique<KeptRecords>(run.format.value_or(FortranFormat::mxDefault()),
                                             std::string(r.text), KeptBlock::Kind::Triangles,
                                             normalLabel(f.raw(2)), count, 0, 0);
  run.pointsFrom = run.lineNo + 1;
  run.readingWith = formatRecord(run.format.value_or(FortranFormat::mxDefault()));
}

// 081 writes the strings the masks select; 081,LABEL that string alone.
void writeStrings(RunState& run, const Record& r) {
  Fields f = genioFields(r.text);
  GenioWriter w([&run](const std::string& line) { run.emit(line); }, run.format, run.order);
  w.banner("GENIO output of model " + run.model.name + " (Korvane embedded engine)");
  int written = 0;
  auto write = [&](const StringRow& row) {
    w.write(run.store.load(row));
    ++written;
  };
  if (f.has(2)) {
    if (normalLabel(f.raw(2)).size() > kLabelWidth)
      throw EngineError("081: labels have at most 4 characters");
    std::optional<StringRow> row = run.store.findString(run.model.id, f.raw(2));
    if (row)
      write(*row);
    else
      run.listing.note("no string " + normalLabel(f.raw(2)) + " in model \"" + run.model.name +
                       "\"");
  } else {
    for (const StringRow& row : run.store.strings(run.model.id))
      if (run.masks.selects(row.header.label)) write(row);
  }
  w.end();
  run.listing.note(std::to_string(written) + (written == 1 ? " string" : " strings") + " written" +
                   (run.over.is_open() ? " to " + run.overPath : std::string()));
}

constexpr RecordRow kGenioOptionsRows[] = {
    {"001", Block::Genio, InImport::Taken, readFormat},
    {"003", Block::Genio, InImport::Taken, readOrder},
    {"017", Block::Genio, InImport::Taken, acceptUnits},
    {"018", Block::Genio, InImport::Taken, acceptUnits},
    {"019", Block::Genio, InImport::Taken, addMask},
    {"080", Block::Genio, InImport::Taken, beginString},
    {"081", Block::Genio, InImport::Taken, writeStrings},
    {"090", Block::Genio, InImport::Taken, beginTriangles},
    {"999", Block::Genio, InImport::Taken, endBlock},
};

}  // namespace

const std::span<const RecordRow> kGenioOptions = kGenioOptionsRows;

}  // namespace korvane::engine
