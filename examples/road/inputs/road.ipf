## Korvane example: a short road with its master alignment and a ground string
## The survey model GROUND is loaded from survey/ground.genio first:
##   korvane models import survey/ground.genio GROUND
##   korvane run "inputs/road.ipf [main]" "inputs/road.ipf [ground]" "inputs/road.ipf [trim]"
## [sections] trims the cross sections that this command makes beforehand:
##   korvane models sections "DESIGN M1" MAST SECTIONS --interval 20 --width 12
## [drawing], like [excel], runs after [main] in the same run (it needs g_road).
[main]
#g_road="M1"
#model="DESIGN "&g_road
   Model |model|: master string and ground levels
dele,|model|
crea,|model|
geni,|model|
001format(3f12.3)
003,ordr,4=1,1,2,3
080,MAST,,7=3
insert,alignment
repeat=6,step=20,
start=1000
00000000.00000000000.00000000000.000
080,GRND,,7=3
insert,levels
repeat=single
## chainage, level, survey point
0,101.20,K1
20,101.65,K2
40,102.40,K3
60,102.10,K4
80,101.90,K5
100,101.75,K6
end
00000000.00000000000.00000000000.000
999
   |count| ground points, highest at |top_label| (|top|)
## The design as the lines above left it: its chainage, length and levels
#ch_end=getchain(model,MAST,-1)
   MAST runs to chainage |ch_end|, plan length |getlength(model,MAST,plan)|
   GRND lowest and highest point: |getminmax(model,GRND)|
## A left edge 3.5 m off the master string, under a label no string uses yet
#edge=getfreelabel(model,e)
#x1=getpoint(model,MAST,1,num,1)
#z1=getpoint(model,MAST,1,num,3)
#x2=getpoint(model,MAST,-1,num,1)
#z2=getpoint(model,MAST,-1,num,3)
#y=getpoint(model,MAST,1,num,2)-3.5
geni,|model|
001format(3f12.3)
080,|edge|,,7=3
|format(x1,"00000000.000")||format(y,"00000000.000")||format(z1,"00000000.000")|
|format(x2,"00000000.000")||format(y,"00000000.000")||format(z2,"00000000.000")|
00000000.00000000000.00000000000.000
999
   Left edge |edge|: |getlength(model,edge)| long
[ground]
## One line for every ground string of the survey model
insert,ground_report
repeat=each(GROUND,GR)
[trim]
## Cut the right-hand ground string back to the end of the design
if exist(GROUND,GR03) then keep=4 else keep=0
   Road |g_road|: GR03 of GROUND keeps its first |keep| points
edit,GROUND
005,3=GR03,6=|keep|
999
[excel]
## Design parameters from the workbook excel/design.xlsx (names in column A of
## the sheet Design, values in B), and a result written back into it
#model="DESIGN "&g_road
#speed=getname(design.xlsx,speed,1)
#offset=getname(design.xlsx,1,offset)
#lane=xlget(design.xlsx,B4,Design)
   Design speed |speed| km/h, lane |lane| m, edge offset |offset| m
#length=getlength(model,MAST,plan)
xlput,design.xlsx,Results,2,2,|length|
   MAST plan length |xlget(design.xlsx,Results!B2)| written to the sheet Results
[drawing]
## The design strings copied into the drawing model under the labels the
## drawing uses: order 2341 turns MAST into ASTM and GRND into RNDG
#model="DESIGN "&g_road
labelmove,|model|,DRAWING
order=2341
MAST
GRND
end
   DRAWING: ASTM |getlength(DRAWING,ASTM)| m, RNDG |getlength(DRAWING,RNDG)| m long
[sections]
## Cross sections, made by "korvane models sections", cut back at the left
## edge of the road: the run from an E string on to the ground string goes
trimsection,SECTIONS
inic="X",mask1="E",mask2="GR"
[_scratch]
crea,never compiled on its own
