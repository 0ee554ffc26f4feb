crea,before
let,x=abs(y),
