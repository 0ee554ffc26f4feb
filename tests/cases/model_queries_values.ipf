## engine: embedded
## The model-query functions on model T, built here:
##  S1 (10,10,100) (13,14,112) (19,22,112): plan 5 + 10, slope 13 + 10
##  S2 (1,-2,0) (4,2,0) | break | (100,100,0) (106,108,0): 5 + 10, the gap not counted
##  LV levels -999 5 3 9 3 9 (a null first level); A1 and AB12 for the wildcard lists
geni,T
001format(3f12.3)
003,ordr,4=1,1,2,3
080,S1,,7=3
00000010.00000000010.00000000100.000
00000013.00000000014.00000000112.000
00000019.00000000022.00000000112.000
00000000.00000000000.00000000112.000
080,S2,,7=3,10=2
00000001.000-0000002.00000000000.000
00000004.00000000002.00000000000.000
00000100.00000000100.00000000000.000
00000106.00000000108.00000000000.000
00000000.00000000000.00000000000.000
080,LV,,7=3
00000001.00000000001.000-0000999.000
00000002.00000000001.00000000005.000
00000003.00000000001.00000000003.000
00000004.00000000001.00000000009.000
00000005.00000000001.00000000003.000
00000006.00000000001.00000000009.000
00000000.00000000000.00000000009.000
080,A1,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000001.000
080,AB12,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000001.000
999
## getdata counts records through the strings of the current model: S1 1-3, then S2 1-4.
## Past the end the record before (point 2 of S2) stays.
   getdata: x1 |getdata(1,num,1)|, label3 |getdata(3,txt,13)|, x4 |getdata(4,num,1)|, point5 |getdata(5,num,14)|, broken5 |getdata(5,num,15)|, missing |getdata(999,num,1)|
## Point 0 is the count, negative points count from the end; a kind other than txt or num gives nothing.
   getpoint: x1 |getpoint(T,S1,1,num,1)|, z2 |getpoint(T,S1,2,num,3)|, ch2 |getpoint(T,S1,2,num,5)|, chLast |getpoint(T,S1,-1,num,5)|, yBeforeLast |getpoint(T,s1,-2,num,2)|
   getpoint: count |getpoint(T,S1,0,num,1)|, countEmpty |getpoint(T,S1,,txt,13)|, label |getpoint(T,S1,2,TXT,13)|, model |getpoint(t,S1,2,txt,15)|, other [|getpoint(T,S1,2,xyz,1)|]
## The gap after point 2 of S2 adds nothing; a failed getchain keeps the last record found.
   getchain: c2 |getchain(T,S1,2)|, c0 |getchain(T,S1,0)|, cGap |getchain(T,S2,3)|, good |getchain(T,S1,2)|, stale |getchain(T,NO,1)|
## A failed getpoint gives 0 and an Outputs line naming model and string.
#m="T "
   failed: noString |getpoint(m,NO,1,num,1)|, noPoint |getpoint(T,S1,4,num,1)|, noModel |getpoint(NOPE,S1,1,num,1)|, noStringCount |getpoint(T,NO,0,num,1)|
## Plan and slope (slop is enough, sl is not) distances: 5 and 13; (10,10) to (19,22) is 15, (4,2) to (10,10) is 10.
   getdist: plan |getdist(T,S1,1,T,S1,2)|, slope |getdistance(T,S1,1,T,S1,2,slope)|, slop |getdist(T,S1,1,T,S1,2,slop)|, sl |getdist(T,S1,1,T,S1,2,sl)|, ends |getdist(T,S1,1,T,S1,-1)|, across |getdist(T,S2,2,T,S1,1)|
## Error codes: -1x for the first point, -2x for the second; the first point is checked first.
   getdist: |getdist(NOPE,S1,1,T,S1,1)| |getdist(T,NO,1,T,S1,1)| |getdist(T,S1,0,T,S1,1)| |getdist(T,S1,4,T,S1,1)| |getdist(T,S1,-4,T,S1,1)| |getdist(T,S1,1,NOPE,S1,1)| |getdist(T,S1,1,T,NO,1)| |getdist(T,S1,1,T,S1,0)| |getdist(NOPE,S1,1,NOPE,S1,1)|
   getlength: slope |getlength(T,S1)|, plan |getlength(T,S1,Plan)|, gap |getlength(T,S2)|, single |getlength(T,A1)|
## The null first level stays the minimum; the later 9 ties and keeps the earlier position.
   getminmax: LV |getminmax(T,LV)|
## A string or model that is not there: one and one.
   getminmax: NO |getminmax(T,NO)|, NOPE |getminmax(NOPE,S1)|
## each() fills the list that repeat iterates; a short label ends in blanks.
   each: S |each(T,S)|, a |each(T,a)|, S# |each(T,"S#")|, L* |each(T,"L*")|, Q |each(T,Q)|
insert,each_listed
repeat=each(T,"A")
## Levels 7, 3, -999, -998, 2, 2, 123456.788, 123456.789: the nulls are never the minimum, the
## two 2s tie, and the two highest are one single-precision number: the first stays the maximum.
geni,T
001format(3f12.3)
080,LW,,7=3
00000001.00000000002.00000000007.000
00000002.00000000002.00000000003.000
00000003.00000000002.000-0000999.000
00000004.00000000002.000-0000998.000
00000005.00000000002.00000000002.000
00000006.00000000002.00000000002.000
00000007.00000000002.00000123456.788
00000008.00000000002.00000123456.789
00000000.00000000000.00000000000.000
999
   getminmax: LW |getminmax(T,LW)|
## A query after a change sees the change.
edit,T
005,3=S1,6=2
999
   after edit: count |getpoint(T,S1,0,num,1)|, last |getchain(T,S1,-1)|
