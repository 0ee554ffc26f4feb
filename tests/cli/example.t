# The example project (examples/road) run through the embedded engine, its
# survey loaded first.
copy examples/road
$ korvane models import survey/ground.genio GROUND
stdout:
  GROUND: 3 string, 18 pont

# The runs change the models: MAST, GRND and the left edge string E000 that
# getfreelabel named; GR03 cut to 4 points. --save-one keeps every MX line in
# complete.inp, without the sentinel model.
$ korvane run 'inputs/road.ipf [main]' 'inputs/road.ipf [ground]' inputs/road.ipf [trim] --save-one
stdout:
  [1/3] Bemenet: <project>/inputs/road.ipf [main]
        79 sor lefordítva, 5 MX-futás: getchain, road.ipf:37; getminmax, road.ipf:39; getfreelabel, road.ipf:41; getlength, road.ipf:54; a bemenet vége
  [2/3] Bemenet: <project>/inputs/road.ipf [ground]
        11 sor lefordítva, 6 MX-futás: getminmax, ground_report.ipm:3 ×3; getpoint, ground_report.ipm:3 ×2; a bemenet vége
  [3/3] Bemenet: <project>/inputs/road.ipf [trim]
        7 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: "DESIGN M1" (3 string, 14 pont), "GROUND" (3 string, 16 pont)
  Kiírt fájlok: complete.inp, korvane-engine.lst, tmpinput.txt
  Kész: 3 bemenet lefutott
expect complete.inp (crlf)

     Bemeneti f\xe1jl:   <project>/inputs/road.ipf [main] (esc)
     Model DESIGN M1: master string and ground levels
  dele,DESIGN M1
  crea,DESIGN M1
  geni,DESIGN M1
  001format(3f12.3)
  003,ordr,4=1,1,2,3
  080,MAST,,7=3
  00001000.00000005000.00000000105.000
  00001020.00000005000.00000000105.100
  00001040.00000005000.00000000105.200
  00001060.00000005000.00000000105.300
  00001080.00000005000.00000000105.400
  00001100.00000005000.00000000105.500
  00000000.00000000000.00000000000.000
  080,GRND,,7=3
  00001000.00000004990.00000000101.200
  00001020.00000004990.00000000101.650
  00001040.00000004990.00000000102.400
  00001060.00000004990.00000000102.100
  00001080.00000004990.00000000101.900
  00001100.00000004990.00000000101.750
  00000000.00000000000.00000000000.000
  999
     6 ground points, highest at K3 (102.40)
     MAST runs to chainage 100, plan length 100
  over,<project>/tmpminmax.txt,genio
  geni,DESIGN M1
  001format(8f12.3,4a4)
  081,GRND
  999
  over,,genio
     GRND lowest and highest point: Pmin:     1,Pmax:     3
  geni,DESIGN M1
  001format(3f12.3)
  080,e000,,7=3
  00001000.00000004996.50000000105.000
  00001100.00000004996.50000000105.500
  00000000.00000000000.00000000000.000
  999
     Left edge e000: 100.001249992188 long



     Bemeneti f\xe1jl:   <project>/inputs/road.ipf [ground] (esc)
  over,<project>/tmpminmax.txt,genio
  geni,GROUND
  001format(8f12.3,4a4)
  081,GR01
  999
  over,,genio
     GR01: 6 points, 100 m, Pmin:     1,Pmax:     6
  over,<project>/tmpminmax.txt,genio
  geni,GROUND
  001format(8f12.3,4a4)
  081,GR02
  999
  over,,genio
     GR02: 6 points, 100 m, Pmin:     1,Pmax:     6
  over,<project>/tmpminmax.txt,genio
  geni,GROUND
  001format(8f12.3,4a4)
  081,GR03
  999
  over,,genio
     GR03: 6 points, 100 m, Pmin:     1,Pmax:     6



     Bemeneti f\xe1jl:   <project>/inputs/road.ipf [trim] (esc)
     Road M1: GR03 of GROUND keeps its first 4 points
  edit,GROUND
  005,3=GR03,6=4
  999
$ korvane models list
stdout:
  Modell     Stringek  Pontok
  DESIGN M1         3      14
  GROUND            3      16
