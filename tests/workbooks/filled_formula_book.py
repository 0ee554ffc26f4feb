#!/usr/bin/env python3
# Writes book.xlsx as Excel would store it: A1:A3 hold 1, 2, 3; B1:B3 the
# formula "=A1*2+$A$1" filled down (stored once, with the values Excel
# calculated: 3, 5, 7); C1 a shared text with a line break, C2 an inline text
# with a tab, C3 a formula's text result, D1 a text that holds "_x0041_" as
# it stands. "check" then asserts what openpyxl sees after our writes.
# Usage: filled_formula_book.py make|check BOOK
import sys, zipfile
book = sys.argv[2]
MAIN = 'http://schemas.openxmlformats.org/spreadsheetml/2006/main'
R = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
P = 'http://schemas.openxmlformats.org/package/2006/relationships'
XML = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
CT = 'application/vnd.openxmlformats-officedocument.spreadsheetml.'
if sys.argv[1] == 'make':
    parts = {
        '[Content_Types].xml': '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/>'
            '<Override PartName="/xl/workbook.xml" ContentType="' + CT + 'sheet.main+xml"/>'
            '<Override PartName="/xl/worksheets/sheet1.xml" ContentType="' + CT + 'worksheet+xml"/>'
            '<Override PartName="/xl/sharedStrings.xml" ContentType="' + CT + 'sharedStrings+xml"/></Types>',
        '_rels/.rels': '<Relationships xmlns="' + P + '"><Relationship Id="rId1" Type="' + R +
            '/officeDocument" Target="xl/workbook.xml"/></Relationships>',
        'xl/workbook.xml': '<workbook xmlns="' + MAIN + '" xmlns:r="' + R + '"><sheets>'
            '<sheet name="Data" sheetId="1" r:id="rId1"/></sheets></workbook>',
        'xl/_rels/workbook.xml.rels': '<Relationships xmlns="' + P + '">'
            '<Relationship Id="rId1" Type="' + R + '/worksheet" Target="worksheets/sheet1.xml"/>'
            '<Relationship Id="rId2" Type="' + R + '/sharedStrings" Target="sharedStrings.xml"/></Relationships>',
        'xl/sharedStrings.xml': '<sst xmlns="' + MAIN + '" count="2" uniqueCount="2">'
            '<si><t>first_x000D__x000A_second</t></si><si><t>_x005F_x0041_ as typed</t></si></sst>',
        'xl/worksheets/sheet1.xml': '<worksheet xmlns="' + MAIN + '"><dimension ref="A1:D3"/><sheetData>'
            '<row r="1"><c r="A1"><v>1</v></c><c r="B1"><f t="shared" ref="B1:B3" si="0">A1*2+$A$1</f><v>3</v></c>'
            '<c r="C1" t="s"><v>0</v></c><c r="D1" t="s"><v>1</v></c></row>'
            '<row r="2"><c r="A2"><v>2</v></c><c r="B2"><f t="shared" si="0"/><v>5</v></c>'
            '<c r="C2" t="inlineStr"><is><t>tab_x0009_end</t></is></c></row>'
            '<row r="3"><c r="A3"><v>3</v></c><c r="B3"><f t="shared" si="0"/><v>7</v></c>'
            '<c r="C3" t="str"><f>"x"&amp;CHAR(13)</f><v>x_x000D_</v></c></row>'
            '</sheetData></worksheet>',
    }
    with zipfile.ZipFile(book, 'w', zipfile.ZIP_DEFLATED) as z:
        for name, data in parts.items():
            z.writestr(name, XML + data)
    sys.exit(0)
import openpyxl
ws = openpyxl.load_workbook(book)['Data']
got = [ws[a].value for a in ('B1', 'B2', 'B3')]
assert got == [10, '=A2*2+$A$1', '=A3*2+$A$1'], got
with zipfile.ZipFile(book) as z:
    sst = z.read('xl/sharedStrings.xml').decode()
assert '<t>cr_x000D_here _x005F_x0042_</t>' in sst, sst
print('read back')
