## engine: embedded
## excel: automation
## The ditch commands and xlmacro run their macros in the running Excel with
## the arguments by reference: the result text comes back in the fourth.
geni,T
001format(3f12.3)
080,S1,,7=3
00000010.00000000010.00000000000.000
00000013.00000000014.00000000000.000
00000019.00000000022.00000000000.000
00000000.00000000000.00000000000.000
999
ditch_list,T
mast=S1,áxe=9
ditch_pips,t
basexls=ditch
xlmacro,Book.xlsm!Go,1,x
