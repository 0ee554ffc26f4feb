## drawxsection is a reserved word: its keyword text is assigned and it
## writes nothing of its own.
crea,BEFORE
drawxsection,ROAD,SECT
width=25,
step=10
   width |width|, step |step|
dele,BEFORE
