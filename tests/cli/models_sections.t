# korvane models sections: cross sections along a master string go into
# another model, at each interval, as wide as asked, named with the prefix.
# A master 20 long along x, and one string 3 to its left.
write road.txt
  001FORMAT(3F12.3)
  080,MAST
       100.000     100.000       0.000
       120.000     100.000       0.000
         0.000       0.000       0.000
  080,E001
       100.000     103.000       0.000
       120.000     103.000       0.000
         0.000       0.000       0.000
  999
$ korvane models import road.txt ROAD --project .
stdout:
  ROAD: 2 string, 4 pont
$ korvane models sections ROAD mast SECT --interval 5 --width 4 --prefix s --project .
stdout:
  SECT: 5 string, 10 pont
$ korvane models show SECT --lang en --project .
stdout:
  String\tDimension\tPoints (esc)
  S001\t5\t2 (esc)
  S002\t5\t2 (esc)
  S003\t5\t2 (esc)
  S004\t5\t2 (esc)
  S005\t5\t2 (esc)
$ korvane models show SECT S002 --lang en --project .
stdout:
  Point\tDim 1\tDim 2\tDim 3\tDim 4\tDim 5 (esc)
  1\t105\t103\t0\t1\t'E001' (esc)
  2\t105\t100\t0\t4\t'MAST' (esc)
# Not into the model of the master itself.
$ korvane models sections ROAD MAST road --project .
stderr:
  korvane models: sections go into another model than "ROAD"
exit 1
