let,x=1,
reset
crea,|x|
let,repeat=skip,
crea,never
