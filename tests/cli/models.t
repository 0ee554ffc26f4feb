# korvane models as a user runs it: GENIO text imported, listed, shown,
# exported and imported again, deleted. Model and string names are found in
# any letter case.

# A failed import leaves no model behind. The records here begin well and go
# wrong on the fourth line.
write bad.txt
  001FORMAT(3F12.3)
  003,ORDR,4=1,1,2,3
  080,E001
  garbage
$ korvane models import bad.txt BAD --project .
stderr:
  korvane models: bad.txt, line 4: string E001: 'garbage     ' in columns 1-12 is not a number: "garbage"
    (lista: <project>/korvane-engine.lst)
exit 1
# An empty store: the headings alone.
$ korvane models list --lang en --project .
stdout:
  Model  Strings  Points

write in.txt
     banner line of some exporter
  001FORMAT(3F12.3)
  003,ORDR,4=1,1,2,3
  080,E001
         1.000       2.000       3.000
         4.000       5.000       6.000
         0.000       0.000       6.000
  080,E002,,,,,3,,,1
         7.000       8.000       9.000
        10.000      11.000      12.000
        13.000      14.000      15.000
         0.000       0.000      15.000
  999
$ korvane models import in.txt 'Site Plan' --project .
stdout:
  Site Plan: 2 string, 5 pont
$ korvane models show 'site plan' --lang en --project .
stdout:
  String\tDimension\tPoints (esc)
  E001\t3\t2 (esc)
  E002\t3\t3 (esc)
$ korvane models show 'Site Plan' e002 --lang en --project .
stdout:
  Point\tDim 1\tDim 2\tDim 3 (esc)
  1\t7\t8\t9\tbreak (esc)
  2\t10\t11\t12 (esc)
  3\t13\t14\t15 (esc)
$ korvane models export 'Site Plan' -o out.txt --project .
$ korvane models import out.txt COPY --project .
stdout:
  COPY: 2 string, 5 pont
$ korvane models show COPY E002 --lang en --project .
stdout:
  Point\tDim 1\tDim 2\tDim 3 (esc)
  1\t7\t8\t9\tbreak (esc)
  2\t10\t11\t12 (esc)
  3\t13\t14\t15 (esc)
$ korvane models export COPY --project .
stdout:
     GENIO output of model COPY (Korvane embedded engine)
  001FORMAT(3D23.17)
  003,ORDR,4=1,1,2,3
  080,E001,    ,5=       0.0,       0.0,3
  0.10000000000000000D+010.20000000000000000D+010.30000000000000000D+01
  0.40000000000000000D+010.50000000000000000D+010.60000000000000000D+01
  0.00000000000000000D+000.00000000000000000D+000.60000000000000000D+01
  080,E002,    ,5=       0.0,       0.0,3,10=1
  0.70000000000000000D+010.80000000000000000D+010.90000000000000000D+01
  0.10000000000000000D+020.11000000000000000D+020.12000000000000000D+02
  0.13000000000000000D+020.14000000000000000D+020.15000000000000000D+02
  0.00000000000000000D+000.00000000000000000D+000.15000000000000000D+02
  999
$ korvane models delete COPY --lang en --project .
stdout:
  Deleted the model COPY (2 strings, 5 points)
$ korvane models delete COPY --lang en --project .
stderr:
  korvane models: There is no model "COPY"
exit 1
$ korvane models show COPY --project .
stderr:
  korvane models: there is no model "COPY"
exit 1

# The list: headings in the chosen language over columns as wide as their
# widest cell, names to the left, counts to the right. A failed import leaves
# a model that was there before it as it was.
write twelve.txt
  001FORMAT(3F12.3)
  003,ORDR,4=1,1,2,3
  080,E003
       101.000       0.000       0.000
       102.000       0.000       0.000
       103.000       0.000       0.000
       104.000       0.000       0.000
       105.000       0.000       0.000
       106.000       0.000       0.000
       107.000       0.000       0.000
       108.000       0.000       0.000
       109.000       0.000       0.000
       110.000       0.000       0.000
       111.000       0.000       0.000
       112.000       0.000       0.000
         0.000       0.000       0.000
  999
$ korvane models import twelve.txt A --project .
stdout:
  A: 1 string, 12 pont
$ korvane models import bad.txt A --project .
stderr:
  korvane models: bad.txt, line 4: string E001: 'garbage     ' in columns 1-12 is not a number: "garbage"
    (lista: <project>/korvane-engine.lst)
exit 1
$ korvane models list --lang en --project .
stdout:
  Model      Strings  Points
  A                1      12
  Site Plan        2       5
$ korvane models list --lang hu --project .
stdout:
  Modell     Stringek  Pontok
  A                 1      12
  Site Plan         2       5

# exec runs a Linemode file and prints its listing; an engine error names the
# file and line.
write run.txt
  crea,A
  geni,A
  042,XX
  999
$ korvane models exec run.txt --project .
stdout:
  Korvane embedded MX engine: run of <project>/run.txt
  Model store: <project>/korvane-models.db

       1  crea,A
            model "A" exists already; left as it is
       2  geni,A
       3  042,XX
  **** error at line 3: unknown minor option 042 in GENIO
  **** GENIO at line 2 rolled back; the models are as the major options before it left them
  **** run stopped at line 3
stderr:
  korvane models: <project>/run.txt, line 3: unknown minor option 042 in GENIO: "042,XX"
    (lista: <project>/korvane-engine.lst)
exit 1
write run.txt
  crea,A
  dele,A
$ korvane models exec run.txt --project .
stdout:
  Korvane embedded MX engine: run of <project>/run.txt
  Model store: <project>/korvane-models.db

       1  crea,A
            model "A" exists already; left as it is
       2  dele,A
            model "A" deleted

  Run ended, no errors.

# Wrong usage exits 2; a store that is not ours is an engine error.
$ korvane models
stderr:
  korvane: Hiányzik a parancs
  Segítség: korvane help [PARANCS]
exit 2
$ korvane models show --project .
stderr:
  korvane: Hiányzik: MODEL
  Segítség: korvane help [PARANCS]
exit 2
$ korvane models frobnicate --project .
stderr:
  korvane: Hiányzik a parancs
  Segítség: korvane help [PARANCS]
exit 2
$ korvane models list --project <project>/no-such-folder
stderr:
  korvane models: A projekt mappa nem létezik: <project>/no-such-folder
exit 2
write korvane-models.db
  junk
$ korvane models list --project .
stderr:
  korvane models: the model store <project>/korvane-models.db is not a Korvane model store: it is not an SQLite database or it is damaged (*); it was left as it is (glob)
exit 1
