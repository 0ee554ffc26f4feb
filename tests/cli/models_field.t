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
  ROAD: 1 strings, 1 points
  GROUND: 1 strings, 2 points
$ korvane models import two.txt X --merge --lang en --project .
stdout:
  X: 1 strings, 2 points

# A header line before the records of a file for one model.
write one.txt
  MOSS
  001FORMAT(3F12.3)
  080,E001
         1.000       2.000       3.000
         0.000       0.000       0.000
$ korvane models import one.txt ONE --lang en --project .
stdout:
  ONE: 1 strings, 1 points
$ korvane models import one.txt --lang en --project .
stderr:
  korvane models: one.txt names no model (no GENIO record with a model name): give one, korvane models import one.txt MODEL
exit 2
