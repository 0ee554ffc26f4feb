# The example relabels its design into the drawing and cuts its cross sections
# back at the road edge.
copy examples/road
$ korvane run 'inputs/road.ipf [main]'
stdout:
  [1/1] Bemenet: <project>/inputs/road.ipf [main]
        79 sor lefordítva, 5 MX-futás: getchain, road.ipf:37; getminmax, road.ipf:39; getfreelabel, road.ipf:41; getlength, road.ipf:54; a bemenet vége
  Módosított modellek: "DESIGN M1" (3 string, 14 pont)
  Kiírt fájlok: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Kész: 1 bemenet lefutott
$ korvane models sections 'DESIGN M1' MAST SECTIONS --interval 20 --width 12
stdout:
  SECTIONS: 6 string, 18 pont
# Across the master, the left edge 3.5 m off it, the ground string beyond.
$ korvane models show SECTIONS X002 --lang en
stdout:
  Point\tDim 1\tDim 2\tDim 3\tDim 4\tDim 5 (esc)
  1\t1020\t5000\t105.1\t12\t'MAST' (esc)
  2\t1020\t4996.5\t105.1\t15.5\t'E000' (esc)
  3\t1020\t4990\t101.65\t22\t'GRND' (esc)

# [drawing] names the design through g_road, which [main] sets in the same run;
# MAST is ASTM under the order 2341. [sections] cuts away the run beyond the
# edge.
$ korvane run 'inputs/road.ipf [main]' 'inputs/road.ipf [drawing]' 'inputs/road.ipf [sections]'
stdout:
  [1/3] Bemenet: <project>/inputs/road.ipf [main]
        79 sor lefordítva, 5 MX-futás: getchain, road.ipf:37; getminmax, road.ipf:39; getfreelabel, road.ipf:41; getlength, road.ipf:54; a bemenet vége
  [2/3] Bemenet: <project>/inputs/road.ipf [drawing]
        8 sor lefordítva, 3 MX-futás: labelmove, road.ipf:81 ×2; a bemenet vége
  [3/3] Bemenet: <project>/inputs/road.ipf [sections]
        6 sor lefordítva, 2 MX-futás: trimsection, road.ipf:90; a bemenet vége
  Módosított modellek: "DRAWING" (2 string, 12 pont), "SECTIONS" (6 string, 12 pont)
  Kiírt fájlok: korvane-engine.lst, tmpinput.txt
  Kész: 3 bemenet lefutott
$ korvane models show DRAWING --lang en
stdout:
  String\tDimension\tPoints (esc)
  ASTM\t3\t6 (esc)
  RNDG\t3\t6 (esc)
$ korvane models show SECTIONS X002 --lang en
stdout:
  Point\tDim 1\tDim 2\tDim 3\tDim 4\tDim 5 (esc)
  1\t1020\t5000\t105.1\t12\t'MAST' (esc)
  2\t1020\t4996.5\t105.1\t15.5\t'E000' (esc)
