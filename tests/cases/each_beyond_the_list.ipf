## engine: embedded
## each() fills the list that `repeat=each...` iterates, in the count the
## repeat text names: a count past the end of the list stops the run.
geni,ROAD
001format(3f12.3)
080,GR01,,7=3
00001000.00000004990.000000098.500
00000000.00000000000.000000098.000
080,GR02,,7=3
00001000.00000005010.000000099.500
00000000.00000000000.000000099.500
999
#listed=each(ROAD,GR)
insert,each_listed
repeat=each0000003
crea,never
