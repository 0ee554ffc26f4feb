crea,a
let,x=1,
crea,|x|
