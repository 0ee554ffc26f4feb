## engine: embedded
## excel: recording
## ditch_list passes the master's first and last chainage (a break in the
## string not counted: S2 runs 0 to 15) and axs and axe as numbers.
geni,T
001format(3f12.3)
080,S2,,7=3,10=2
00000001.000-0000002.00000000000.000
00000004.00000000002.00000000000.000
00000100.00000000100.00000000000.000
00000106.00000000108.00000000000.000
00000000.00000000000.00000000000.000
999
ditch_list,T
basexls=ditch,mast=S2
ditch_list,T
basexls=ditch,mast=S2,áxs=12.5,áxe=14
