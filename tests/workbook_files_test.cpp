// Workbooks read and written as files, where no Excel runs: a round trip of
// xlput and xlget through a workbook that another program (Python's openpyxl)
// made and then reads back, with every part we did not change kept as it was
// stored; and the failures a bad workbook, sheet, cell or value get.
#ifdef KORVANE_WORKBOOK_FILES

#include "hosts/excel/workbook/workbook_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/excel/workbook/cell_reference.h"
#include "hosts/excel/workbook/typed_entry.h"
#include "support/process.h"
#include "support/project.h"

using namespace korvane;
using hosts::workbook::TypedEntry;

namespace {

// Makes params.xlsx, or checks it after the compile, as openpyxl sees it; the
// zip entries' checksums and stored sizes are kept in entries.txt between the
// two.
const char* const kPython = R"py(
import re, sys, zipfile, openpyxl
from openpyxl.styles import Font
book = sys.argv[2]
def entries():
    with zipfile.ZipFile(book) as z:
        return {i.filename: (i.CRC, i.compress_size, i.compress_type) for i in z.infolist()}
def excel_like(book):
    # openpyxl writes texts inline; Excel keeps them in a shared string table.
    with zipfile.ZipFile(book) as z:
        parts = {i.filename: z.read(i) for i in z.infolist()}
    strings = []
    def shared(m):
        strings.append(m.group(3))
        return '<c r="%s"%s t="s"><v>%d</v></c>' % (m.group(1), m.group(2), len(strings) - 1)
    for name in parts:
        if name.startswith('xl/worksheets/'):
            parts[name] = re.sub(r'<c r="(\w+)"((?: s="\d+")?) t="inlineStr"><is><t>([^<]*)</t></is></c>',
                                 shared, parts[name].decode()).encode()
    sst = '<sst xmlns="%s" count="%d" uniqueCount="%d">' % (MAIN, len(strings), len(strings))
    parts['xl/sharedStrings.xml'] = (XML + sst + ''.join('<si><t>%s</t></si>' % t for t in strings) + '</sst>').encode()
    rels = 'xl/_rels/workbook.xml.rels'
    parts[rels] = parts[rels].replace(b'</Relationships>',
        b'<Relationship Type="%s/sharedStrings" Target="sharedStrings.xml" Id="rIdS"/></Relationships>' % REL)
    parts['[Content_Types].xml'] = parts['[Content_Types].xml'].replace(b'</Types>',
        b'<Override PartName="/xl/sharedStrings.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml"/></Types>')
    # and it lists the formulas in its calculation chain
    parts['xl/calcChain.xml'] = (XML + '<calcChain xmlns="%s"><c r="C3" i="1"/><c r="D3"/></calcChain>' % MAIN).encode()
    parts[rels] = parts[rels].replace(b'</Relationships>',
        b'<Relationship Type="%s/calcChain" Target="calcChain.xml" Id="rIdC"/></Relationships>' % REL)
    parts['[Content_Types].xml'] = parts['[Content_Types].xml'].replace(b'</Types>',
        b'<Override PartName="/xl/calcChain.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml"/></Types>')
    with zipfile.ZipFile(book, 'w', zipfile.ZIP_DEFLATED) as z:
        for name, data in parts.items():
            z.writestr(name, data)
MAIN = 'http://schemas.openxmlformats.org/spreadsheetml/2006/main'
REL = b'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
XML = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>'
if sys.argv[1] == 'make':
    wb = openpyxl.Workbook()
    p = wb.active
    p.title = 'Params'
    p.append(['Name', 'Value'])
    p.append(['width', 3.5])
    p.append(['label', '\u00e1rok', '=B2*2', '=B2+1'])
    r = wb.create_sheet('Results')
    r['A1'] = 'Result'
    r['A1'].font = Font(bold=True)
    wb.save(book)
    excel_like(book)
    open(sys.argv[3], 'w').write(repr(entries()))
    sys.exit(0)
before = eval(open(sys.argv[3]).read())
after = entries()
changed = sorted(n for n in after if before.get(n) != after[n])
assert changed == ['xl/calcChain.xml', 'xl/sharedStrings.xml', 'xl/worksheets/sheet1.xml',
                   'xl/worksheets/sheet2.xml'], changed
with zipfile.ZipFile(book) as z:
    chain = z.read('xl/calcChain.xml').decode()
assert '<c r="D3" i="1"/></calcChain>' in chain and 'C3' not in chain, chain
wb = openpyxl.load_workbook(book)
r = wb['Results']
assert r['A2'].value == 7, repr(r['A2'].value)
assert r['B2'].value == 'sz\u00e9less\u00e9g', repr(r['B2'].value)
assert r['C2'].value == '=Params!B2*2', repr(r['C2'].value)
assert r['A3'].value == '0012', repr(r['A3'].value)
assert r['A1'].value == 'Result' and r['A1'].font.b, 'A1 changed'
p = wb['Params']
assert [c.value for c in p[3]] == ['label', '\u00e1rok', 42, '=B2+1'], [c.value for c in p[3]]
print('read back')
)py";

struct WorkbookFiles : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
  std::unique_ptr<hosts::ExcelHost> excel = hosts::makeWorkbookFiles();

  void SetUp() override { c.ctx.excel = excel.get(); }
  bool compile(const std::string& text) {
    project.write("q.ipf", text);
    return c.compile("q.ipf");
  }
  std::string failure() const { return c.failure(); }
  // Runs the Python side; its output goes to python.txt.
  int python(const std::string& step) {
    project.write("check.py", kPython);
    test::ProgramRun run;
    run.argv = {"/usr/bin/python3", project.path("check.py"), step,
                project.path("excel/params.xlsx"), project.path("entries.txt")};
    run.out = run.err = project.path("python.txt");
    return test::runProgram(run);
  }
};

TEST_F(WorkbookFiles, WhatXlputWritesXlgetAndOpenpyxlReadBack) {
  project.write("excel/.keep", "");
  ASSERT_EQ(python("make"), 0) << project.read("python.txt");
  ASSERT_TRUE(
      compile("#w=xlget(params.xlsx,B2,Params)\r\n"
              "#l=getname(params.xlsx,LABEL,1,params)\r\n"
              "#f=xlget(params.xlsx,Params!C3)\r\n"
              "xlput,params.xlsx,Results,2,1,|w*2|\r\n"
              "xlput,params.xlsx,Results,2,2,\"sz\xE9less\xE9g\"\r\n"
              "xlput,params.xlsx,Results,2,3,\"=Params!B2*2\"\r\n"
              "xlput,params.xlsx,Results,3,1,\"'0012\"\r\n"
              "xlput,params.xlsx,Params,3,3,42\r\n"
              "#back=xlget(params.xlsx,a2,Results)\r\n"
              "#text=xlget(params.xlsx,Results!$B$2:C9)\r\n"
              "#lead=xlget(params.xlsx,A3,Results)\r\n"
              "#formula=xlget(params.xlsx,C2,Results)\r\n"))
      << failure();
  EXPECT_EQ(c.var("w"), "3.5");
  EXPECT_EQ(c.var("l"), "\xE1rok");  // "árok" in the code page
  EXPECT_EQ(c.var("f"), "");         // no program has calculated the formula yet
  EXPECT_EQ(c.var("back"), "7");
  EXPECT_EQ(c.var("text"), "sz\xE9less\xE9g");
  EXPECT_EQ(c.var("lead"), "0012");
  EXPECT_EQ(c.var("formula"), "");
  EXPECT_EQ(python("check"), 0) << project.read("python.txt");
  EXPECT_FALSE(project.exists("excel/params.xlsx.korvane-tmp"));
}

TEST_F(WorkbookFiles, BadWorkbooksSheetsCellsAndValuesEndTheRunAndChangeNothing) {
  project.write("excel/.keep", "");
  ASSERT_EQ(python("make"), 0) << project.read("python.txt");
  project.write("excel/notes.xlsx", "not a workbook\r\n");
  project.write("excel/broken.xlsx", "PK\x03\x04 and then nothing");
  const std::string original = project.read("excel/params.xlsx");
  const std::pair<const char*, const char*> cases[] = {
      {"#v=xlget(notes.xlsx,A1)", "xlbook"},
      {"#v=xlget(broken.xlsx,A1)", "xlbook"},
      {"#v=xlget(params.xlsx,A1,Nothing)", "xlsheet"},
      {"#v=xlget(params.xlsx,B)", "xlcell"},
      {"#v=xlget(params.xlsx,XFE1)", "xlcell"},
      {"xlput,params.xlsx,Nothing,1,1,x", "xlsheet"},
      {"xlput,params.xlsx,Results,0,1,x", "xlcell"},
      {"xlput,params.xlsx,Results,1,16385,x", "xlcell"},
      {"xlput,params.xlsx,Results,1,1,\"=\"", "xlvalue"},
      {"xlput,notes.xlsx,Results,1,1,x", "xlbook"},
  };
  for (const auto& [line, key] : cases) {
    EXPECT_FALSE(compile(std::string(line) + "\r\n")) << line;
    const std::string title = c.ctx.text({"Runtime", key});
    const std::string fixed = title.substr(0, title.find('%'));
    EXPECT_NE(failure().find(fixed), std::string::npos) << line << ": " << failure();
  }
  EXPECT_EQ(project.read("excel/params.xlsx"), original);
}

TEST_F(WorkbookFiles, MacrosNeedExcel) {
  project.write("excel/ditch.xlsx", "");
  EXPECT_FALSE(compile("xlmacro,Book.xlsm!Go,1\r\n"));
  EXPECT_EQ(c.stopMessage(), c.ctx.text({"Messages", "s8"}));
  EXPECT_FALSE(compile("ditch_pips,T\r\nbasexls=ditch.xlsx\r\n"));
  EXPECT_EQ(c.stopMessage(), c.ctx.text({"Messages", "s12"}));
}

// The example project reads its design parameters from excel/design.xlsx and
// writes MAST's plan length (6 points 20 m apart: 100) into it.
TEST(ExampleWorkbook, TheExampleReadsItsParametersAndWritesItsResult) {
  test::TempProject project;
  std::filesystem::copy(test::sourceDir() + "/examples/road", project.folder(),
                        std::filesystem::copy_options::recursive);
  const std::string home = "KORVANE_HOME='" + test::sourceDir() + "/data'";
  ASSERT_EQ(test::runKorvane(project.folder(), "models import survey/ground.genio GROUND", home), 0)
      << project.read("err.txt");
  ASSERT_EQ(test::runKorvane(project.folder(),
                             "compile 'inputs/road.ipf [main]' 'inputs/road.ipf [excel]'", home),
            0)
      << project.read("err.txt");
  const std::string out = project.read("out.txt");
  EXPECT_NE(out.find("   Design speed 60 km/h, lane 3.25 m, edge offset 3.5 m\r\n"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("   MAST plan length 100 written to the sheet Results\r\n"), std::string::npos)
      << out;
}

TEST(TypedEntries, StoredAsExcelStoresWhatIsTypedIntoACell) {
  using K = TypedEntry::Kind;
  const std::tuple<const char*, K, const char*, double> cases[] = {
      {"", K::Empty, "", 0},           {"12.5", K::Number, "", 12.5},
      {" -3e2 ", K::Number, "", -300}, {".5", K::Number, "", 0.5},
      {"12,5", K::Text, "12,5", 0},    {"1.2.3", K::Text, "1.2.3", 0},
      {"'42", K::Text, "42", 0},       {"=SUM(A1:A3)", K::Formula, "SUM(A1:A3)", 0},
      {"e5", K::Text, "e5", 0},        {"-", K::Text, "-", 0},
  };
  for (const auto& [typed, kind, text, number] : cases) {
    const TypedEntry e = hosts::workbook::typedEntry(typed);
    EXPECT_EQ(e.kind, kind) << typed;
    if (kind == K::Number)
      EXPECT_EQ(e.number, number) << typed;
    else
      EXPECT_EQ(e.text, text) << typed;
  }
  EXPECT_THROW(hosts::workbook::typedEntry(std::string(32768, 'x')), hosts::WorkbookError);
  EXPECT_THROW(hosts::workbook::typedEntry("a\x01"), hosts::WorkbookError);
}

TEST(CellReferences, AsAUserWritesThem) {
  using hosts::workbook::parseReference;
  auto at = [](const char* text) {
    auto r = parseReference(text);
    return r ? r->sheet + "!" + std::to_string(r->cell.row) + "," + std::to_string(r->cell.column)
             : std::string("none");
  };
  EXPECT_EQ(at("B3"), "!3,2");
  EXPECT_EQ(at("$aa$10"), "!10,27");
  EXPECT_EQ(at("XFD1048576"), "!1048576,16384");
  EXPECT_EQ(at("C2:D9"), "!2,3");
  EXPECT_EQ(at("'Munka 1'!B2"), "Munka 1!2,2");
  for (const char* bad : {"", "B", "3", "B0", "XFE1", "A1048577", "B3:", "B3x", "!B3"})
    EXPECT_EQ(at(bad), "none") << bad;
  EXPECT_EQ(hosts::workbook::addressText({12, 28}), "AB12");
}

}  // namespace

#endif
