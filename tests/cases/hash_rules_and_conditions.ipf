#a=5
## a comment
#if a=5 then b=yes else b=no
IF a<>5 then c=1 else c=2
if "x=y"=|a| then d=1 else d=2
if a>=10 then e=1 else e=2
if a=<5 then f=1
   if a=5 then g=1
crea,|b|,|c|,|d|,|e|,|f|,|g|
