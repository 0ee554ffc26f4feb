crea,a
if
crea,never
