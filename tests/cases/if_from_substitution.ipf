let,w=iF,
crea,a
|w|
crea,never
