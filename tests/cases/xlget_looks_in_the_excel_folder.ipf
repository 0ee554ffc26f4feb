## excel: recording
## show: log
## xlget looks for a workbook named without a folder in the project's excel
## folder, as ".xls" when it has no extension; one that is not there gives
## empty text and a log line naming where it was looked for.
#a=xlget(params,B2)
#b=xlget(params.xlsx,$C$3,Data)
#c=xlget("|getparam(projectdir)|\elsewhere\book.xlsm",A1)
#d=xlget(missing,A1)
   a |a|, b |b|, c |c|, d |d|
