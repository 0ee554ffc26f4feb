## excel: files
## python: params_book.py make <project>/excel/params.xlsx <project>/entries.txt
## python after: params_book.py same <project>/excel/params.xlsx <project>/entries.txt
## entry: [notes]
## entry: [broken]
## entry: [no sheet]
## entry: [no row]
## entry: [beyond XFD]
## entry: [put no sheet]
## entry: [row 0]
## entry: [column 16385]
## entry: [refused]
## entry: [put notes]
## A workbook that is no workbook, a sheet, cell or value Excel would not
## take: each ends the run, and the workbook stays byte for byte as it was.
[notes]
#v=xlget(notes.xlsx,A1)
[broken]
#v=xlget(broken.xlsx,A1)
[no sheet]
#v=xlget(params.xlsx,A1,Nothing)
[no row]
#v=xlget(params.xlsx,B)
[beyond XFD]
#v=xlget(params.xlsx,XFE1)
[put no sheet]
xlput,params.xlsx,Nothing,1,1,x
[row 0]
xlput,params.xlsx,Results,0,1,x
[column 16385]
xlput,params.xlsx,Results,1,16385,x
[refused]
xlput,params.xlsx,Results,1,1,"="
[put notes]
xlput,notes.xlsx,Results,1,1,x
