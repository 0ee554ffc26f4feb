## excel: recording
## entry: [table]
## entry: [getname]
## entry: [no column]
## getname finds the key (blanks around it and letter case aside) in the
## first column and gives the cell the column number names, counted from the
## second column, in either argument order.
[table]
xlput,road.xlsx,Data,1,1,Name
xlput,road.xlsx,Data,1,2,Width
xlput,road.xlsx,Data,1,3,Depth
xlput,road.xlsx,Data,2,1,"  Ditch "
xlput,road.xlsx,Data,2,2,0.5
xlput,road.xlsx,Data,2,3,0.8
xlput,road.xlsx,Data,3,1,kerb
xlput,road.xlsx,Data,3,2,0.15
xlput,road.xlsx,Data,3,3,0.3
xlput,road.xlsx,Data,4,1,ditch
xlput,road.xlsx,Data,4,3,second
[getname]
#keyFirst=getname(road.xlsx,ditch,2)
#columnFirst=getname(road.xlsx,1,DITCH)
#kerb=getname(road.xlsx,Kerb,1,Sheet2)
#none=getname(road.xlsx,verge,1)
   key first |keyFirst|, column first |columnFirst|, kerb |kerb|, none |none|
[no column]
#x=getname(road.xlsx,ditch,width)
