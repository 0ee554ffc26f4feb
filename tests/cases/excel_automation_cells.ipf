## excel: automation
## Over automation a cell is reached through the workbook of its path, its
## worksheet (by name, or the first) and the cell; xlput sets its formula as
## typed, xlget reads its value.
xlput,data.xlsx,Data,4,2,"=A1*2"
#v=xlget(data.xlsx,B2)
   v |v|
