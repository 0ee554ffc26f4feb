## engine: embedded
## excel: recording
## ditch_list runs the add-in's macro once for each list, with the master's
## chainages (model T's S1 runs 0 to 15), labels padded or cut to four
## characters, and writes the lines the macro gives, then an empty line.
geni,T
001format(3f12.3)
080,S1,,7=3
00000010.00000000010.00000000000.000
00000013.00000000014.00000000000.000
00000019.00000000022.00000000000.000
00000000.00000000000.00000000000.000
999
ditch_list,T
id=abc,mast=S1,ditchL=L1,
ditchR=R12345
ditch_list,T
basexls=ditch.xls,id=7,mast=S1,áxs=2.5,áxe=12
