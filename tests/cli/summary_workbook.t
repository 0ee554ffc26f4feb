# Where no Excel runs, xlput saves the workbook itself, in the project's excel
# folder: the summary lists it then, and not when it was only read.
requires workbook-files
copy examples/road
write a.ipf
  #v=xlget(design.xlsx,B2,Design)
$ korvane run a.ipf --lang en
stdout:
  [1/1] Entry: <project>/a.ipf
        1 line compiled, 0 MX runs
  Models changed: -
  Files written: tmpinput.txt
  Finished: 1 entry run
write a.ipf
  xlput,design.xlsx,Results,2,2,100
$ korvane run a.ipf --lang en
stdout:
  [1/1] Entry: <project>/a.ipf
        1 line compiled, 0 MX runs
  Models changed: -
  Files written: tmpinput.txt, excel/design.xlsx
  Finished: 1 entry run
