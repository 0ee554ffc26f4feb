crea,before
crea,a|b
crea,never
