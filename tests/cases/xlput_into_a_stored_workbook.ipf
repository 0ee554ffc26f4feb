## excel: files
## python: params_book.py make <project>/excel/params.xlsx <project>/entries.txt
## python after: params_book.py check <project>/excel/params.xlsx <project>/entries.txt
## show: excel/params.xlsx.korvane-tmp
## A workbook as Excel stores it (made by params_book.py): xlget and getname
## read it, xlput writes numbers, texts, formulas and a text typed with a
## leading apostrophe; xlget reads them back, the formula's value empty as
## no program has calculated it. openpyxl reads what was written, and every
## part not written is as it was stored.
#w=xlget(params.xlsx,B2,Params)
#l=getname(params.xlsx,LABEL,1,params)
#f=xlget(params.xlsx,Params!C3)
xlput,params.xlsx,Results,2,1,|w*2|
xlput,params.xlsx,Results,2,2,"szélesség"
xlput,params.xlsx,Results,2,3,"=Params!B2*2"
xlput,params.xlsx,Results,3,1,"'0012"
xlput,params.xlsx,Params,3,3,42
#back=xlget(params.xlsx,a2,Results)
#text=xlget(params.xlsx,Results!$B$2:C9)
#lead=xlget(params.xlsx,A3,Results)
#formula=xlget(params.xlsx,C2,Results)
   w |w|, l |l|, f |f|, back |back|, text |text|, lead |lead|, formula |formula|
