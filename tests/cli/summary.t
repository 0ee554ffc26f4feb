# The summary of a run lists the models changed and the files the run wrote
# in the project folder; not the shell's redirections of the run's own output
# (here stdout.txt and stderr.txt), which lie there too.
folder inputs
write a.ipf
  crea,A
$ korvane run a.ipf --lang en
stdout:
  [1/1] Entry: <project>/a.ipf
        1 line compiled, 1 MX run: end of the entry
  Models changed: "A" (0 strings, 0 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run
list .
  a.ipf
  inputs/
  korvane-engine.lst
  korvane-models.db
  korvane-models.db-lock
  stderr.txt
  stdout.txt
  tmpinput.txt
