#!/usr/bin/env python3
# Writes the smallest .xls Excel opens: a compound file holding one stream,
# "Workbook", of BIFF8 records. Its sheet "Adatok" holds 12.5 in A1 and the
# shared text "árok" in B2. "check" fails unless BOOK holds just that.
# Usage: old_xls_book.py [check] BOOK
import os, struct, sys
def rec(kind, data):
    return struct.pack('<HH', kind, len(data)) + data
def bof(kind):
    return rec(0x0809, struct.pack('<HHHHII', 0x0600, kind, 0x0DBB, 0x07CC, 0, 0x06))
xfs = b''.join(rec(0x00E0, struct.pack('<HHH', 0, 0, 0xFFF5 if k < 15 else 0x0001) + bytes(14))
               for k in range(16))
name = 'Adatok'.encode('latin-1')
def globals_(sheet_at):
    return (bof(0x0005) + rec(0x0042, struct.pack('<H', 1200)) + xfs +
            rec(0x0085, struct.pack('<IBBBB', sheet_at, 0, 0, len(name), 0) + name) +
            rec(0x00FC, struct.pack('<IIHB', 1, 1, 4, 1) + '\u00e1rok'.encode('utf-16-le')) +
            rec(0x000A, b''))
sheet = (bof(0x0010) + rec(0x0200, struct.pack('<IIHHH', 0, 2, 0, 2, 0)) +
         rec(0x0203, struct.pack('<HHHd', 0, 0, 15, 12.5)) +
         rec(0x00FD, struct.pack('<HHHI', 1, 1, 15, 0)) + rec(0x000A, b''))
stream = globals_(len(globals_(0))) + sheet
# Streams under 4096 bytes would go to the mini stream: pad past it.
stream += bytes(4096 - len(stream)) if len(stream) < 4096 else b''
sectors = (len(stream) + 511) // 512
END, FREE, NONE = 0xFFFFFFFE, 0xFFFFFFFF, 0xFFFFFFFF
header = (b'\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1' + bytes(16) +
          struct.pack('<HHHHH', 0x3E, 3, 0xFFFE, 9, 6) + bytes(6) +
          struct.pack('<IIIIIIIII', 0, 1, 1, 0, 4096, END, 0, END, 0) +
          struct.pack('<I', 0) + struct.pack('<I', FREE) * 108)
fat = [0xFFFFFFFD, END] + [3 + k for k in range(sectors - 1)] + [END]
fat += [FREE] * (128 - len(fat))
def entry(label, kind, child, start, size):
    n = label.encode('utf-16-le') + b'\0\0' if label else b''
    return (n.ljust(64, b'\0') + struct.pack('<HBBIII', len(n), kind, 1, NONE, NONE, child) +
            bytes(16 + 4 + 16) + struct.pack('<IQ', start, size))
directory = (entry('Root Entry', 5, 1, END, 0) + entry('Workbook', 2, NONE, 2, len(stream)) +
             entry('', 0, NONE, 0, 0) * 2)
book = header + struct.pack('<128I', *fat) + directory + stream.ljust(sectors * 512, b'\0')
if sys.argv[1] == 'check':
    with open(sys.argv[2], 'rb') as f:
        assert f.read() == book, 'the book changed'
    print('unchanged')
    sys.exit(0)
os.makedirs(os.path.dirname(sys.argv[1]), exist_ok=True)
with open(sys.argv[1], 'wb') as f:
    f.write(book)
