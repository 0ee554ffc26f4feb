## engine: embedded
## Queries read the model that the lines above them built: a master string
## with a 3-4-5 and a 6-8-10 leg, and two ground strings.
geni,ROAD
001format(3f12.3)
080,MAST,,7=3
00001000.00000005000.000000100.000
00001003.00000005004.000000101.000
00001009.00000005012.000000099.000
00000000.00000000000.000000099.000
080,GR01,,7=3
00001000.00000004990.000000098.500
00001010.00000004990.000000098.000
00000000.00000000000.000000098.000
080,GR02,,7=3
00001000.00000005010.000000099.500
00000000.00000000000.000000099.500
999
#ch=getchain(ROAD,MAST,-1)
   MAST: |getpoint(ROAD,MAST,0,num,1)| points, ends at chainage |ch|
   plan length |getlength(ROAD,MAST,plan)|, first to last |getdist(ROAD,MAST,1,ROAD,MAST,-1)|
   levels of MAST: |getminmax(ROAD,MAST)|
#gone=getpoint(ROAD,GONE,1,num,3)
   a point that is not there reads |gone|, getdist says |getdist(ROAD,GONE,1,ROAD,MAST,1)|
insert,each_ground
repeat=each(ROAD,GR)
   a new string could be |getfreelabel(ROAD,gr)|
