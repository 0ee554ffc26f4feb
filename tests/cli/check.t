# korvane check names each warning at its file, line and column, with the
# close word when there is one, then how many, and exits 1; told to run no
# engine, it makes no model store.
write inputs/typo.ipf
  crea,A
  insrt,axis
  crea,|modl|

$ korvane check inputs/typo.ipf --engine none --lang en
stderr:
  <project>/inputs/typo.ipf, line 2, column 1: insrt is no directive: the line goes to MX as it stands. Did you mean insert?
  <project>/inputs/typo.ipf, line 3, column 7: modl has no value yet: it stands for its own name.
  Warnings: 2
exit 1
missing korvane-models.db

write inputs/clean.ipf
  crea,A
  #m=1
  crea,|m|

$ korvane check inputs/clean.ipf --lang en
stderr:
  No problems found.

# compile and run tell of a name with no value inside |...|; the rest only
# when asked with --warnings; the MX lines stay the same.
$ korvane compile inputs/typo.ipf --engine none --lang en
stdout: (crlf)
  crea,A
  insrt,axis
  crea,modl
stderr:
  <project>/inputs/typo.ipf, line 3, column 7: modl has no value yet: it stands for its own name.
$ korvane compile inputs/typo.ipf --engine none --warnings --lang en
stdout: (crlf)
  crea,A
  insrt,axis
  crea,modl
stderr:
  <project>/inputs/typo.ipf, line 2, column 1: insrt is no directive: the line goes to MX as it stands. Did you mean insert?
  <project>/inputs/typo.ipf, line 3, column 7: modl has no value yet: it stands for its own name.

# run reports the warnings of an entry after it.
write inputs/rows.ipf
  insert,row
  repeat=single
     1
write inputs/row.ipm
  repeat
  crea,R|f1|
  endrepeat

$ korvane run inputs/rows.ipf --lang en
stdout:
  [1/1] Entry: <project>/inputs/rows.ipf
        4 lines compiled, 1 MX run: end of the entry
  Models changed: "R1" (0 strings, 0 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run
$ korvane run inputs/rows.ipf --warnings --lang en
stdout:
  [1/1] Entry: <project>/inputs/rows.ipf
        4 lines compiled, 1 MX run: end of the entry
  Models changed: -
  Files written: korvane-engine.lst, tmpinput.txt
  Finished: 1 entry run
stderr:
  <project>/inputs/rows.ipf, line 1: The data rows have no end line: the rest of the file was read as data rows.
