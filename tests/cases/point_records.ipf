## engine: embedded
## setting: PublicMacros=/macros/public
## The point record a query reads: numbers 1 to 12 are the dimensions (a
## master string's fifth and sixth as 13 and 14), 5 the chainage along the
## plan (a break not counted; a master string's own in its fourth), 16 the
## point count; texts 5 to 12 the text dimensions, 13 the label, 14 the
## sub-reference, 16 the dimension. getdata counts the points through the
## strings of the model the last GENIO named. Model M: a 3D string broken
## after its second point, with a null level; a 6D master string; a 5D
## section string whose fifth dimension is a text. A string cut at its start
## is measured again from its new first point. The engine's parameters: the
## project folder, the model the last GENIO named, the settings. The label
## after the highest of a prefix, and strings and models asked for (letter
## case aside).
geni,M
001FORMAT(3F12.3)
080,S1,,,,,3,,,2
00000000.00000000001.00000000010.000
00000003.00000000005.000-0000999.000
00000010.00000000005.00000000012.000
00000010.00000000009.00000000013.000
00000000.00000000000.00000000000.000
003,ORDR,4=1,1,2,3,4,5,6
080,MAST
00000100.00000000200.00000000050.000
00001000.00000000001.57100000250.000
00000100.00000000300.00000000051.000
00001100.00000000001.57100000000.000
00000000.00000000000.00000000000.000
00000000.00000000000.00000000000.000
001FORMAT(4F12.3,A4)
003,ORDR,4=1,1,2,3,4,5
080,X001,MAST
00000100.00000000250.00000000050.500-0000007.500S1
00000000.00000000000.00000000000.00000000000.000
999
   S1 point 3: chainage |getpoint(m,s1,3,num,5)|, of |getpoint(M,S1,3,num,16)| points; point 2: level |getpoint(M,S1,2,num,3)|
   MAST point 2: 4 |getpoint(M,MAST,2,num,4)|, 5 |getpoint(M,MAST,2,num,5)|, 13 |getpoint(M,MAST,2,num,13)|, 6 |getpoint(M,MAST,2,num,6)|
   X001 point 1: text 5 |getpoint(M,X001,1,txt,5)|, 4 |getpoint(M,X001,1,num,4)|, text 14 |getpoint(M,X001,1,txt,14)|, text 16 |getpoint(M,X001,1,txt,16)|
   point 7 of M: |getdata(7,txt,13)|, S1 has |getpoint(M,S1,0,num,1)| points
if exist(m,mast) then e1=1 else e1=0
if exist(M,MAS) then e2=1 else e2=0
if exist(N) then e3=1 else e3=0
   exist: m mast |e1|, M MAS |e2|, N |e3|
   folder |getparam(" ProjectFolder ")|, model |getparam(CurrentModel)|, public |getparam(publicmacros)|, project |getparam(projectmacros)|, dir |getparam(projectdir)|
geni,K
001FORMAT(3F12.3)
080,B
00000001.00000000001.00000000000.100
00000002.00000000001.00000000000.200
00000003.00000000001.00000000000.300
00000004.00000000001.00000000000.400
00000005.00000000001.00000000000.500
00000006.00000000001.00000000000.600
00000000.00000000000.00000000000.000
999
edit,K
005,3=B,9=3
999
   B cut: point 4 at x |getpoint(K,B,4,num,1)|, chainage |getpoint(K,B,4,num,5)|
geni,L
001FORMAT(2F8.1)
080,AB00,,,,,2
00001.000001.0
00000.000000.0
080,AB05,,,,,2
00001.000001.0
00000.000000.0
080,ab0z,,,,,2
00001.000001.0
00000.000000.0
080,AC00,,,,,2
00001.000001.0
00000.000000.0
080,B,,,,,2
00001.000001.0
00000.000000.0
999
   next ab |getnextlabel(L,ab)|, Q |getnextlabel(L,Q)|
