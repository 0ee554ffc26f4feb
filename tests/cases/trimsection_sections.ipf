## engine: embedded
## trimsection cuts section strings back where they run on between
## crossings with boundary strings. Each point of a section string is a
## crossing: its fourth dimension the position along the section, its
## fifth the label of the string crossed there.
## S001 crosses ground, edge, master, edge, ground: with the ground strings
## as boundaries its outermost runs go. S002 has one crossing, which is
## never a run. In S003 the run from GR06 over GR07 to GR08 goes and leaves
## a gap after GR06. X001 is not selected.
geni,SECT
001,FORMAT (4F12.3,A4)
003,ordr,4=1,1,2,3,4,5
080,S001,,7=5
     990.000    5000.000      99.000       0.000GR01
     993.000    5000.000      99.000       3.000GR02
     996.000    5000.000      99.000       6.000E001
    1000.000    5000.000      99.000      10.000MAST
    1004.000    5000.000      99.000      14.000E002
    1007.000    5000.000      99.000      17.000GR03
    1010.000    5000.000      99.000      20.000GR04
       0.000       0.000       0.000       0.000
080,S002,,7=5
    1000.000    5010.000      99.000      10.000MAST
       0.000       0.000       0.000       0.000
080,S003,,7=5
     990.000    5020.000      99.000       0.000GR05
     994.000    5020.000      99.000       4.000E003
     998.000    5020.000      99.000       8.000GR06
    1002.000    5020.000      99.000      12.000GR07
    1006.000    5020.000      99.000      16.000GR08
    1010.000    5020.000      99.000      20.000E004
       0.000       0.000       0.000       0.000
080,X001,,7=5
     990.000    5030.000      99.000       0.000GR09
     993.000    5030.000      99.000       3.000GR10
       0.000       0.000       0.000       0.000
999
trimsection,SECT
inic="S",mask1="gr"
insert,show_sections
repeat=each(SECT,?),m="SECT"
   gap after point 3 of S003: |getpoint(SECT,S003,3,num,15)|
## With dist, a pair of boundary crossings closer than that stays: GR01 and
## GR02 lie 1 apart, GR03 and GR04 10.
geni,WIDE
001,FORMAT (4F12.3,A4)
003,ordr,4=1,1,2,3,4,5
080,W001,,7=5
     990.000    5000.000      99.000       0.000GR01
     991.000    5000.000      99.000       1.000GR02
     995.000    5000.000      99.000       5.000E001
     999.000    5000.000      99.000       9.000GR03
    1009.000    5000.000      99.000      19.000GR04
       0.000       0.000       0.000       0.000
999
trimsection,WIDE
inic="W001",mask1="GR",dist=2
insert,show_sections
repeat=each(WIDE,?),m="WIDE"
## All masks left at ???? make every pair a cut: the string goes.
geni,ALL
001,FORMAT (4F12.3,A4)
003,ordr,4=1,1,2,3,4,5
080,A001,,7=5
     990.000    5000.000      99.000       0.000GR01
     995.000    5000.000      99.000       5.000E001
     999.000    5000.000      99.000       9.000GR03
       0.000       0.000       0.000       0.000
999
trimsection,ALL
inic="A001"
## The EDIT runs with the lines after it, so only a query that flushes sees
## its effect: each() finds no string left.
   strings left in ALL: |each(ALL,?)|
