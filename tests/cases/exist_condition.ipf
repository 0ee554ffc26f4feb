## engine: embedded
## exist(model) and exist(model,string) ask the engine (after a flush, so that
## the model below is there); three arguments keep the truth of the previous
## condition, and a condition that is neither a comparison nor exist()
## assigns nothing.
geni,GROUND
001format(3f12.3)
080,MAST,,7=3
00001000.00000005000.000000100.000
00000000.00000000000.000000100.000
999
kill,nothing.txt
if exist(GROUND) then a=1 else a=0
if exist(GROUND,MAST) then b=1 else b=0
if exist(GROUND,NONE) then c=1 else c=0
if exist(a,b,c) then d=1 else d=0
if nothing then e=1 else e=0
   model |a|, string |b|, no string |c|, three arguments |d|, no condition |e|
