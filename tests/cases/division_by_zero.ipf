crea,first
let,x=1/0,
crea,never
