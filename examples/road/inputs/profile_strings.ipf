## Korvane example: long-section strings of the example road (chainage in x,
## level in z), for the long-section panel. The ground is the surveyed GRND;
## the design rises 16 per mille from 1+000 to a change of grade at 1+050 and
## falls 10 per mille from there to 1+100.
##   korvane run "inputs/road.ipf [main]" inputs/profile_strings.ipf
## The panel file road_ls.ipd in the project folder draws them (LongDraw).
geni,DESIGN M1
001format(3f12.3)
003,ordr,4=1,1,2,3
080,LGND,,7=3
    1000.000       0.000     101.200
    1020.000       0.000     101.650
    1040.000       0.000     102.400
    1060.000       0.000     102.100
    1080.000       0.000     101.900
    1100.000       0.000     101.750
00000000.00000000000.00000000000.000
080,LDES,,7=3
    1000.000       0.000     101.500
    1050.000       0.000     102.300
    1100.000       0.000     101.800
00000000.00000000000.00000000000.000
999
