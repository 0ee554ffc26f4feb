## excel: files
## python: old_xls_book.py <project>/excel/old.xls
## python after: old_xls_book.py check <project>/excel/old.xls
## Without Excel an .xls workbook (the sheet Adatok: 12.5 in A1, the shared
## text "árok" in B2) is read, a cell outside the used area empty, and
## never written: xlput ends the run and leaves the book as it was.
#n=xlget(old,A1)
#t=xlget(old.xls,$B$2,ADATOK)
#e=xlget(old,C9)
   n |n|, t |t|, e |e|
xlput,old,Adatok,1,1,7
