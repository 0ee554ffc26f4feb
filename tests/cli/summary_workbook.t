# Where no Excel runs, xlput saves the workbook itself, in the project's excel
# folder: the summary lists it then, and not when it was only read.
requires workbook-files
copy examples/road
write a.ipf
  #v=xlget(design.xlsx,B2,Design)
$ korvane run a.ipf --lang en
stdout:
  [1/1] Entry: <project>/a.ipf
  Models changed: -
  Files written: tmpinput.txt
  Finished: 1 entries run
write a.ipf
  xlput,design.xlsx,Results,2,2,100
$ korvane run a.ipf --lang en
stdout:
  [1/1] Entry: <project>/a.ipf
  Models changed: -
  Files written: tmpinput.txt, excel/design.xlsx
  Finished: 1 entries run
