crea,one
fini
crea,never
