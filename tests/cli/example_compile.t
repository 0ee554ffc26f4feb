# The example project (examples/road) compiled: the same bytes on every
# system. Its queries read the models while it compiles, so the survey is
# loaded first; the query files lie in the project folder.
copy examples/road
$ korvane models import survey/ground.genio GROUND
stdout:
  GROUND: 3 string, 18 pont
$ korvane compile 'inputs/road.ipf [main]' 'inputs/road.ipf [trim]'
stdout: (crlf)
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
     Road M1: GR03 of GROUND keeps its first 4 points
  edit,GROUND
  005,3=GR03,6=4
  999
