#include "longsection/generated_input.h"

#include "base/conversions.h"
#include "base/fs.h"
#include "base/texts/longsection_texts.h"

namespace korvane::longsection {

namespace {

// The keyword text of the insert: name=value pairs, one a line, each line but
// the last ending with a comma so that the list goes on.
class Assignments {
 public:
  void text(const std::string& name, const std::string& value) {
    pairs_.push_back(name + "=\"" + value + "\"");
  }
  void number(const std::string& name, double value) {
    pairs_.push_back(name + "=" + conv::CStr(value));
  }
  std::string lines() const {
    std::string out;
    for (std::size_t i = 0; i < pairs_.size(); ++i)
      out += pairs_[i] + (i + 1 < pairs_.size() ? ",\r\n" : "\r\n");
    return out;
  }

 private:
  std::vector<std::string> pairs_;
};

}  // namespace

std::string setName(const std::string& panelFile) { return fs::splitName(panelFile).base; }

std::string generatedInput(const Parameters& given, const std::string& set, const Messages& texts) {
  Parameters p = given;
  if (p.sheetSize != "Custom") applySheetSize(p);
  Assignments a;
  a.text("LongsectionSetName", set);
  a.text("ReferenceModelName", p.referenceModel);
  a.text("MasterString", p.masterString);
  a.text("GroundLongsectionString", p.groundString);
  a.text("DesignLongsectionString", p.designString);
  a.number("HorizontalScale", p.horizontalScale);
  a.number("VerticalScale", p.verticalScale);
  a.text("StartChainage", p.startChainage);
  a.text("EndChainage", p.endChainage);
  a.number("ChainageInterval", p.chainageInterval);
  a.number("GradeChangeColumns", p.gradeChangeColumns ? 1 : 0);
  a.text("DatumLevel", p.datumLevel);
  a.number("SheetWidth", p.sheetWidth);
  a.number("SheetHeight", p.sheetHeight);
  a.number("MarginLeft", p.marginLeft);
  a.number("MarginRight", p.marginRight);
  a.number("MarginTop", p.marginTop);
  a.number("MarginBottom", p.marginBottom);
  a.number("TextHeight", p.textHeight);
  a.number("BandHeight", p.bandHeight);
  a.number("BandTitleWidth", p.bandTitleWidth);
  a.text("GroundLineType", p.groundLineType);
  a.text("DesignLineType", p.designLineType);
  a.number("ExtraStringCount", static_cast<double>(p.extras.size()));
  for (std::size_t i = 0; i < p.extras.size(); ++i) {
    const std::string n = std::to_string(i + 1);
    a.text("ExtraString" + n, p.extras[i].label);
    a.text("ExtraLineType" + n, p.extras[i].lineType);
    a.text("ExtraLayer" + n, p.extras[i].layer);
  }
  return "## " + texts.format(texts::longsection::kGeneratedNote, set + kPanelExtension) + "\r\n" +
         "insert," + kMacroName + "\r\n" + a.lines();
}

std::string writeGeneratedInput(const std::string& panelFile, const Parameters& p,
                                const Messages& texts) {
  const fs::NameParts parts = fs::splitName(panelFile);
  const std::string input = fs::join(parts.folder, parts.base + ".ipf");
  return fs::writeFileAtomic(input, generatedInput(p, parts.base, texts)) ? input : std::string();
}

std::string drawingParameters(const Parameters& p, const Extent& extent) {
  std::string head = "Korvane long section: sheets " + std::to_string(extent.sheets) + ", " +
                     conv::CStr(extent.start) + " to " + conv::CStr(extent.end);
  head.resize(118, ' ');
  std::string out = head + "\r\n";
  out += static_cast<char>(static_cast<unsigned char>(extent.sheets));
  out += "\r\nHorizontalScale=" + conv::CStr(p.horizontalScale) +
         "\r\nVerticalScale=" + conv::CStr(p.verticalScale) +
         "\r\nSheetWidth=" + conv::CStr(p.sheetWidth) +
         "\r\nSheetHeight=" + conv::CStr(p.sheetHeight) + "\r\n";
  return out;
}

bool writeDrawingParameterFile(const std::string& projectFolder, const std::string& set,
                               const Parameters& p, const Extent& extent) {
  return fs::writeFileAtomic(fs::join(projectFolder, set + ".dpf"), drawingParameters(p, extent));
}

}  // namespace korvane::longsection
