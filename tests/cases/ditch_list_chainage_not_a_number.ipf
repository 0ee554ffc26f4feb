## engine: embedded
## excel: recording
## A start chainage that is no number stops ditch_list naming the text.
geni,T
001format(3f12.3)
080,S2,,7=3
00000001.000-0000002.00000000000.000
00000004.00000000002.00000000000.000
00000000.00000000000.00000000000.000
999
ditch_list,T
basexls=ditch,mast=S2,áxs=Ende
crea,never
