# Looking changes nothing: check, compile and a dry run see the models as a
# run would (each query answers as the lines above it left the store), and
# the store is the same, byte for byte, when they end.
folder inputs
write inputs/setup.ipf (crlf)
  geni,ROAD2
  001FORMAT(3F12.3)
  080,MAST
      1000.000    5000.000     100.000
      1010.000    5000.000     100.000
         0.000       0.000       0.000
  080,E001
      1000.000    5010.000     100.000
      1010.000    5010.000     100.000
         0.000       0.000       0.000
  999
  crea,OLD
write inputs/rebuild.ipf (crlf)
  dele,ROAD2
  crea,ROAD2
  #n=getpoint(ROAD2,MAST,1,num,1)
  geni,ROAD2
  001FORMAT(3F12.3)
  080,MAST
      1000.000    5000.000     100.000
         0.000       0.000       0.000
  999
  #m=getpoint(ROAD2,MAST,1,num,1)
  crea,N|n| M|m|
  dele,OLD

# Without a store, looking makes none.
$ korvane check inputs/setup.ipf inputs/rebuild.ipf --lang en
stderr:
  <project>/inputs/rebuild.ipf, line 3, column 19: Model ROAD2 has no string MAST: the query answers as for a missing string.
  Warnings: 1
exit 1
missing korvane-models.db

$ korvane run inputs/setup.ipf --lang en > run.txt
keep korvane-models.db before.db

$ korvane check inputs/rebuild.ipf --lang en
stderr:
  <project>/inputs/rebuild.ipf, line 3, column 19: Model ROAD2 has no string MAST: the query answers as for a missing string.
  Warnings: 1
exit 1
same korvane-models.db before.db

# The first query finds ROAD2 emptied, the second as the GENIO block left it.
$ korvane compile inputs/rebuild.ipf --lang en
stdout: (crlf)
  dele,ROAD2
  crea,ROAD2
     ERROR: point query failed. Model/string:(ROAD2,MAST)
  geni,ROAD2
  001FORMAT(3F12.3)
  080,MAST
      1000.000    5000.000     100.000
         0.000       0.000       0.000
  999
  crea,N0 M1000
  dele,OLD
stderr:
  <project>/inputs/rebuild.ipf, line 3, column 19: Model ROAD2 has no string MAST: the query answers as for a missing string.
same korvane-models.db before.db

$ korvane run --dry-run inputs/rebuild.ipf --lang en
stdout:
  [1/1] Entry: <project>/inputs/rebuild.ipf
        12 lines compiled, 3 MX runs: getpoint, rebuild.ipf:3; getpoint, rebuild.ipf:10; end of the entry
  What the run would change (nothing was changed):
    "N0 M1000": would be created (0 strings, 0 points)
    "OLD": would be deleted (0 strings, 0 points)
    "ROAD2": would be changed
      string MAST: would be changed (2 points before, 1 after)
      string E001: would be deleted (2 points)
  Files written: korvane-engine.lst, tmpinput.txt
  Finished: 1 entry run
stderr:
  <project>/inputs/rebuild.ipf, line 3, column 19: Model ROAD2 has no string MAST: the query answers as for a missing string.
same korvane-models.db before.db

# What the run would leave as it was is not named.
$ korvane run --dry-run inputs/setup.ipf --lang hu
stdout:
  [1/1] Bemenet: <project>/inputs/setup.ipf
        12 sor lefordítva, 1 MX-futás: a bemenet vége
  A futás egyetlen modellt sem változtatna (semmi sem változott).
  Kiírt fájlok: korvane-engine.lst, tmpinput.txt
  Kész: 1 bemenet lefutott
same korvane-models.db before.db
