# However a run ends, no journal or log of SQLite stays beside the store once
# korvane has ended.
folder inputs
write good.ipf
  crea,A
$ korvane run good.ipf --lang en
stdout:
  [1/1] Entry: <project>/good.ipf
        1 line compiled, 1 MX run: end of the entry
  Models changed: "A" (0 strings, 0 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run
exists korvane-models.db
missing korvane-models.db-journal
missing korvane-models.db-wal
missing korvane-models.db-shm

# Each of these runs the engine (the query), then ends badly: MX refuses a
# line, a message stops it, a run-time error.
write bad.ipf
  crea,B
  nonsense,record
$ korvane run bad.ipf --lang en
stdout:
  [1/1] Entry: <project>/bad.ipf
        2 lines compiled, 1 MX run: end of the entry
  Models changed: "B" (0 strings, 0 points)
  Files written: korvane-engine.lst, tmpinput.txt
  Stopped at entry 1
stderr:
  MX stopped before the end of the input. The MX report shows the failing line.
  MX stopped with an error: <project>/tmpinput.txt, line 3: unknown major option 'nonsense': "nonsense,record"
  <project>/bad.ipf, line 2
  Line: nonsense,record
  MX line: nonsense,record
exit 1
missing korvane-models.db-journal
missing korvane-models.db-wal
missing korvane-models.db-shm
write bad.ipf
  crea,C
  #n=getpoint(C,S,1,num,1)
  insert,missing.ipm
$ korvane run bad.ipf --lang en
stdout:
  [1/1] Entry: <project>/bad.ipf
        3 lines compiled, 1 MX run: getpoint, bad.ipf:2
  Models changed: "C" (0 strings, 0 points)
  Files written: korvane-engine.lst, tmpinput.txt
  Stopped at entry 1
stderr:
  <project>/bad.ipf, line 2, column 15: Model C has no string S: the query answers as for a missing string.
  File not found: missing.ipm (not in the input's folder, the project folder or the macro folders)
  <project>/bad.ipf, line 3
  searched: <project>, <project>/inputs, *data?macros (glob)
exit 1
missing korvane-models.db-journal
missing korvane-models.db-wal
missing korvane-models.db-shm
write bad.ipf
  crea,D
  #n=getpoint(D,S,1,num,1)
  #x=1/0
$ korvane run bad.ipf --lang en
stdout:
  [1/1] Entry: <project>/bad.ipf
        3 lines compiled, 1 MX run: getpoint, bad.ipf:2
  Models changed: "D" (0 strings, 0 points)
  Files written: korvane-engine.lst, tmpinput.txt
  Stopped at entry 1
stderr:
  <project>/bad.ipf, line 2, column 15: Model D has no string S: the query answers as for a missing string.
  Run-time error: Division by zero
  <project>/bad.ipf, line 3
  Line: #x=1/0
exit 1
missing korvane-models.db-journal
missing korvane-models.db-wal
missing korvane-models.db-shm

# An empty journal, as a process that ended while making the store left it,
# goes with the next run.
write korvane-models.db-journal
$ korvane run good.ipf --lang en
stdout:
  [1/1] Entry: <project>/good.ipf
        1 line compiled, 1 MX run: end of the entry
  Models changed: -
  Files written: korvane-engine.lst, tmpinput.txt
  Finished: 1 entry run
missing korvane-models.db-journal
missing korvane-models.db-wal
missing korvane-models.db-shm
$ korvane models list --lang en
stdout:
  Model  Strings  Points
  A            0       0
  B            0       0
  C            0       0
  D            0       0

# Batch mode: the words are one run entry, run with the defaults.
write a b.ipf
  [main]
  crea,BATCH
$ korvane a b.ipf [main]
stdout:
  [1/1] Bemenet: <project>/a b.ipf [main]
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: "BATCH" (0 string, 0 pont)
  Kiírt fájlok: korvane-engine.lst, tmpinput.txt
  Kész: 1 bemenet lefutott
$ korvane models list --lang en
stdout:
  Model  Strings  Points
  A            0       0
  B            0       0
  BATCH        0       0
  C            0       0
  D            0       0

# Without AutoCAD a script block stops the run; --keep-scripts keeps it as
# script001.scr and goes on.
write s.ipf
  crea,S
  script
  _line 0,0 1,1

  endscript
$ korvane run s.ipf --lang en
stdout:
  [1/1] Entry: <project>/s.ipf
        5 lines compiled, 1 MX run: script, s.ipf:2
  Models changed: "S" (0 strings, 0 points)
  Files written: korvane-engine.lst, tmpinput.scr, tmpinput.txt
  Stopped at entry 1
stderr:
  No running AutoCAD instance found. Start AutoCAD or check the value of g_acadver.
exit 1
$ korvane run s.ipf --keep-scripts --lang en
stdout:
  [1/1] Entry: <project>/s.ipf
        5 lines compiled, 1 MX run: script, s.ipf:2
  Models changed: -
  Files written: korvane-engine.lst, script001.scr, tmpinput.scr, tmpinput.txt
  Finished: 1 entry run
expect script001.scr (crlf)
  _line 0,0 1,1
   (esc)
