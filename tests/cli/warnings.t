# Likely mistakes are told on standard error, at their file, line and column,
# with the close name when there is one; what is compiled stays as it is.
folder inputs
folder excel
write excel/design.xlsx
  not read: the name is enough
write road.ipf
  dele,ROAD2
  crea,ROAD2
  geni,ROAD2
  001format(3f12.3)
  003,ordr,4=1,1,2,3
  080,MAST,,7=3
         1.000       0.000     101.200
        10.000       0.000     101.650
  00000000.00000000000.00000000000.000
  999
$ korvane run road.ipf --lang en
stdout:
  [1/1] Entry: <project>/road.ipf
        10 lines compiled, 1 MX run: end of the entry
  Models changed: "ROAD2" (1 string, 2 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run

# A misspelt model or string in a query: warned before the query answers as
# for a missing one. The GENIO requests of getminmax and labelmove make the
# model, empty: the summary names it. labelmove's default block lies in the
# settings file: its warning is placed at the command's line.
write queries.ipf
  #a=getpoint(RAOD2,MAST,1,num,1)
  #b=getchain(RAOD2,MAST,-1)
  #e=getfreelabel(RAOD2,E)
  #c=getminmax(RAOD2,MAST)
  #d=getdist(ROAD2,MAST,1,ROAD2,MSAT,2)
  #f=getpoint(ROAD2,MSAT,1,num,1)
     |a| |b| |c| |d| |e| |f|
  labelmove,RAOX,NEW
  MAST
$ korvane run queries.ipf --lang en
stdout:
  [1/1] Entry: <project>/queries.ipf
        10 lines compiled, 5 MX runs: getchain, queries.ipf:2; getminmax, queries.ipf:4; labelmove, queries.ipf:8 ×3
  Models changed: "NEW" (0 strings, 0 points), "RAOD2" (0 strings, 0 points), "RAOX" (0 strings, 0 points)
  Files written: korvane-engine.lst, tmpinput.txt
  Made empty by a query (the model was not there): "RAOD2", "RAOX"
  Finished: 1 entry run
stderr:
  <project>/queries.ipf, line 1, column 13: There is no model RAOD2 in the store: the query answers as for a missing model. Did you mean ROAD2?
  <project>/queries.ipf, line 2, column 13: There is no model RAOD2 in the store: the query answers as for a missing model. Did you mean ROAD2?
  <project>/queries.ipf, line 3, column 17: There is no model RAOD2 in the store: the query answers as for a missing model. Did you mean ROAD2?
  <project>/queries.ipf, line 4, column 14: There is no model RAOD2 in the store: the query answers as for a missing model. Did you mean ROAD2?
  <project>/queries.ipf, line 5, column 31: Model ROAD2 has no string MSAT: the query answers as for a missing string. Did you mean MAST?
  <project>/queries.ipf, line 6, column 19: Model ROAD2 has no string MSAT: the query answers as for a missing string. Did you mean MAST?
  <project>/queries.ipf, line 8, column 11: There is no model RAOX in the store: the query answers as for a missing model.

# Without an engine no model is stored: a query says nothing of its name.
write none.ipf
  #a=getpoint(RAOD2,MAST,1,num,1)
$ korvane compile none.ipf --engine none --lang en
stdout: (crlf)
     ERROR: point query failed. Model/string:(RAOD2,MAST)

# A workbook that is not there, with the closest file beside it.
write books.ipf
  #g=xlget(nosuch.xlsx,B2)
  #h=getname(design,speed,1)
$ korvane compile books.ipf --lang en
stderr:
  Excel workbook not found: <project>/excel/nosuch.xlsx
  Excel workbook not found: <project>/excel/design.xls
  <project>/books.ipf, line 1, column 10: There is no workbook <project>/excel/nosuch.xlsx: the value is empty.
  <project>/books.ipf, line 2, column 12: There is no workbook <project>/excel/design.xls: the value is empty. Did you mean design.xlsx?

# A name with no value where a number is wanted, inside |...| and in a data
# row; a plain word as an argument is no name.
write names.ipf
  #x1=5
  #len=len(MAST)
     x|format(x0,"00000000.000")|
  insert,row
  repeat=single
     |y0| K1
  end
write row.ipm
  repeat
  crea,|f1|
  endrepeat
$ korvane compile names.ipf --lang en
stdout: (crlf)
     xx0
  crea,y0 K1
stderr:
  <project>/names.ipf, line 3, column 13: x0 has no value yet: it stands for its own name. Did you mean x1?
  <project>/names.ipf, line 6: y0 has no value yet: it stands for its own name.

# Characters the code page cannot hold, a Ctrl-Z at the end of a file; a
# UTF-16 file is named as such.
write chars.ipf
  crea,ŐSZ€一
  crea,B\x1a (esc)
$ korvane compile chars.ipf --lang en
stdout: (crlf)
  crea,\xd5SZ\x80? (esc)
  crea,B\x1a (esc)
stderr:
  <project>/chars.ipf, line 1, column 10: A character here is not in the Windows-1250 code page: it goes on as "?".
  <project>/chars.ipf, line 2, column 7: The line holds the control character Ctrl-Z, which MX reads as part of the line.
write wide.ipf
  \xff\xfec\x00r\x00 (esc)
$ korvane compile wide.ipf --lang en
stderr:
  Run-time error: <project>/wide.ipf is not a text file: it is UTF-16. Save it as UTF-8 or as ANSI (Windows-1250).
  <project>/wide.ipf, line 1
exit 1

# --strict stops at the first warning, naming its place; -w says nothing.
$ korvane compile names.ipf --strict --lang en
stderr:
  Stopped at a warning (--strict): <project>/names.ipf, line 3, column 13: x0 has no value yet: it stands for its own name. Did you mean x1?
exit 1
$ korvane compile names.ipf -w --lang en
stdout: (crlf)
     xx0
  crea,y0 K1
