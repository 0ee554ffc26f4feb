## engine: embedded
## The label queries flush first: they see the strings created just above.
geni,M
001format(3f12.3)
080,GR00,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000000.000
999
#before=getfreelabel(M,gr)
geni,M
001format(3f12.3)
080,|before|,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000000.000
999
   after |getfreelabel(M,gr)|, next |getnextlabel(M,gr)|
