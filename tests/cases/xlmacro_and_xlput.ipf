## excel: recording
## show: written
## xlmacro passes the fields of its line, announced before the flush; xlput
## sets one cell, and the workbook is a file the run wrote.
#n=4
xlmacro,Book.xlsm!Go,|n*2|,,last
xlput,out.xlsx,Data,|n|,2,"=A1*2"
xlput,missing,Data,1,1,x
