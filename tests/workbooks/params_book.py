#!/usr/bin/env python3
# "make": writes BOOK as Excel stores it (sheets Params and Results, texts in
# the shared string table, formulas in the calculation chain); "check": asserts
# what openpyxl reads after Korvane's xlput, and that only the parts written
# changed (the zip entries' checksums and sizes are kept in ENTRIES between the
# two); "same": asserts that BOOK is byte for byte as "make" left it.
# Usage: params_book.py make|check|same BOOK ENTRIES
import os, re, sys, zipfile, openpyxl
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
    os.makedirs(os.path.dirname(book), exist_ok=True)
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
    open(sys.argv[3] + '.book', 'wb').write(open(book, 'rb').read())
    sys.exit(0)
if sys.argv[1] == 'same':
    assert open(book, 'rb').read() == open(sys.argv[3] + '.book', 'rb').read(), 'the book changed'
    print('unchanged')
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
