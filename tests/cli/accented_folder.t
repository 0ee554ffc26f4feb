# Hungarian engineers name folders "Útépítés": a project folder and input
# files with accented names ("ő" is not in Latin-1) work on every path that
# touches the disk, and nothing is made under a mangled name beside them.
write Útépítés/inputs/főút.ipf (crlf)
  crea,ROAD
$ korvane run '<project>/Útépítés/inputs/főút.ipf' --project '<project>/Útépítés' --lang en
stdout:
  [1/1] Entry: <project>/Útépítés/inputs/főút.ipf
        1 line compiled, 1 MX run: end of the entry
  Models changed: "ROAD" (0 strings, 0 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run
$ korvane models list --project '<project>/Útépítés' --lang en
stdout:
  Model  Strings  Points
  ROAD         0       0
list Útépítés
  inputs/
  korvane-engine.lst
  korvane-models.db
  korvane-models.db-lock
  tmpinput.txt
list .
  stderr.txt
  stdout.txt
  Útépítés/
