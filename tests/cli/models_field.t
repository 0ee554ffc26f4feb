# GENIO as other programs write it: a file that names several models, header
# lines before the first block.

write two.txt
     DAXCAD-GENIO DATA TRANSFER
  MOSS,GENIO
  GENIO ROAD
  001FORMAT(3F12.3)
  080,MAST
         1.000       2.000       3.000
         0.000       0.000       0.000
  999
  GENIO GROUND
  001FORMAT(3F12.3)
  080,MAST
         5.000       6.000       7.000
         8.000       9.000      10.000
         0.000       0.000       0.000
  999
  FINISH
# Into one model only with --merge: the second MAST would replace the first.
$ korvane models import two.txt X --lang en --project .
stderr:
  korvane models: two.txt names several models (ROAD, GROUND): give no model name to load each into its own, or add --merge
exit 2
$ korvane models import two.txt --lang en --project .
stdout:
  ROAD: 1 string, 1 point
  GROUND: 1 string, 2 points
$ korvane models import two.txt X --merge --lang en --project .
stdout:
  X: 1 string, 2 points

# A header line before the records of a file for one model.
write one.txt
  MOSS
  001FORMAT(3F12.3)
  080,E001
         1.000       2.000       3.000
         0.000       0.000       0.000
$ korvane models import one.txt ONE --lang en --project .
stdout:
  ONE: 1 string, 1 point
$ korvane models import one.txt --lang en --project .
stderr:
  korvane models: one.txt names no model (no GENIO record with a model name): give one, korvane models import one.txt MODEL
exit 2

# Triangles (090) and text strings (dimension 15) are kept as written: an
# export gives them back after the strings, each under its FORMAT, and export,
# import and export again gives the same bytes.
copy tests/genio
$ korvane models import survey_company_exporter.genio --lang en --project .
stdout:
  GROUND MODEL: 2 strings, 5 points
$ korvane models import cad_fixed_columns.genio CAD --lang en --project .
stdout:
  CAD: 2 strings, 5 points
$ korvane models show CAD --lang en --project .
stdout:
  String\tDimension\tPoints (esc)
  KERB\t3\t3 (esc)
  EDGE\t3\t2 (esc)
  Also kept and written back by export: 0 triangles (090), 2 text strings
$ korvane models export 'GROUND MODEL' -o first.txt --project .
$ korvane models export CAD -o cad-first.txt --project .
$ korvane models delete 'GROUND MODEL' --project .
stdout:
  Törölt modell: GROUND MODEL (2 string, 5 pont)
$ korvane models delete CAD --project .
stdout:
  Törölt modell: CAD (2 string, 5 pont)
$ korvane models import first.txt 'GROUND MODEL' --project .
stdout:
  GROUND MODEL: 2 string, 5 pont
$ korvane models import cad-first.txt CAD --project .
stdout:
  CAD: 2 string, 5 pont
$ korvane models export 'GROUND MODEL' -o second.txt --project .
$ korvane models export CAD -o cad-second.txt --project .
same first.txt second.txt
same cad-first.txt cad-second.txt

# For readers that take E exponents only, or a 6-dimensional string only
# under 001FORMAT(3D23.17): the layout is chosen, the data stays.
write master.txt
  001FORMAT(3F12.3)
  003,ORDR,4=1,1,2,3,4,5,6
  080,MAST,,7=6
       100.000     200.000      30.000
         0.000       1.500       0.000
       110.000     200.000      31.000
        10.000       1.500       0.000
         0.000       0.000       0.000
         0.000       0.000       0.000
$ korvane models import master.txt ALIGN --lang en --project .
stdout:
  ALIGN: 1 string, 2 points
$ korvane models export ALIGN --exponent E --six-d reverting --project .
stdout:
     GENIO output of model ALIGN (Korvane embedded engine)
  001FORMAT(3E23.17)
  003,ORDR,4=1,1,2,3,4,5,6
  080,MAST,    ,5=       0.0,       0.0,6
  0.10000000000000000E+030.20000000000000000E+030.30000000000000000E+02
  0.00000000000000000E+000.15000000000000000E+010.00000000000000000E+00
  0.11000000000000000E+030.20000000000000000E+030.31000000000000000E+02
  0.10000000000000000E+020.15000000000000000E+010.00000000000000000E+00
  0.00000000000000000E+000.00000000000000000E+000.31000000000000000E+02
  0.00000000000000000E+000.00000000000000000E+000.00000000000000000E+00
  999
$ korvane models export ALIGN --exponent E --six-d reverting -o e.txt --project .
$ korvane models import e.txt ECOPY --lang en --project .
stdout:
  ECOPY: 1 string, 2 points
$ korvane models show ECOPY MAST --lang en --project .
stdout:
  Point\tDim 1\tDim 2\tDim 3\tDim 4\tDim 5\tDim 6 (esc)
  1\t100\t200\t30\t0\t1.5\t0 (esc)
  2\t110\t200\t31\t10\t1.5\t0 (esc)
$ korvane models export ALIGN --exponent Q --project .
stderr:
  korvane models: A kitevő betűje D vagy E lehet, nem Q
exit 2
$ korvane models export ALIGN --six-d packed --project .
stderr:
  korvane models: A 6 dimenziós stringek elrendezése split vagy reverting lehet, nem packed
exit 2
